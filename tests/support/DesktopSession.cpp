// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/DesktopSession.h"

#include "files/Files.h"
#include "support/DisplayConnection.h"
#include "support/XClipboard.h"
#include "support/XUser.h"
#include "support/XcbSupport.h"

#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr int stragglerGraceMs = 2000;

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

// Without service folders: what a machine happens to have installed is never started by a test.
QString busConfiguration(const QString &socket)
{
    return uR"(<busconfig>
  <type>session</type>
  <listen>unix:path=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
)"_s.arg(socket);
}

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

bool hasVariable(const QString &processFolder, const QByteArray &assignment)
{
    return readFile(processFolder + u"/environ"_s).split('\0').contains(assignment);
}

/// The test's own, also when it has taken over the environment of a desktop that is gone.
const QString &temporaryFolder()
{
    static const QString folder = QDir::tempPath();
    return folder;
}

}

DesktopSession::DesktopSession()
    : m_folder(temporaryFolder() + u"/tessel-desktop-XXXXXX"_s)
{
}

DesktopSession::~DesktopSession()
{
    // Whatever was started last goes first, and the server after everything that draws on it.
    while (m_children.size() > 1)
        m_children.pop_back();
    // What is killed can write into the folder until it is gone.
    [[maybe_unused]] const bool gone
        = QTest::qWaitFor([this] { return !killStragglers(); }, stragglerGraceMs);
    m_clipboard.reset();
    m_user.reset();
    m_children.clear();
}

bool DesktopSession::start(const DesktopOptions &options)
{
    QRect space;
    for (const auto &monitor : options.monitors)
        space |= monitor;
    prepareEnvironment();
    if (!prepareFolders()
        || !startServer({ space.x() + space.width(), space.y() + space.height() }))
        return false;
    if (options.dpi > 0)
        setResources(m_display, "Xft.dpi:\t" + QByteArray::number(options.dpi) + '\n');
    return setKeyboardLayout(options.keyboardLayout) && defineMonitors(options.monitors)
        && (!options.sessionBus || startBus()) && (!options.windowManager || startWindowManager())
        && (!options.compositor || startCompositor());
}

bool DesktopSession::fail(const QString &reason)
{
    m_error = reason;
    return false;
}

bool DesktopSession::prepareFolders()
{
    const QString bin = m_folder.filePath(u"bin"_s);
    const auto paths
        = { bin, configPath(), dataPath(), cachePath(), runtimePath(), temporaryPath() };
    for (const auto &path : paths) {
        if (!QDir().mkpath(path))
            return fail(u"cannot make the folder "_s + path);
    }
    // XDG Base Directory: the owner alone may enter.
    QFile::setPermissions(runtimePath(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return m_urlRecorder.install(bin, dataPath(), configPath())
        || fail(u"cannot write the handler of addresses"_s);
}

void DesktopSession::prepareEnvironment()
{
    for (const auto *name : { "PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS" }) {
        if (qEnvironmentVariableIsSet(name))
            setVariable(QString::fromLatin1(name), qEnvironmentVariable(name));
    }
    const std::pair<const char *, QString> variables[] = {
        { "HOME", homePath() },
        { "LANG", u"C.UTF-8"_s },
        { "SHELL", u"/bin/sh"_s },
        { "TMPDIR", temporaryPath() },
        { "XAUTHORITY", homePath() + u"/.Xauthority"_s },
        { "XDG_CACHE_HOME", cachePath() },
        { "XDG_CONFIG_HOME", configPath() },
        { "XDG_DATA_HOME", dataPath() },
        { "XDG_RUNTIME_DIR", runtimePath() },
        // An unknown transport, so that no program starts a bus by itself.
        { "DBUS_SESSION_BUS_ADDRESS", u"disabled:"_s },
        // GTK programs: settings in memory, no accessibility bus, no file system services.
        { "GSETTINGS_BACKEND", u"memory"_s },
        { "NO_AT_BRIDGE", u"1"_s },
        { "GIO_USE_VFS", u"local"_s },
    };
    for (const auto &[name, value] : variables)
        setVariable(QString::fromLatin1(name), value);
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

bool DesktopSession::startBus()
{
    const QString configuration = m_folder.filePath(u"bus.conf"_s);
    const QString socket = runtimePath() + u"/bus"_s;
    if (!writeFile(configuration, busConfiguration(socket)))
        return fail(u"cannot write "_s + configuration);
    auto &bus
        = launch(u"dbus-daemon"_s,
                 { u"--config-file="_s + configuration, u"--nofork"_s, u"--print-address=1"_s });
    if (!bus.waitForOutput(QRegularExpression(u"unix:\\S+\n"_s)).hasMatch())
        return fail(u"dbus-daemon does not start: "_s + bus.errorOutput());
    setVariable(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + socket);
    return true;
}

bool DesktopSession::startWindowManager()
{
    const QString configuration = m_folder.filePath(u"openbox.xml"_s);
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

void DesktopSession::setVariable(const QString &name, const QString &value)
{
    m_environment.insert(name, value);
}

ChildProcess &DesktopSession::launch(const QString &program, const QStringList &arguments)
{
    return launch(program, arguments, m_environment);
}

ChildProcess &DesktopSession::launch(const QString &program, const QStringList &arguments,
                                     const QProcessEnvironment &environment)
{
    auto &child = *m_children.emplace_back(std::make_unique<ChildProcess>());
    [[maybe_unused]] const bool started = child.start(program, arguments, environment, homePath());
    return child;
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

bool DesktopSession::run(const QString &program, const QStringList &arguments)
{
    ChildProcess child;
    const bool done = child.start(program, arguments, m_environment, homePath())
        && child.waitForExit() && child.exitCode() == 0;
    return done || fail(program + u" fails: "_s + child.errorOutput());
}

// Programs that detached themselves are known by the home that they were given. False when there
// are none.
bool DesktopSession::killStragglers()
{
    bool found = false;
    const QByteArray home = "HOME=" + homePath().toLocal8Bit();
    const auto entries = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const auto &entry : entries) {
        bool isProcess = false;
        const auto process = static_cast<pid_t>(entry.toInt(&isProcess));
        const bool isServer = !m_children.empty() && m_children.front()->processId() == process;
        if (isProcess && !isServer && hasVariable(u"/proc/"_s + entry, home))
            found = ::kill(process, SIGKILL) == 0 || found;
    }
    return found;
}

}
