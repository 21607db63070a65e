// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/Session.h"

#include "files/Files.h"

#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr int stragglerGraceMs = 2000;

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

Session::Session()
    : m_folder(temporaryFolder() + u"/tessel-desktop-XXXXXX"_s)
{
}

Session::~Session()
{
    // Whatever was started last goes first, and the server after everything that draws on it.
    while (m_children.size() > 1)
        m_children.pop_back();
    // What is killed can write into the folder until it is gone.
    [[maybe_unused]] const bool gone
        = QTest::qWaitFor([this] { return !killStragglers(); }, stragglerGraceMs);
    m_children.clear();
}

bool Session::fail(const QString &reason)
{
    m_error = reason;
    return false;
}

bool Session::prepare()
{
    prepareEnvironment();
    return prepareFolders();
}

bool Session::prepareFolders()
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

void Session::prepareEnvironment()
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

bool Session::startBus(const QString &name, const QString &variable)
{
    const QString configuration = m_folder.filePath(name + u".conf"_s);
    const QString socket = runtimePath() + u'/' + name;
    if (!writeFile(configuration, busConfiguration(socket)))
        return fail(u"cannot write "_s + configuration);
    auto &bus
        = launch(u"dbus-daemon"_s,
                 { u"--config-file="_s + configuration, u"--nofork"_s, u"--print-address=1"_s });
    if (!bus.waitForOutput(QRegularExpression(u"unix:\\S+\n"_s)).hasMatch())
        return fail(u"dbus-daemon does not start: "_s + bus.errorOutput());
    setVariable(variable, u"unix:path="_s + socket);
    return true;
}

void Session::setVariable(const QString &name, const QString &value)
{
    m_environment.insert(name, value);
}

ChildProcess &Session::launch(const QString &program, const QStringList &arguments)
{
    return launch(program, arguments, m_environment);
}

ChildProcess &Session::launch(const QString &program, const QStringList &arguments,
                              const QProcessEnvironment &environment)
{
    auto &child = *m_children.emplace_back(std::make_unique<ChildProcess>());
    [[maybe_unused]] const bool started = child.start(program, arguments, environment, homePath());
    return child;
}

bool Session::run(const QString &program, const QStringList &arguments)
{
    ChildProcess child;
    const bool done = child.start(program, arguments, m_environment, homePath())
        && child.waitForExit() && child.exitCode() == 0;
    return done || fail(program + u" fails: "_s + child.errorOutput());
}

// Programs that detached themselves are known by the home that they were given. False when there
// are none.
bool Session::killStragglers()
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
