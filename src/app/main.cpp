// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/SecondStart.h"
#include "app/SignalEvents.h"
#include "app/SingleInstance.h"
#include "base/BaseFolders.h"
#include "base/ClosedStreams.h"
#include "base/HelperFolder.h"
#include "base/Log.h"
#include "base/PrivateVariables.h"
#include "config/ConfigManager.h"
#include "config/ResourceBundle.h"
#include "platform/DesktopBus.h"
#include "platform/Platform.h"
#include "platform/QtArguments.h"

#include <QAccessible>
#include <QApplication>
#include <QTimer>

#include <csignal>
#include <optional>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// A variable of the environment that has another value while this lives.
class TemporaryVariable final
{
public:
    TemporaryVariable(const char *name, const char *value)
        : m_name(name)
        , m_wasSet(qEnvironmentVariableIsSet(name))
        , m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~TemporaryVariable()
    {
        if (m_wasSet)
            qputenv(m_name, m_before);
        else
            qunsetenv(m_name);
    }
    Q_DISABLE_COPY_MOVE(TemporaryVariable)

private:
    const char *m_name;
    bool m_wasSet;
    QByteArray m_before;
};

/// What keeps Qt from waiting while it makes the application object. Children must not see it.
class QuickStart final
{
public:
    QuickStart()
    {
        // Qt 6.4 would load the GTK theme under GNOME, XFCE and others, which triples the time of
        // the start. Were the name unset, Qt would ask DESKTOP_SESSION.
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
            m_desktop.emplace("XDG_CURRENT_DESKTOP", "none");
        // Qt 6.8 asks the portal for a colour picker.
        if (!DesktopBus::isReady())
            m_portal.emplace("QT_NO_XDG_DESKTOP_PORTAL", "1");
    }

private:
    std::optional<TemporaryVariable> m_desktop;
    std::optional<TemporaryVariable> m_portal;
};

/// Qt serves screen readers over D-Bus. Without a bus that answers, it gets an address for them
/// where nobody is.
void keepScreenReadersFromWaiting()
{
    constexpr const char *variable = "AT_SPI_BUS_ADDRESS";
    if (DesktopBus::isReady() || qEnvironmentVariableIsSet(variable))
        return;
    const TemporaryVariable address(variable, "disabled:");
    QAccessible::setRootObject(qApp);
}

}

int main(int argc, char *argv[])
{
    occupyClosedStreams();
    BaseFolders::dropRelative();
    if (const auto status = answerCommandLine(argc, argv))
        return *status;
    const bool showsPreferences = asksForPreferences(argc, argv);
    std::signal(SIGPIPE, SIG_IGN); // a closed standard output must not end the program
    SignalEvents signals; // before the lock tells others of this process
    const QString lock = SingleInstance::lockFilePath();
    if (const auto owner = SingleInstance::liveOwnerElseTakeLock(lock)) {
        Log::print(u"App is already running (PID: %1). Terminating new instance."_s.arg(*owner));
        const QCoreApplication application(argc, argv);
        handOverTo(*owner, lock);
        return 0;
    }
    const auto connected = makePlatform();
    if (!connected) {
        Log::print(u"ERROR: "_s + connected.error().reason);
        return 1;
    }
    Platform &platform = **connected;
    const auto variables = platform.qtVariables();
    for (auto it = variables.cbegin(); it != variables.cend(); ++it)
        setPrivateVariable(it.key(), *it);
    QtArguments arguments(argc, argv, platform.qtPlugin());
    std::optional<QuickStart> quickStart(std::in_place);
    QApplication app(arguments.count(), arguments.values());
    quickStart.reset();
    keepScreenReadersFromWaiting();
    prependHelperFolderToPath();
    QApplication::setApplicationName(u"Tessel"_s);
    QApplication::setApplicationVersion(QStringLiteral(TESSEL_VERSION));
    QApplication::setDesktopFileName(u"com.tessel.app"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    ResourceBundle::module(); // ends the program here when it is missing

    if (const QString notice = platform.notice(); !notice.isEmpty())
        Log::print(u"WARNING: "_s + notice);
    Platform::setCurrent(&platform);
    platform.start();
    ConfigManager::shared();
    AppDelegate delegate;
    QObject::connect(&signals, &SignalEvents::endRequested, &app, &QCoreApplication::quit);
    QObject::connect(&signals, &SignalEvents::preferencesRequested, &delegate,
                     &AppDelegate::showPreferences);
    QObject::connect(&signals, &SignalEvents::triggerRequested, &delegate, &AppDelegate::trigger);
    QTimer::singleShot(0, &delegate, [&delegate, &signals, showsPreferences] {
        delegate.applicationDidFinishLaunching();
        signals.start();
        if (showsPreferences)
            delegate.showPreferences();
    });
    return QApplication::exec();
}
