// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsDependencies.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace Tessel {

class ActionsModel;
class ActionsTableView;
class IconPickerViewController;

/// The tab in which the user's actions are edited. Each change is saved at once.
class ActionsSettingsViewController final : public QWidget
{
    Q_OBJECT

public:
    explicit ActionsSettingsViewController(SettingsDependencies dependencies,
                                           QWidget *parent = nullptr);

    /// Stores what is being typed, closes the icon picker; for a window that is about to go.
    void cleanup();

private:
    void setupUI();
    void reloadUI();
    void describe();
    void addAction();
    void undo();
    void showIconPicker(int row, const QRect &cell);

    SettingsDependencies m_dependencies;
    ActionsModel *m_model;
    ActionsTableView *m_tableView;
    QLabel *m_title;
    QLabel *m_hint;
    QPushButton *m_addButton;
    QPushButton *m_removeButton;
    QPushButton *m_resetButton;
    QPointer<IconPickerViewController> m_iconPickerPopover;
};

}
