// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsDependencies.h"

#include <QMainWindow>

#include <functional>

namespace Tessel {

class ActionsSettingsViewController;
class GeneralSettingsViewController;
class SaveNotice;
class ToolbarTabBar;

/// The settings window. Deletes itself when closed.
class SettingsWindowController final : public QMainWindow
{
    Q_OBJECT

public:
    explicit SettingsWindowController(SettingsDependencies dependencies);

    std::function<void()> onClose; ///< called once, at the end of the clean-up

    /// Shows the window in the middle of the screen; one that is there already comes to the user's
    /// desktop and to the front.
    void showWindow();
    void setFloating(bool isFloating); ///< above other windows or among them

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setupTabs();
    void fitInto(const QScreen &screen);
    void languageChanged();
    void windowWillClose();

    SettingsDependencies m_dependencies;
    QWidget *m_header; ///< the tabs, above the pages
    ToolbarTabBar *m_tabs;
    GeneralSettingsViewController *m_general = nullptr;
    ActionsSettingsViewController *m_actions = nullptr;
    SaveNotice *m_saveNotice;
};

}
