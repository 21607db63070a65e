// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/DesktopSession.h"

#include "support/TextFile.h"
#include "support/XClipboard.h"
#include "support/XUser.h"
#include "support/XcbSupport.h"

#include <QTest>

#include <csignal>

namespace Tessel::Desktop {

namespace {

constexpr int stragglerGraceMs = 2000;

// Two desktops, focus by click, and of keys only that to close and that to the other desktop.
QString openboxConfiguration(const QMargins &reserved)
{
    return QStringLiteral(R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse><raiseOnFocus>yes</raiseOnFocus></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <desktops><number>2</number><popupTime>0</popupTime></desktops>
  <margins><top>%1</top><bottom>%2</bottom><left>%3</left><right>%4</right></margins>
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
)")
        .arg(reserved.top())
        .arg(reserved.bottom())
        .arg(reserved.left())
        .arg(reserved.right());
}

// Without service folders: what a machine happens to have installed is never started by a test.
QString busConfiguration(const QString &socket)
{
    return QStringLiteral(R"(<busconfig>
  <type>session</type>
  <listen>unix:path=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
)")
        .arg(socket);
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

// A compositing manager owns this selection (EWMH, "compositing managers").
bool hasCompositor(xcb_connection_t *c)
{
    const auto cookie = xcb_get_selection_owner(c, Xcb::atom(c, "_NET_WM_CM_S0"));
    const Xcb::Owned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(c, cookie, nullptr));
    return reply && reply->owner;
}

// In the form of xrandr(1); physical sizes for 96 dots per inch.
QString monitorGeometry(const QRect &monitor)
{
    const auto length = [](int pixels) {
        return QStringLiteral("%1/%2").arg(pixels).arg(qRound(pixels * 25.4 / 96));
    };
    return QStringLiteral("%1x%2+%3+%4")
        .arg(length(monitor.width()), length(monitor.height()))
        .arg(monitor.x())
        .arg(monitor.y());
}

bool hasVariable(const QString &processFolder, const QByteArray &assignment)
{
    QFile file(processFolder + QStringLiteral("/environ"));
    return file.open(QIODevice::ReadOnly) && file.readAll().split('\0').contains(assignment);
}

}

DesktopSession::DesktopSession()
    : m_folder(QDir::tempPath() + QStringLiteral("/tessel-desktop-XXXXXX"))
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
        && (!options.sessionBus || startBus())
        && (!options.windowManager || startWindowManager(options.reservedEdges))
        && (!options.compositor || startCompositor());
}

bool DesktopSession::fail(const QString &reason)
{
    m_error = reason;
    return false;
}

bool DesktopSession::prepareFolders()
{
    const QString bin = m_folder.filePath(QStringLiteral("bin"));
    const auto paths
        = { bin, configPath(), dataPath(), cachePath(), runtimePath(), temporaryPath() };
    for (const auto &path : paths) {
        if (!QDir().mkpath(path))
            return fail(QStringLiteral("cannot make the folder ") + path);
    }
    // XDG Base Directory: the owner alone may enter.
    QFile::setPermissions(runtimePath(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return m_urlRecorder.install(bin, dataPath(), configPath())
        || fail(QStringLiteral("cannot write the handler of addresses"));
}

void DesktopSession::prepareEnvironment()
{
    for (const auto *name : { "PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS" }) {
        if (qEnvironmentVariableIsSet(name))
            setVariable(QString::fromLatin1(name), qEnvironmentVariable(name));
    }
    const std::pair<const char *, QString> variables[] = {
        { "HOME", homePath() },
        { "LANG", QStringLiteral("C.UTF-8") },
        { "SHELL", QStringLiteral("/bin/sh") },
        { "TMPDIR", temporaryPath() },
        { "XAUTHORITY", homePath() + QStringLiteral("/.Xauthority") },
        { "XDG_CACHE_HOME", cachePath() },
        { "XDG_CONFIG_HOME", configPath() },
        { "XDG_DATA_HOME", dataPath() },
        { "XDG_RUNTIME_DIR", runtimePath() },
        // An unknown transport, so that no program starts a bus by itself.
        { "DBUS_SESSION_BUS_ADDRESS", QStringLiteral("disabled:") },
        // GTK programs: settings in memory, no accessibility bus, no file system services.
        { "GSETTINGS_BACKEND", QStringLiteral("memory") },
        { "NO_AT_BRIDGE", QStringLiteral("1") },
        { "GIO_USE_VFS", QStringLiteral("local") },
    };
    for (const auto &[name, value] : variables)
        setVariable(QString::fromLatin1(name), value);
}

bool DesktopSession::startServer(const QSize &size)
{
    const auto screen = QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height());
    auto &server = launch(
        QStringLiteral("Xvfb"),
        QStringLiteral("-displayfd 1 -noreset -nolisten tcp -screen 0 %1").arg(screen).split(u' '));
    const auto number = server.waitForOutput(QRegularExpression(QStringLiteral("(\\d+)\n")));
    if (!number.hasMatch())
        return fail(QStringLiteral("Xvfb does not start: ") + server.errorOutput());
    m_display = u':' + number.captured(1);
    setVariable(QStringLiteral("DISPLAY"), m_display);
    m_user = std::make_unique<XUser>(m_display);
    m_clipboard = std::make_unique<XClipboard>(m_display);
    return m_user->isConnected() || fail(QStringLiteral("no connection to the X server"));
}

bool DesktopSession::defineMonitors(const QList<QRect> &monitors)
{
    for (qsizetype i = 0; monitors.size() > 1 && i < monitors.size(); ++i) {
        // The asterisk marks the primary monitor, which replaces the server's own by taking its
        // only output.
        const QString name
            = i == 0 ? QStringLiteral("*Monitor-1") : QStringLiteral("Monitor-%1").arg(i + 1);
        if (!run(QStringLiteral("xrandr"),
                 { QStringLiteral("--setmonitor"), name, monitorGeometry(monitors.at(i)),
                   i == 0 ? QStringLiteral("screen") : QStringLiteral("none") }))
            return false;
    }
    return true;
}

bool DesktopSession::startBus()
{
    const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
    const QString socket = runtimePath() + QStringLiteral("/bus");
    if (!writeFile(configuration, busConfiguration(socket)))
        return fail(QStringLiteral("cannot write ") + configuration);
    auto &bus = launch(QStringLiteral("dbus-daemon"),
                       { QStringLiteral("--config-file=") + configuration,
                         QStringLiteral("--nofork"), QStringLiteral("--print-address=1") });
    if (!bus.waitForOutput(QRegularExpression(QStringLiteral("unix:\\S+\n"))).hasMatch())
        return fail(QStringLiteral("dbus-daemon does not start: ") + bus.errorOutput());
    setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=") + socket);
    return true;
}

bool DesktopSession::startWindowManager(const QMargins &reservedEdges)
{
    const QString configuration = m_folder.filePath(QStringLiteral("openbox.xml"));
    if (!writeFile(configuration, openboxConfiguration(reservedEdges)))
        return fail(QStringLiteral("cannot write ") + configuration);
    // The command runs once openbox is in its main loop. Before, when it has merely announced
    // itself on the root window, a new window would be taken for an old one and not be activated.
    auto &manager
        = launch(QStringLiteral("openbox"),
                 { QStringLiteral("--sm-disable"), QStringLiteral("--config-file"), configuration,
                   QStringLiteral("--startup"), QStringLiteral("echo running") });
    return manager.waitForOutput(QRegularExpression(QStringLiteral("running\n"))).hasMatch()
        || fail(QStringLiteral("openbox does not start: ") + manager.errorOutput());
}

bool DesktopSession::startCompositor()
{
    auto &compositor = launch(QStringLiteral("picom"),
                              { QStringLiteral("--config"), QStringLiteral("/dev/null"),
                                QStringLiteral("--backend"), QStringLiteral("xrender") });
    const Xcb::Connection connection(xcb_connect(m_display.toLatin1().constData(), nullptr));
    return QTest::qWaitFor([&connection] { return hasCompositor(connection.get()); },
                           static_cast<int>(defaultTimeout.count()))
        || fail(QStringLiteral("picom does not start: ") + compositor.errorOutput());
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
    const QDir libraries(QStringLiteral("/usr/lib"));
    for (const QString &architecture :
         libraries.entryList({ QStringLiteral("*-linux-gnu*") }, QDir::Dirs))
        launch(libraries.filePath(architecture) + QStringLiteral("/xfce4/xfconf/xfconfd"));
}

bool DesktopSession::setKeyboardLayout(const QString &layout)
{
    return run(QStringLiteral("setxkbmap"), { QStringLiteral("-layout"), layout });
}

bool DesktopSession::run(const QString &program, const QStringList &arguments)
{
    ChildProcess child;
    const bool done = child.start(program, arguments, m_environment, homePath())
        && child.waitForExit() && child.exitCode() == 0;
    return done || fail(program + QStringLiteral(" fails: ") + child.errorOutput());
}

// Programs that detached themselves are known by the home that they were given. False when there
// are none.
bool DesktopSession::killStragglers()
{
    bool found = false;
    const QByteArray home = "HOME=" + homePath().toLocal8Bit();
    const auto entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const auto &entry : entries) {
        bool isProcess = false;
        const auto process = static_cast<pid_t>(entry.toInt(&isProcess));
        const bool isServer = !m_children.empty() && m_children.front()->processId() == process;
        if (isProcess && !isServer && hasVariable(QStringLiteral("/proc/") + entry, home))
            found = ::kill(process, SIGKILL) == 0 || found;
    }
    return found;
}

}
