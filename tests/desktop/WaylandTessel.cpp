// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/WaylandTessel.h"

#include "bar/PanelLayout.h"

#include <QTest>

#include <linux/input-event-codes.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

constexpr int timeoutMs = int(defaultTimeout.count());
constexpr int gap = 10; // between the bar and the pointer
constexpr int tolerance = 2; // pixels, for edges that are drawn softly

QSize scaled(QSize size, double scale)
{
    return (QSizeF(size) * scale).toSize();
}

bool isNear(const QRect &seen, const QRect &expected)
{
    const QRect inner = expected.adjusted(tolerance, tolerance, -tolerance, -tolerance);
    const QRect outer = expected.adjusted(-tolerance, -tolerance, tolerance, tolerance);
    return outer.contains(seen) && seen.contains(inner);
}

}

WaylandTessel::WaylandTessel(WaylandDesktop &session)
    : TesselProcess(session)
    , m_session(session)
{
}

QRect WaylandTessel::place(QPoint pointer, double scale)
{
    const QSize size = scaled(PanelLayout::arrange({ PanelLayout::buttonSize }).bar.size(), scale);
    return { pointer - QPoint(size.width() / 2, size.height() + qRound(gap * scale)), size };
}

bool WaylandTessel::summon(QPoint pointer, double scale)
{
    awaitTrigger();
    m_session.user().movePointer(pointer);
    m_session.user().tap(KEY_F2);
    return waitForBar(pointer, scale);
}

bool WaylandTessel::waitForBar(QPoint pointer, double scale)
{
    m_pointer = pointer;
    m_scale = scale;
    QRect seen;
    const bool isThere = QTest::qWaitFor(
        [&] {
            // While it rests, a nested KWin 6.3 may show nothing.
            m_session.user().movePointer(pointer);
            seen = bar();
            return isNear(seen, place(pointer, scale));
        },
        timeoutMs);
    if (!isThere)
        qInfo().noquote() << "instead of" << place(pointer, scale) << "there is" << seen << '\n'
                          << process().output().right(1500);
    noteCapture();
    return isThere;
}

bool WaylandTessel::waitUntilBarGone()
{
    return QTest::qWaitFor([this] { return bar().isNull(); }, timeoutMs);
}

QRect WaylandTessel::bar()
{
    constexpr int clear = 24; // of a channel, by which the bar is brighter than the desktop
    const QImage screen = m_session.screenshot();
    const QSize around = scaled({ 250, 85 }, m_scale);
    const QRect area = QRect(m_pointer - QPoint(around.width() / 2, around.height()),
                             QSize(around.width(), around.height() - qRound(gap * m_scale) + 1))
        & screen.rect();
    const int bare = qGray(screen.pixel(screen.width() - 1, screen.height() - 1));
    QRect found;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (qGray(screen.pixel(x, y)) > bare + clear)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}
