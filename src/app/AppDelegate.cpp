// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "actions/ActionManager.h"
#include "app/BusService.h"
#include "app/MenuBarManager.h"
#include "app/UpdaterController.h"
#include "bar/FloatingPanel.h"
#include "base/DesktopNotification.h"
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
#include "platform/EventMonitor.h"
#include "platform/Platform.h"
#include "platform/PopupHost.h"
#include "platform/Workspace.h"
#include "settings/KeyNames.h"
#include "windows/AccessibleWindows.h"
#include "windows/ApplicationIcon.h"
#include "windows/EditingKeys.h"
#include "windows/LargeTypeWindow.h"
#include "windows/QtTexts.h"
#include "windows/Theme.h"
#include "windows/TitleBar.h"
#include "windows/WindowStyle.h"

#include <QCoreApplication>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// After the start, so that it costs none of it; before anybody can press the trigger.
constexpr auto warmUpDelay = 100ms;

/// What a desktop needs to answer whether it has a tray, and what becomes of the trigger.
constexpr auto trayDelay = 4s;
constexpr auto routeDelay = 1s;

/// Newcomers are met in their own language, which the settings change.
void takeSystemLanguage()
{
    ConfigManager &config = ConfigManager::shared();
    LocalizationManager &texts = LocalizationManager::shared();
    const auto language = texts.languageFrom(u"system"_s);
    if (language == texts.currentLanguage)
        return;
    texts.currentLanguage = *language;
    config.language = u"system"_s;
    config.save();
}

}

AppDelegate::AppDelegate() = default;
AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    Platform &platform = Platform::current();
    speakToTheUser();
    describeWindowsToAssistiveTechnology();
    installEditingKeys();
    if (!platform.framesWindows())
        TitleBar::giveToWindows();
    const bool hasAccess = tellWhatIsMissing();
    m_detector = std::make_unique<SelectionDetector>(SelectionDetector::Dependencies {
        ConfigManager::shared(), NotificationCenter::defaultCenter(),
        AccessibilityManager::shared(), FloatingPanel::shared(), platform.eventMonitor(),
        platform.popupHost(), platform.workspace() });
    m_detector->startMonitoring();
    makeMenus();
    serveBus(hasAccess);
    showOutcomes();
    Log::print(u"Tessel started.");
    if (const auto &notice = ConfigManager::shared().loadNotice())
        m_notices.notify(*notice);
    if (ConfigManager::shared().isNew() && hasAccess)
        welcome();

    QTimer::singleShot(warmUpDelay, this, [&platform] {
        translateQtTexts();
        WindowStyle::apply(platform.appearance());
        FloatingPanel::shared().warmUp();
        platform.copyRequest().prepare();
    });
}

void AppDelegate::speakToTheUser()
{
    if (ConfigManager::shared().isNew())
        takeSystemLanguage();
    const auto bequeath = [] { LocalizationManager::shared().bequeathLanguage(); };
    bequeath();
    connect(&NotificationCenter::defaultCenter(), &NotificationCenter::languageDidChange, this,
            bequeath);
}

/// Whether the program can do its work in this session, with less than elsewhere perhaps.
bool AppDelegate::tellWhatIsMissing()
{
    Platform &platform = Platform::current();
    platform.setupFound = [this](const DesktopSetup &setup) { m_notices.tellOnce(setup); };
    const QStringList missing = platform.workspace().missingAccess();
    if (missing.isEmpty()) {
        if (const QString notice = platform.notice(); !notice.isEmpty())
            m_notices.tellOnce({ notice });
        return true;
    }
    Log::print(u"WARNING: Accessibility permissions not granted. Please grant permissions in "
               u"System Settings.");
    m_notices.warn(localized(u"Tessel cannot see the selected text here. Missing:\n\n• %1"_s)
                       .arg(missing.join(u"\n• "_s)));
    return false;
}

void AppDelegate::makeMenus()
{
    m_menuBarManager = std::make_unique<MenuBarManager>(MenuBarManager::standardDependencies());
    connect(&FloatingPanel::shared(), &FloatingPanel::settingsRequested, m_menuBarManager.get(),
            &MenuBarManager::openSettings);
    connect(&m_notices, &Notices::preferencesRequested, m_menuBarManager.get(),
            &MenuBarManager::openSettings);
    m_updaterController = std::make_unique<UpdaterController>(
        UpdaterController::standard(Platform::current().workspace()));
    m_updaterController->windowWillOpen
        = [] { applyApplicationIcon(ConfigManager::shared().appIcon, ResourceBundle::module()); };
    connect(m_menuBarManager.get(), &MenuBarManager::updateCheckRequested,
            m_updaterController.get(), &UpdaterController::checkForUpdates);
}

/// What becomes of actions, as far as it is to be seen.
void AppDelegate::showOutcomes()
{
    Platform &platform = Platform::current();
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
}

void AppDelegate::serveBus(bool hasAccess)
{
    const auto ready = u"ready"_s;
    auto *service
        = new BusService(this,
                         { .trigger = [this] { trigger(); },
                           .showPreferences = [this] { showPreferences(); },
                           .quit = [] { QTimer::singleShot(0, qApp, &QCoreApplication::quit); },
                           .startAction =
                               [](const QString &id, const QString &text) {
                                   return ActionManager::shared().start(id, text);
                               } },
                         hasAccess ? ready : u"unavailable"_s);
    if (hasAccess)
        connect(
            &FloatingPanel::shared(), &FloatingPanel::shownChanged, service,
            [service, ready](bool isShown) { service->setState(isShown ? u"shown"_s : ready); });
}

/// As soon as it is known whether there is a tray: where there is none, nobody says so.
void AppDelegate::welcome()
{
    const auto tell = [this] {
        const EventMonitor &monitor = Platform::current().eventMonitor();
        const ConfigManager &config = ConfigManager::shared();
        m_notices.welcome(
            { .trigger = spelledShortcut(config.triggerKeyCode, config.triggerModifiers),
              .route = monitor.triggerRoute(),
              .binding = monitor.triggerBinding(),
              .isInTray = m_menuBarManager->isInTray() });
    };
    connect(m_menuBarManager.get(), &MenuBarManager::shownInTray, this,
            [this, tell] { QTimer::singleShot(routeDelay, this, tell); });
    QTimer::singleShot(trayDelay, this, tell);
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
    m_notices.notify(
        { .text = Url::schemeOf(url).toString() + u":…"_s, .title = title, .topic = u"address"_s });
}

}
