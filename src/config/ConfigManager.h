// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/AppConfig.h"

#include <QObject>
#include <QProperty>

#include <optional>

namespace Tessel {

class LocalizationManager;
class NotificationCenter;

/// The live settings. Others assign the fields and call save(), which is the file's only writer.
/// Main thread only.
class ConfigManager final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        QString
            applicationSupport; ///< the folder that holds "GlintClone"; empty: nothing is stored
        NotificationCenter &notifications;
        LocalizationManager &localization;
    };

    /// Creates the folder and loads the configuration.
    explicit ConfigManager(Dependencies dependencies);

    /// The process-wide instance, in $XDG_CONFIG_HOME (XDG Base Directory Specification).
    static ConfigManager &shared();

    QStringList excludedBundleIds;
    QList<ActionConfig> customActions;
    qint64 triggerKeyCode = 120; ///< virtual key code; 120 is F2
    qint64 triggerModifiers = 0; ///< see KeyCodes.h
    bool showTooltips = true;
    bool enableKeyboardShortcuts = true;
    bool alwaysOnTop = true;
    QString language = QStringLiteral("en");
    QProperty<bool> showKeyboardShortcuts { true };
    ThemeMode themeMode = ThemeMode::system;
    AppIconType appIcon = AppIconType::standard;

    void load();
    void save();
    void loadDefaults();

    /// Whether the action can run as configured.
    [[nodiscard]] static bool validateAction(const ActionConfig &action);

    /// Copies an image file into the icon folder and gives its "custom:" name; nothing on failure.
    [[nodiscard]] std::optional<QString> saveCustomIcon(const QString &sourcePath) const;

    /// Path of the file that a "custom:" name stands for; nothing when there is no such file.
    [[nodiscard]] std::optional<QString> getCustomIconURL(const QString &iconName) const;

private:
    [[nodiscard]] QString folder() const; ///< empty without Application Support folder
    [[nodiscard]] QString configURL() const;
    [[nodiscard]] QString iconFolder() const; ///< only with an Application Support folder
    void createConfigDirectory() const;
    void apply(const AppConfig &config);
    void applyLanguage() const;
    void restoreStandardActions();
    [[nodiscard]] AppConfig currentConfig() const;

    Dependencies m_dependencies;
};

}
