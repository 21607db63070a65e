// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/DesktopSession.h"

#include "files/Files.h"
#include "support/DisplayConnection.h"
#include "support/XClipboard.h"
#include "support/XUser.h"
#include "support/XcbSupport.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

// Two desktops, focus by click, and of keys only that to close and that to the other desktop.
constexpr char16_t openboxConfiguration[] = uR"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse><raiseOnFocus>yes</raiseOnFocus></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <desktops><number>2</number><popupTime>0</popupTime></desktops>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
    <keybind key="C-A-Right"><action name="GoToDesktop"><to>next</to></action></keybind>
  </keyboard>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
  </mouse>
</openbox_config>
)";

void setResources(const QString &display, const QByteArray &resources)
{
    const Xcb::Connection connection(xcb_connect(display.toLatin1().constData(), nullptr));
    auto *c = connection.get();
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, Xcb::screen(c)->root, XCB_ATOM_RESOURCE_MANAGER,
                        XCB_ATOM_STRING, 8, static_cast<uint32_t>(resources.size()),
                        resources.constData());
    const Xcb::Owned<xcb_get_input_focus_reply_t> handled(
        xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
}

// In the form of xrandr(1); physical sizes for 96 dots per inch.
QString monitorGeometry(const QRect &monitor)
{
    const auto length
        = [](int pixels) { return u"%1/%2"_s.arg(pixels).arg(qRound(pixels * 25.4 / 96)); };
    return u"%1x%2+%3+%4"_s.arg(length(monitor.width()), length(monitor.height()))
        .arg(monitor.x())
        .arg(monitor.y());
}

}

DesktopSession::DesktopSession() = default;
DesktopSession::~DesktopSession() = default;

bool DesktopSession::start(const DesktopOptions &options)
{
    QRect space;
    for (const auto &monitor : options.monitors)
        space |= monitor;
    if (!prepare() || !startServer({ space.x() + space.width(), space.y() + space.height() }))
        return false;
    if (options.dpi > 0)
        setResources(m_display, "Xft.dpi:\t" + QByteArray::number(options.dpi) + '\n');
    return setKeyboardLayout(options.keyboardLayout) && defineMonitors(options.monitors)
        && (!options.sessionBus || startBus()) && (!options.windowManager || startWindowManager())
        && (!options.compositor || startCompositor());
}

bool DesktopSession::startServer(const QSize &size)
{
    const auto screen = u"%1x%2x24"_s.arg(size.width()).arg(size.height());
    auto &server = launch(
        u"Xvfb"_s, u"-displayfd 1 -noreset -nolisten tcp -screen 0 %1"_s.arg(screen).split(u' '));
    const auto number = server.waitForOutput(QRegularExpression(u"(\\d+)\n"_s));
    if (!number.hasMatch())
        return fail(u"Xvfb does not start: "_s + server.errorOutput());
    m_display = u':' + number.captured(1);
    setVariable(u"DISPLAY"_s, m_display);
    m_user = std::make_unique<XUser>(m_display);
    m_clipboard = std::make_unique<XClipboard>(m_display);
    return m_user->isConnected() || fail(u"no connection to the X server"_s);
}

bool DesktopSession::defineMonitors(const QList<QRect> &monitors)
{
    for (qsizetype i = 0; monitors.size() > 1 && i < monitors.size(); ++i) {
        // The asterisk marks the primary monitor, which replaces the server's own by taking its
        // only output.
        const QString name = i == 0 ? u"*Monitor-1"_s : u"Monitor-%1"_s.arg(i + 1);
        if (!run(u"xrandr"_s,
                 { u"--setmonitor"_s, name, monitorGeometry(monitors.at(i)),
                   i == 0 ? u"screen"_s : u"none"_s }))
            return false;
    }
    return true;
}

bool DesktopSession::startWindowManager()
{
    const QString configuration = path(u"openbox.xml"_s);
    if (!writeFile(configuration, QString::fromUtf16(openboxConfiguration)))
        return fail(u"cannot write "_s + configuration);
    // The command runs once openbox is in its main loop. Before, when it has merely announced
    // itself on the root window, a new window would be taken for an old one and not be activated.
    auto &manager = launch(u"openbox"_s,
                           { u"--sm-disable"_s, u"--config-file"_s, configuration, u"--startup"_s,
                             u"echo running"_s });
    return manager.waitForOutput(QRegularExpression(u"running\n"_s)).hasMatch()
        || fail(u"openbox does not start: "_s + manager.errorOutput());
}

bool DesktopSession::startCompositor()
{
    auto &compositor
        = launch(u"picom"_s, { u"--config"_s, u"/dev/null"_s, u"--backend"_s, u"xrender"_s });
    // A compositing manager owns this selection (EWMH, "compositing managers").
    const auto x = connectionTo(m_display.toLatin1());
    return QTest::qWaitFor([&x] { return x && x->selectionOwner(x->atom("_NET_WM_CM_S0")) != 0; },
                           static_cast<int>(defaultTimeout.count()))
        || fail(u"picom does not start: "_s + compositor.errorOutput());
}

void DesktopSession::launchXfceSettings()
{
    const QDir libraries(u"/usr/lib"_s);
    for (const QString &architecture : libraries.entryList({ u"*-linux-gnu*"_s }, QDir::Dirs))
        launch(libraries.filePath(architecture) + u"/xfce4/xfconf/xfconfd"_s);
}

bool DesktopSession::setKeyboardLayout(const QString &layout)
{
    return run(u"setxkbmap"_s, { u"-layout"_s, layout });
}

}
