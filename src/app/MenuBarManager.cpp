// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/MenuBarManager.h"

#include "app/TrayImage.h"
#include "base/FileLogger.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "base/Memory.h"
#include "config/ConfigManager.h"
#include "config/NotificationCenter.h"
#include "config/ResourceBundle.h"
#include "platform/Appearance.h"
#include "platform/Pasteboard.h"
#include "platform/Platform.h"
#include "platform/PopupHost.h"
#include "platform/StatusArea.h"
#include "settings/SettingsWindowController.h"
#include "windows/AboutWindow.h"
#include "windows/ApplicationIcon.h"
#include "windows/ErrorPanel.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPixmapCache>
#include <QSystemTrayIcon>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto untilNextLook = 200ms;

/// The bar or large type: the keys that they hold must wait for nobody.
bool isPopupShown()
{
    const auto windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(), [](const QWindow *window) {
        return window->isVisible() && window->type() == Qt::ToolTip;
    });
}

}

MenuBarManager::MenuBarManager(Dependencies dependencies)
    : m_dependencies(dependencies)
    , m_icons(dependencies.config, dependencies.bundle)
{
    updateMenu();
    connect(&dependencies.notifications, &NotificationCenter::languageDidChange, this,
            &MenuBarManager::updateMenu);
    connect(&dependencies.platform.appearance(), &Appearance::changed, this,
            &MenuBarManager::updateIcon);
    connect(&dependencies.platform.statusArea(), &StatusArea::becameAvailable, this,
            &MenuBarManager::setupMenuBar);
    connect(&dependencies.platform.statusArea(), &StatusArea::itemColorChanged, this,
            &MenuBarManager::updateIcon);
    m_menu.installEventFilter(this);
    m_later.setSingleShot(true);
    connect(&m_later, &QTimer::timeout, &dependencies.platform.statusArea(), &StatusArea::ask);
    dependencies.platform.statusArea().ask();
}

MenuBarManager::~MenuBarManager() = default;

MenuBarManager::Dependencies MenuBarManager::standardDependencies()
{
    return { ConfigManager::shared(), LocalizationManager::shared(),
             NotificationCenter::defaultCenter(), ResourceBundle::module(), Platform::current() };
}

MenuBarManager &MenuBarManager::shared()
{
    static auto *instance = new MenuBarManager(standardDependencies());
    return *instance;
}

/// Not before there is a tray: Qt decides once, at the first item, which kind of tray there is, and
/// waits for its answer.
void MenuBarManager::setupMenuBar()
{
    if (m_statusItem)
        return updateIcon(); // another tray may want another colour
    if (isPopupShown())
        return m_later.start(untilNextLook);
    m_statusItem = std::make_unique<QSystemTrayIcon>();
    m_statusItem->setToolTip(u"Tessel"_s);
    m_statusItem->setContextMenu(&m_menu);
    connect(m_statusItem.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    popUpMenu();
            });
    updateIcon();
    m_statusItem->show();
    Q_EMIT shownInTray();
}

void MenuBarManager::popUpMenu()
{
    m_dependencies.platform.popupHost().locate().then(
        this, [this](const PopupLocation &location) { m_menu.popup(location.pointer); });
}

/// Qt minds the shortcuts of menus in windows only.
bool MenuBarManager::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != &m_menu || event->type() != QEvent::KeyPress)
        return false;
    const QKeySequence keys(static_cast<QKeyEvent *>(event)->keyCombination());
    const auto actions = m_menu.actions();
    const auto action
        = std::find_if(actions.begin(), actions.end(),
                       [&keys](const QAction *candidate) { return candidate->shortcut() == keys; });
    if (action == actions.end())
        return false;
    m_menu.close();
    (*action)->trigger();
    return true;
}

void MenuBarManager::updateIcon()
{
    Platform &platform = m_dependencies.platform;
    if (m_statusItem)
        m_statusItem->setIcon(trayIcon(m_dependencies.bundle, platform.appearance().isDark(),
                                       platform.statusArea().itemColor()));
}

void MenuBarManager::updateMenu()
{
    const auto add = [this](const QString &key, auto &&run, const QKeySequence &keys = {}) {
        QAction *action = m_menu.addAction(m_dependencies.localization.localizedString(key));
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, run);
    };
    m_menu.clear();
    add(u"About Tessel"_s, [this] { showAbout(); });
    add(u"Check for Updates..."_s, [this] { Q_EMIT updateCheckRequested(); });
    m_menu.addSeparator();
    add(
        u"Preferences..."_s, [this] { openSettings(); }, Qt::CTRL | Qt::Key_Comma);
    m_menu.addSeparator();
    add(
        u"Quit"_s, [] { QApplication::quit(); }, Qt::CTRL | Qt::Key_Q);
}

void MenuBarManager::showAbout()
{
    Log::print(u"DEBUG: Show About clicked");
    applyApplicationIcon(m_dependencies.config.appIcon, m_dependencies.bundle);
    AboutWindow::open(applicationIconImage(m_dependencies.config.appIcon, m_dependencies.bundle));
}

void MenuBarManager::openSettings()
{
    FileLogger::log(u"DEBUG: Show Preferences clicked"_s);
    if (!m_settingsWindowController) {
        FileLogger::log(u"DEBUG: Creating new SettingsWindowController"_s);
        m_settingsWindowController = new SettingsWindowController(
            { m_dependencies.config, m_dependencies.localization, m_dependencies.notifications,
              m_dependencies.bundle, m_icons, m_dependencies.platform.workspace(),
              m_dependencies.platform.eventMonitor(), m_dependencies.platform.popupHost() });
        m_settingsWindowController->onClose = [manager = QPointer(this)] {
            FileLogger::log(u"DEBUG: Settings window closing - performing cleanup"_s);
            if (manager)
                manager->m_settingsWindowController.clear();
            FileLogger::log(u"DEBUG: SettingsWindowController reference set to nil"_s);
        };
        connect(m_settingsWindowController, &QObject::destroyed, qApp, [] {
            QPixmapCache::clear(); // the style's
            releaseUnusedMemory();
        });
    }
    m_settingsWindowController->setFloating(m_dependencies.config.alwaysOnTop);
    m_settingsWindowController->showWindow();
}

void MenuBarManager::showError(const QString &title, const QString &message)
{
    if (m_errorWindow)
        m_errorWindow->close();
    m_errorWindow = new ErrorPanel(
        m_dependencies.platform.popupHost(), m_icons.image(u"exclamationmark.triangle.fill"_s),
        title, message,
        themeFor(m_dependencies.config.themeMode, m_dependencies.platform.appearance().isDark()));
    connect(m_errorWindow, &ErrorPanel::copyRequested, this,
            [this](const QString &text) { m_dependencies.platform.pasteboard().setString(text); });
    m_dependencies.platform.popupHost().locate().then(
        m_errorWindow, [panel = m_errorWindow.get()](const PopupLocation &location) {
            panel->showAt(location.pointer);
        });
}

}
