// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/TesselProgram.h"

#include "bar/PanelLayout.h"

#include <QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

TesselProgram::TesselProgram(DesktopSession &session)
    : TesselProcess(session)
    , m_session(session)
{
}

std::optional<WindowInfo> TesselProgram::summon()
{
    awaitTrigger();
    m_session.user().tap(XKB_KEY_F2);
    return waitForBar();
}

std::optional<WindowInfo> TesselProgram::bar() const
{
    return m_session.user().findWindow([](const WindowInfo &window) {
        return window.overrideRedirect && window.className == u"Tessel"
            && window.title == u"Tessel";
    });
}

std::optional<WindowInfo> TesselProgram::waitForBar() const
{
    std::optional<WindowInfo> found;
    [[maybe_unused]] const bool came = QTest::qWaitFor(
        [&] {
            found = bar();
            return found.has_value();
        },
        int(defaultTimeout.count()));
    noteCapture();
    return found;
}

bool TesselProgram::waitUntilBarGone() const
{
    return QTest::qWaitFor([this] { return !bar(); }, int(defaultTimeout.count()));
}

std::optional<WindowInfo> TesselProgram::waitForWindow(const QString &title) const
{
    return m_session.user().waitForWindow([&title](const WindowInfo &window) {
        return window.className == u"Tessel" && window.title == title;
    });
}

std::optional<WindowInfo> TesselProgram::openSettings()
{
    if (!summon())
        return {};
    m_session.user().tap(XKB_KEY_comma, { XKB_KEY_Control_L });
    const auto window = waitForWindow(u"Tessel Preferences"_s);
    return window && m_session.user().waitUntilUsable(window->id) ? window : std::nullopt;
}

QPoint TesselProgram::button(const WindowInfo &bar, int index)
{
    const auto layout = PanelLayout::arrange(QList<int>(index + 1, PanelLayout::buttonSize));
    return bar.geometry.topLeft() + layout.buttons.last().center();
}
