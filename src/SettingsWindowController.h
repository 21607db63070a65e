// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

#include <functional>

class ConfigManager;
class LocalizationManager;
class NotificationCenter;
class QTabWidget;

/// The settings window. Deletes itself when closed.
class SettingsWindowController final : public QMainWindow
{
    Q_OBJECT

public:
    SettingsWindowController(ConfigManager &config, LocalizationManager &localization,
                             NotificationCenter &notifications);

    std::function<void()> onClose; ///< called once, at the end of the clean-up

    void showWindow();
    void setFloating(bool isFloating); ///< above other windows or among them

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void languageChanged();

    ConfigManager &m_config;
    LocalizationManager &m_localization;
    QTabWidget *m_tabs;
};
