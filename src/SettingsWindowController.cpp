// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "SettingsWindowController.h"

#include "ApplicationIcon.h"
#include "ConfigManager.h"
#include "FileLogger.h"
#include "LocalizationManager.h"
#include "NotificationCenter.h"
#include "ResourceBundle.h"
#include "WindowCommands.h"

#include <QTabWidget>

namespace {

constexpr QSize windowSize(810, 450);

}

SettingsWindowController::SettingsWindowController(ConfigManager &config,
                                                   LocalizationManager &localization,
                                                   NotificationCenter &notifications)
    : m_config(config)
    , m_localization(localization)
    , m_tabs(new QTabWidget(this))
{
    FileLogger::log(QStringLiteral("DEBUG: SettingsWindowController init called"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Tessel Preferences"));
    setMinimumSize(windowSize);
    resize(windowSize);
    setFloating(config.alwaysOnTop);
    addWindowCommands(this);
    FileLogger::log(QStringLiteral("DEBUG: Window created"));
    FileLogger::log(QStringLiteral("DEBUG: Creating General Settings VC"));
    m_tabs->addTab(new QWidget, QString());
    FileLogger::log(QStringLiteral("DEBUG: Creating Actions Settings VC"));
    m_tabs->addTab(new QWidget, QString());
    setCentralWidget(m_tabs);
    languageChanged();
    FileLogger::log(QStringLiteral("DEBUG: SettingsWindowController setup complete"));
    connect(&notifications, &NotificationCenter::languageDidChange, this,
            &SettingsWindowController::languageChanged);
}

void SettingsWindowController::showWindow()
{
    applyApplicationIcon(m_config.appIcon, ResourceBundle::module());
    show();
    raise();
    activateWindow();
}

void SettingsWindowController::setFloating(bool isFloating)
{
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) == isFloating)
        return;
    const bool wasVisible = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, isFloating);
    setVisible(wasVisible); // changing the flags hides a window
}

void SettingsWindowController::languageChanged()
{
    m_tabs->setTabText(0, m_localization.localizedString(QStringLiteral("General")));
    m_tabs->setTabText(1, m_localization.localizedString(QStringLiteral("Actions")));
}

void SettingsWindowController::closeEvent(QCloseEvent *event)
{
    FileLogger::log(QStringLiteral("DEBUG: windowWillClose - starting cleanup"));
    QMainWindow::closeEvent(event);
    FileLogger::log(QStringLiteral("DEBUG: windowWillClose - cleanup complete, calling onClose"));
    if (const auto callback = std::exchange(onClose, {}))
        callback();
}
