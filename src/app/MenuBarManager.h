// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/IconResolver.h"

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

class QSystemTrayIcon;

namespace Tessel {

class ConfigManager;
class ErrorPanel;
class LocalizationManager;
class NotificationCenter;
class Platform;
class ResourceBundle;
class SettingsWindowController;

/// The program's visible presence: an item in the tray with a menu, the settings window it opens,
/// and the panel that reports errors. Main thread only.
class MenuBarManager final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        ConfigManager &config;
        LocalizationManager &localization;
        NotificationCenter &notifications;
        const ResourceBundle &bundle;
        Platform &platform;
    };

    explicit MenuBarManager(Dependencies dependencies);
    ~MenuBarManager() override;

    /// The process-wide instance that the actions report to; made on first use, with an item of its
    /// own in the tray.
    static MenuBarManager &shared();

    /// What the instances are made with in the program itself.
    [[nodiscard]] static Dependencies standardDependencies();

    void openSettings();
    void showError(const QString &title, const QString &message);

    [[nodiscard]] bool isInTray() const { return m_statusItem != nullptr; }

Q_SIGNALS:
    void updateCheckRequested();
    void shownInTray(); ///< once

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setupMenuBar();
    void popUpMenu();
    void updateIcon();
    void updateMenu();
    void showAbout();

    Dependencies m_dependencies;
    IconResolver m_icons;
    QMenu m_menu;
    QTimer m_later; ///< asks again for a tray
    std::unique_ptr<QSystemTrayIcon> m_statusItem; ///< empty until there is a tray
    QPointer<SettingsWindowController> m_settingsWindowController;
    QPointer<ErrorPanel> m_errorWindow;
};

}
