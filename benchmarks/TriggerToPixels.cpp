// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// trigger_to_pixels [--wayland] [PRESSES [CHARACTERS [ACTIONS]]]: what the time between the trigger
// key and the first pixels of the bar goes into, on a private desktop, seen from outside the
// program:
//
//     copy     key press until the application in front takes the clipboard
//     poll     until it is asked for the text
//     text     until the program has the text
//     rebuild  until the bar is filled, arranged and placed
//     map      until its window is on the screen
//     paint    until the window shows more than one colour
//
// and how long the program takes to start, and what private memory it has before the presses and
// after them. The application in
// front is a window that answers at once, so that its own time is left out. Of the actions, all
// beyond the eighth have a regular expression that does not match.
//
// On Wayland the desktop is sway, the one in front is mousepad, whose time counts, and the protocol
// as the program's library logs it tells the last two steps: that the bar gets its place on the
// screen, and that the painted picture is handed over. sway shows that with the next frame. When
// the text is asked for is not told.

#include "desktop/TesselProgram.h"
#include "support/DesktopSession.h"
#include "support/WaylandEditor.h"
#include "support/WaylandSession.h"
#include "support/XUser.h"
#include "support/XcbSupport.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QSocketNotifier>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>

#include <linux/input-event-codes.h>
#include <xcb/damage.h>
#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

enum Step { Taken, Asked, GotText, Filled, Mapped, Painted, StepCount };
constexpr std::array<const char *, StepCount> names
    = { "copy", "poll", "text", "rebuild", "map", "paint" };

/// When each step of one press was seen, in nanoseconds; 0: not yet.
class Timeline
{
public:
    void restart()
    {
        m_at.fill(0);
        m_clock.start();
    }
    /// Steps before it that were not seen took place by then.
    void mark(Step step)
    {
        const qint64 now = m_clock.nsecsElapsed();
        for (int each = step; each >= 0 && m_at[size_t(each)] == 0; --each)
            m_at[size_t(each)] = now;
    }
    [[nodiscard]] bool isComplete() const { return m_at[Painted] != 0; }
    [[nodiscard]] double took(int step) const
    {
        const qint64 before = step == 0 ? 0 : m_at[size_t(step) - 1];
        return double(m_at[size_t(step)] - before) / 1e6;
    }
    [[nodiscard]] double total() const { return double(m_at[Painted]) / 1e6; }

private:
    QElapsedTimer m_clock;
    std::array<qint64, StepCount> m_at {};
};

/// Marks a step whenever a line of the process contains a text.
void watch(QProcess &process, Timeline &timeline, const QMap<QByteArray, Step> &steps)
{
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, [&, steps] {
        const QByteArray output = process.readAllStandardOutput();
        for (auto step = steps.cbegin(); step != steps.cend(); ++step) {
            if (output.contains(step.key()))
                timeline.mark(step.value());
        }
    });
}

/// Sees new windows and what is drawn, by events of the server.
class Eyes
{
public:
    Eyes(const QString &display, Timeline &timeline)
        : m_timeline(timeline)
        , m_xcb(xcb_connect(display.toLatin1().constData(), nullptr))
        , m_root(Xcb::screen(m_xcb.get())->root)
        , m_notifier(xcb_get_file_descriptor(m_xcb.get()), QSocketNotifier::Read)
    {
        const quint32 mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_xcb.get(), m_root, XCB_CW_EVENT_MASK, &mask);
        const Xcb::Owned<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
            m_xcb.get(), xcb_damage_query_version(m_xcb.get(), 1, 1), nullptr));
        m_damageEvent = xcb_get_extension_data(m_xcb.get(), &xcb_damage_id)->first_event;
        xcb_damage_create(m_xcb.get(), xcb_generate_id(m_xcb.get()), m_root,
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(m_xcb.get());
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
    }

private:
    void read()
    {
        while (const Xcb::Owned<xcb_generic_event_t> event { xcb_poll_for_event(m_xcb.get()) }) {
            const int type = event->response_type & 0x7f;
            if (type == XCB_MAP_NOTIFY) {
                const auto *map = reinterpret_cast<xcb_map_notify_event_t *>(event.get());
                m_window = map->window;
                m_timeline.mark(Mapped);
            } else if (type == m_damageEvent + XCB_DAMAGE_NOTIFY && isPainted()) {
                m_timeline.mark(Painted);
            } else if (type == XCB_UNMAP_NOTIFY) {
                m_window = 0;
            }
        }
    }

    [[nodiscard]] bool isPainted()
    {
        if (!m_window)
            return false;
        const Xcb::Owned<xcb_get_geometry_reply_t> size(
            xcb_get_geometry_reply(m_xcb.get(), xcb_get_geometry(m_xcb.get(), m_window), nullptr));
        if (!size || size->width < 60)
            return false;
        const Xcb::Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(
            m_xcb.get(),
            xcb_get_image(m_xcb.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, qint16(size->x + 24),
                          qint16(size->y + 22), 40, 40, ~0U),
            nullptr));
        const auto *pixels
            = image ? reinterpret_cast<const quint32 *>(xcb_get_image_data(image.get())) : nullptr;
        return pixels && std::any_of(pixels, pixels + 40 * 40, [pixels](quint32 pixel) {
                   return pixel != *pixels;
               });
    }

    Timeline &m_timeline;
    Xcb::Connection m_xcb;
    quint32 m_root;
    quint32 m_window = 0;
    int m_damageEvent = 0;
    QSocketNotifier m_notifier;
};

/// Sees the bar by what the Wayland library of the program logs of its requests.
void watchRequests(QProcess &process, Timeline &timeline)
{
    process.setReadChannel(QProcess::StandardError);
    QObject::connect(
        &process, &QProcess::readyReadStandardError, &process,
        [&, surface = QByteArray()]() mutable {
            static const QRegularExpression role(
                u"get_layer_surface\\(new id [^,]+, (wl_surface@\\d+), .*\"tessel\"\\)"_s);
            while (process.canReadLine()) {
                const QByteArray line = process.readLine();
                if (const auto match = role.match(QString::fromLatin1(line)); match.hasMatch()) {
                    surface = match.captured(1).toLatin1();
                    timeline.mark(Mapped);
                } else if (!surface.isEmpty() && line.contains(surface + ".attach(wl_buffer@")) {
                    timeline.mark(Painted);
                    surface.clear();
                }
            }
        });
}

/// Handles events as they come (a polling wait would round the times up).
void waitForPixels(const Timeline &timeline)
{
    QEventLoop loop;
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(2000);
    while (!timeline.isComplete() && deadline.isActive())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

/// KiB of memory that the process alone has written to.
int privateDirty(qint64 processId)
{
    QFile file(u"/proc/%1/smaps_rollup"_s.arg(processId));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QRegularExpression line(u"Private_Dirty:\\s+(\\d+)"_s);
    return line.match(QString::fromLatin1(file.readAll())).captured(1).toInt();
}

QJsonArray actions(int count)
{
    QJsonArray list;
    for (int i = 0; i < count; ++i) {
        auto action
            = TesselProgram::urlAction(QString::number(i), u"tessel-test://%1?{text}"_s.arg(i));
        if (i >= 8)
            action.insert(u"regex"_s, u"(?:order|invoice)[ #-]*%1-\\d{4,}\\b"_s.arg(i));
        list.append(action);
    }
    return list;
}

QStringList frontArguments(int characters)
{
    constexpr int longestArgument = 100'000;
    if (characters > longestArgument)
        return { u"incr"_s, QString::number(characters) };
    return { u"text"_s, QString(characters, u'x') };
}

struct Samples
{
    std::array<QList<double>, StepCount> parts;
    QList<double> totals;
};

/// How often, how much text is marked, and how many actions there are.
struct Load
{
    int presses;
    int characters;
    int actions;
};

/// The user's keys.
struct Keys
{
    std::function<void()> trigger;
    std::function<void()> escape;
};

Samples press(int times, Timeline &timeline, const Keys &keys)
{
    Samples samples;
    for (int i = 0; i < times; ++i) {
        timeline.restart();
        keys.trigger();
        waitForPixels(timeline);
        if (timeline.isComplete()) {
            for (int step = 0; step < StepCount; ++step)
                samples.parts[size_t(step)] += timeline.took(step);
            samples.totals += timeline.total();
        }
        QTest::qWait(100); // nobody sees the bar and presses a key before it has the keyboard
        keys.escape();
        QTest::qWait(1100); // until the trigger counts again
    }
    return samples;
}

bool fail(const QString &reason)
{
    std::fprintf(stderr, "%s\n", qPrintable(reason));
    return false;
}

/// The program, once it is up and has built the bar ahead.
bool start(QProcess &tessel, Session &session, Timeline &timeline, const Load &load)
{
    TesselProcess configuration(session);
    configuration.actions = actions(load.actions);
    if (!configuration.writeConfiguration())
        return fail(u"The configuration cannot be written."_s);
    tessel.setProcessEnvironment(session.environment());
    QElapsedTimer timer;
    timer.start();
    tessel.start(TesselProcess::path(), QStringList());
    QByteArray output;
    while (!output.contains("Tessel started.") && tessel.waitForReadyRead())
        output += tessel.readAllStandardOutput();
    std::printf("%-12s %7.2f ms\n", "start", double(timer.nsecsElapsed()) / 1e6);
    watch(tessel, timeline,
          { { "simulation succeeded", GotText }, { "FloatingPanel showing", Filled } });
    QTest::qWait(2000);
    return tessel.state() == QProcess::Running || fail(u"Tessel does not start."_s);
}

bool measure(QProcess &tessel, Timeline &timeline, const Load &load, const Keys &keys)
{
    const int before = privateDirty(tessel.processId());
    const Samples samples = press(load.presses, timeline, keys);
    const int after = privateDirty(tessel.processId());
    for (int step = 0; step < StepCount; ++step)
        std::printf("%-12s %7.2f ms   first press %7.2f ms\n", names[size_t(step)],
                    median(samples.parts[size_t(step)]), samples.parts[size_t(step)].value(0));
    std::printf("%-12s %7.2f ms   first press %7.2f ms   (medians of %d)\n", "in all",
                median(samples.totals), samples.totals.value(0), int(samples.totals.size()));
    std::printf("private dirty %d KiB before, %+d KiB after\n", before, after - before);
    tessel.terminate();
    tessel.waitForFinished();
    return samples.totals.size() == load.presses;
}

bool onX11(const Load &load)
{
    DesktopSession session;
    if (!session.start())
        return fail(session.errorString());
    Timeline timeline;
    QProcess front;
    front.setProcessEnvironment(session.environment());
    watch(front, timeline, { { "taken", Taken }, { "asked UTF8_STRING", Asked } });
    front.start(QStringLiteral(TESSEL_HOSTILE_OWNER), frontArguments(load.characters));
    QProcess tessel;
    if (!start(tessel, session, timeline, load))
        return false;
    XUser &user = session.user();
    user.movePointer({ 640, 500 });
    const Eyes eyes(session.display(), timeline);
    const bool isDone
        = measure(tessel, timeline, load,
                  { [&] { user.tap(XKB_KEY_F2); }, [&] { user.tap(XKB_KEY_Escape); } });
    front.terminate();
    front.waitForFinished();
    return isDone;
}

bool onWayland(const Load &load)
{
    WaylandSession session;
    if (!session.start())
        return fail(session.errorString());
    WaylandEditor front(session, WaylandEditorKind::Mousepad);
    if (!front.open(QString(load.characters, u'x')) || !front.selectAll())
        return fail(u"mousepad does not start."_s);
    session.setVariable(u"WAYLAND_DEBUG"_s, u"1"_s);
    Timeline timeline;
    QProcess tessel;
    if (!start(tessel, session, timeline, load))
        return false;
    watchRequests(tessel, timeline);
    User &user = session.user();
    user.movePointer({ 1000, 600 });
    return measure(tessel, timeline, load,
                   { [&] { user.tap(KEY_F2); }, [&] { user.tap(KEY_ESC); } });
}

}

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const bool isWayland = argc > 1 && QByteArray(argv[1]) == "--wayland";
    const auto argument = [&](int index, int otherwise) {
        index += isWayland;
        return argc > index ? QByteArray(argv[index]).toInt() : otherwise;
    };
    const Load load { argument(1, 20), argument(2, 1024), argument(3, 8) };
    return (isWayland ? onWayland(load) : onX11(load)) ? 0 : 1;
}
