// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/SingleInstance.h"
#include "base/BaseFolders.h"
#include "base/HelperFolder.h"
#include "base/Log.h"
#include "config/ConfigManager.h"
#include "config/ResourceBundle.h"
#include "platform/Platform.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

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

/// Ends the event loop, so that the clipboard can be handed to a clipboard manager.
void quitOnTerminationSignals()
{
    static int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
    for (const int signal : { SIGTERM, SIGINT, SIGHUP }) {
        const auto previous = std::signal(signal, [](int) {
            const int error = errno;
            [[maybe_unused]] const auto written = ::write(ends[1], "", 1);
            errno = error;
        });
        if (previous == SIG_IGN)
            std::signal(signal, SIG_IGN); // started by nohup, or in the background of a script
    }
}

}

int main(int argc, char *argv[])
{
    BaseFolders::dropRelative();
    std::signal(SIGPIPE, SIG_IGN); // a closed standard output must not end the program
    if (const auto owner = SingleInstance::liveOwnerElseTakeLock(SingleInstance::lockFilePath())) {
        Log::print(u"App is already running (PID: %1). Terminating new instance."_s.arg(*owner));
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

    std::optional<HiddenDesktop> hidden(std::in_place);
    QApplication app(argc, argv);
    hidden.reset();
    quitOnTerminationSignals();
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
    QTimer::singleShot(0, &delegate, &AppDelegate::applicationDidFinishLaunching);
    return QApplication::exec();
}
