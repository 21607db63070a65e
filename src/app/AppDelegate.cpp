// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "actions/ActionManager.h"
#include "app/BusService.h"
#include "app/MenuBarManager.h"
#include "app/UpdaterController.h"
#include "bar/FloatingPanel.h"
#include "base/BaseFolders.h"
#include "base/DesktopNotification.h"
#include "base/HelperFolder.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "base/Url.h"
#include "capture/AccessibilityManager.h"
#include "capture/SelectionDetector.h"
#include "config/ConfigManager.h"
#include "config/NotificationCenter.h"
#include "config/ResourceBundle.h"
#include "platform/Appearance.h"
#include "platform/CopyRequest.h"
#include "platform/Platform.h"
#include "platform/PopupHost.h"
#include "platform/Workspace.h"
#include "windows/AccessibleWindows.h"
#include "windows/ApplicationIcon.h"
#include "windows/EditingKeys.h"
#include "windows/LargeTypeWindow.h"
#include "windows/Theme.h"
#include "windows/TitleBar.h"
#include "windows/WindowStyle.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// After the start, so that it costs none of it; before anybody can press the trigger.
constexpr auto warmUpDelay = 100ms;

}

AppDelegate::AppDelegate() = default;
AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    Platform &platform = Platform::current();
    const auto bequeath = [] { LocalizationManager::shared().bequeathLanguage(); };
    bequeath();
    connect(&NotificationCenter::defaultCenter(), &NotificationCenter::languageDidChange, this,
            bequeath);
    describeWindowsToAssistiveTechnology();
    installEditingKeys();
    if (!platform.framesWindows())
        TitleBar::giveToWindows();
    const QStringList missing = platform.workspace().missingAccess();
    if (!missing.isEmpty()) {
        Log::print(u"WARNING: Accessibility permissions not granted. Please grant permissions in "
                   u"System Settings.");
        warn(u"Tessel cannot see the selected text here. Missing:\n\n• %1"_s.arg(
            missing.join(u"\n• "_s)));
    } else if (const QString notice = platform.notice(); !notice.isEmpty()) {
        showNotice({ notice });
    }
    platform.setupFound = [this](const DesktopSetup &setup) { showNotice(setup); };
    m_detector = std::make_unique<SelectionDetector>(SelectionDetector::Dependencies {
        ConfigManager::shared(), NotificationCenter::defaultCenter(),
        AccessibilityManager::shared(), FloatingPanel::shared(), platform.eventMonitor(),
        platform.popupHost(), platform.workspace() });
    m_detector->startMonitoring();
    connect(new BusService(this), &BusService::triggerRequested, this, &AppDelegate::trigger);
    m_menuBarManager = std::make_unique<MenuBarManager>(MenuBarManager::standardDependencies());
    connect(&FloatingPanel::shared(), &FloatingPanel::settingsRequested, m_menuBarManager.get(),
            &MenuBarManager::openSettings);
    m_updaterController
        = std::make_unique<UpdaterController>(UpdaterController::standard(platform.workspace()));
    m_updaterController->windowWillOpen
        = [] { applyApplicationIcon(ConfigManager::shared().appIcon, ResourceBundle::module()); };
    connect(m_menuBarManager.get(), &MenuBarManager::updateCheckRequested,
            m_updaterController.get(), &UpdaterController::checkForUpdates);
    connect(&ActionManager::shared(), &ActionManager::commandFailed, this,
            [this](const QString &title, const QString &message) {
                // The first error adds an item to the tray, whose menu works like the other's.
                MenuBarManager &reporter = MenuBarManager::shared();
                connect(&reporter, &MenuBarManager::updateCheckRequested, m_updaterController.get(),
                        &UpdaterController::checkForUpdates, Qt::UniqueConnection);
                reporter.showError(title, message);
            });
    connect(&ActionManager::shared(), &ActionManager::largeTypeRequested, this,
            [&platform](const QString &text) {
                LargeTypeWindow::show(
                    platform.popupHost(), text,
                    themeFor(ConfigManager::shared().themeMode, platform.appearance().isDark()));
            });
    // The large type that has given the keyboard back still goes with the next key.
    m_keysElsewhere = platform.eventMonitor().addGlobalMonitor(
        InputEvent::Kind::keyDown, [](const InputEvent &) { LargeTypeWindow::closeShown(); });
    connect(&platform.popupHost(), &PopupHost::sessionLocked, this, &LargeTypeWindow::closeShown);
    platform.workspace().nothingOpened = [this](const QString &url) { tellNothingOpened(url); };
    Log::print(u"Tessel started.");
    if (const auto &notice = ConfigManager::shared().loadNotice())
        notify(*notice);

    QTimer::singleShot(warmUpDelay, this, [&platform] {
        WindowStyle::apply(platform.appearance());
        FloatingPanel::shared().warmUp();
        platform.copyRequest().prepare();
    });
}

void AppDelegate::showPreferences()
{
    m_menuBarManager->openSettings();
}

void AppDelegate::trigger()
{
    m_detector->trigger();
}

/// Names the scheme only: the rest has the captured text in it.
void AppDelegate::tellNothingOpened(const QString &url)
{
    const QString title = localized(u"No application could open the address"_s);
    notify(
        { .text = Url::schemeOf(url).toString() + u":…"_s, .title = title, .topic = u"address"_s });
}

void AppDelegate::notify(const DesktopNotification &notification)
{
    m_notifier.run(notificationCommand(notification, helperFolder()),
                   [](const Result<CommandResult> &shown) {
                       if (!shown || shown->exitStatus != 0)
                           Log::print(u"ERROR: "_s
                                      + (shown ? QString::fromUtf8(shown->errorOutput).trimmed()
                                               : shown.error().reason));
                   });
}

/// Once: whoever has closed it knows. A set-up that was begun may fail and is offered again.
void AppDelegate::showNotice(const DesktopSetup &notice)
{
    const QString path = BaseFolders::state() + u"/session-notice"_s;
    QFile told(path);
    if (told.open(QIODevice::ReadOnly) && told.read(64 << 10) == notice.text.toUtf8())
        return;
    QMessageBox *box = warn(notice.text);
    QAbstractButton *setUp
        = notice.run ? box->addButton(notice.button, QMessageBox::AcceptRole) : nullptr;
    box->setDefaultButton(QMessageBox::Close); // it may come while the user types
    connect(box, &QMessageBox::finished, this, [this, box, setUp, notice, path] {
        if (setUp && box->clickedButton() == setUp) {
            notice.run().then(this, [this](const QString &result) {
                if (!result.isEmpty())
                    showNotice({ result });
            });
        } else if (QFile closed(path);
                   QDir().mkpath(BaseFolders::state()) && closed.open(QIODevice::WriteOnly)) {
            closed.write(notice.text.toUtf8());
        }
    });
}

QMessageBox *AppDelegate::warn(const QString &text)
{
    applyApplicationIcon(ConfigManager::shared().appIcon, ResourceBundle::module());
    auto *box = new QMessageBox(QMessageBox::Warning, u"Tessel"_s, text, QMessageBox::Close);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
    return box;
}

}
