// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/SecondStart.h"
#include "app/SignalEvents.h"
#include "app/SingleInstance.h"
#include "base/BaseFolders.h"
#include "base/ClosedStreams.h"
#include "base/HelperFolder.h"
#include "base/Log.h"
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

/// Hides the desktop's name while Qt looks for a platform theme: Qt 6.4 would load the GTK one
/// under GNOME, XFCE and others, which triples the start-up time. Children must see the name again.
class HiddenDesktop final
{
public:
    HiddenDesktop()
    {
        if (qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
            return; // the user chose one
        m_isActive = true;
        m_wasSet = qEnvironmentVariableIsSet(variable);
        m_name = qgetenv(variable);
        qputenv(variable, "none"); // were it unset, Qt would ask DESKTOP_SESSION
    }
    ~HiddenDesktop()
    {
        if (!m_isActive)
            return;
        if (m_wasSet)
            qputenv(variable, m_name);
        else
            qunsetenv(variable);
    }
    Q_DISABLE_COPY_MOVE(HiddenDesktop)

private:
    static constexpr const char *variable = "XDG_CURRENT_DESKTOP";
    bool m_isActive = false;
    bool m_wasSet = false;
    QByteArray m_name;
};

/// Qt serves screen readers over D-Bus. Without a bus that answers, it gets an address for them
/// where nobody is.
void keepScreenReadersFromWaiting()
{
    constexpr const char *variable = "AT_SPI_BUS_ADDRESS";
    if (DesktopBus::isReady() || qEnvironmentVariableIsSet(variable))
        return;
    qputenv(variable, "disabled:");
    QAccessible::setRootObject(qApp);
    qunsetenv(variable);
}

}

int main(int argc, char *argv[])
{
    occupyClosedStreams();
    BaseFolders::dropRelative();
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
    if (const QString notice = platform.notice(); !notice.isEmpty())
        Log::print(notice);

    QtArguments arguments(argc, argv, platform.qtPlugin());
    std::optional<HiddenDesktop> hidden(std::in_place);
    QApplication app(arguments.count(), arguments.values());
    hidden.reset();
    keepScreenReadersFromWaiting();
    prependHelperFolderToPath();
    QApplication::setApplicationName(u"Tessel"_s);
    QApplication::setApplicationVersion(QStringLiteral(TESSEL_VERSION));
    QApplication::setDesktopFileName(u"tessel"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    ResourceBundle::module(); // ends the program here when it is missing

    Platform::setCurrent(&platform);
    platform.start();
    ConfigManager::shared();
    AppDelegate delegate;
    QObject::connect(&signals, &SignalEvents::endRequested, &app, &QCoreApplication::quit);
    QObject::connect(&signals, &SignalEvents::preferencesRequested, &delegate,
                     &AppDelegate::showPreferences);
    QTimer::singleShot(0, &delegate, [&delegate, &signals] {
        delegate.applicationDidFinishLaunching();
        signals.start();
    });
    return QApplication::exec();
}
