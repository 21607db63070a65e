// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/AppConfig.h"
#include "settings/SettingsDependencies.h"

#include <QHash>
#include <QWidget>

class QComboBox;
class QLabel;
class QScrollArea;
class QTableView;

namespace Tessel {

class ExcludedAppsModel;
class IconSelectionButton;

/// The tab of the settings that concern the whole program. Each change is saved at once.
class GeneralSettingsViewController final : public QWidget
{
    Q_OBJECT

public:
    explicit GeneralSettingsViewController(SettingsDependencies dependencies,
                                           QWidget *parent = nullptr);

    /// Drops the pictures; for a window that is about to go.
    void clearIconCache();

Q_SIGNALS:
    void alwaysOnTopChanged(bool isOn);

private:
    void setupUI();
    void reloadUI();
    [[nodiscard]] QWidget *appearanceSection();
    [[nodiscard]] QWidget *behaviorSection();
    [[nodiscard]] QWidget *exclusionSection();
    [[nodiscard]] QWidget *languageRow();
    [[nodiscard]] QWidget *themeRow();
    [[nodiscard]] QWidget *iconGrid();
    [[nodiscard]] QWidget *triggerRow();
    [[nodiscard]] QWidget *excludedAppsTable();
    [[nodiscard]] QString text(const char *key) const;

    void showTriggerNotice();
    void changeLanguage(const QString &code);
    void changeAppIcon(AppIconType type);
    void handleExcludedAppsAction(int segment);
    void addExcludedApp();

    SettingsDependencies m_dependencies;
    QScrollArea *m_scrollArea = nullptr;
    QComboBox *m_languageButton = nullptr;
    QLabel *m_triggerNotice = nullptr;
    QLabel *m_triggerBinding = nullptr;
    QTableView *m_tableView = nullptr;
    ExcludedAppsModel *m_excludedApps = nullptr;
    QHash<AppIconType, IconSelectionButton *> m_iconButtons;
};

}
