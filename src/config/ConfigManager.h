// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/DesktopNotification.h"
#include "config/AppConfig.h"
#include "config/ConfigHistory.h"

#include <QObject>

#include <optional>

namespace Tessel {

class LocalizationManager;
class NotificationCenter;

/// The live configuration. Others assign its fields and call save(), which is the file's only
/// writer. Main thread only.
class ConfigManager final : public QObject, public AppConfig
{
    Q_OBJECT

public:
    struct Dependencies
    {
        QString
            applicationSupport; ///< the folder that holds "GlintClone"; empty: nothing is stored
        NotificationCenter &notifications;
        LocalizationManager &localization;
        QString history = {}; ///< the folder of a ConfigHistory
    };

    /// Creates the folder and loads the configuration.
    explicit ConfigManager(Dependencies dependencies);

    /// The process-wide instance, in $XDG_CONFIG_HOME (XDG Base Directory Specification).
    static ConfigManager &shared();

    void load();
    void save();
    void loadDefaults();

    /// Whether there was no configuration file when this was made: the user has just come.
    [[nodiscard]] bool isNew() const { return m_isNew; }

    /// Why the last save failed, in the system's words; empty when it went well.
    [[nodiscard]] const QString &saveFailure() const { return m_saveFailure; }

    /// What the user is to know about a file that was there and could not be loaded.
    [[nodiscard]] const std::optional<DesktopNotification> &loadNotice() const
    {
        return m_loadNotice;
    }

    /// Whether the action can run as configured.
    [[nodiscard]] static bool validateAction(const ActionConfig &action);

    /// Begins the names of the user's own icons.
    static constexpr QStringView customIconPrefix = u"custom:";

    /// Copies an image file into the icon folder and gives its "custom:" name. Failures are logged.
    [[nodiscard]] Result<QString> saveCustomIcon(const QString &sourcePath) const;

    /// Path of the file that a "custom:" name stands for; nothing when there is no such file.
    [[nodiscard]] std::optional<QString> getCustomIconURL(const QString &iconName) const;

Q_SIGNALS:
    void saveFailureChanged();

private:
    [[nodiscard]] QString folder() const; ///< empty without Application Support folder
    [[nodiscard]] QString configURL() const;
    [[nodiscard]] QString iconFolder() const; ///< only with an Application Support folder
    void createConfigDirectory() const;
    void replaceUndecodable(const Failure &failure);
    void leaveAlone(const Failure &failure);
    void setDefaultLists();
    void setSaveFailure(const QString &reason);
    void applyLanguage() const;
    void restoreStandardActions();
    [[nodiscard]] Result<QString> copyIntoIconFolder(const QString &sourcePath) const;

    Dependencies m_dependencies;
    ConfigHistory m_history;
    bool m_isNew = false;
    QString m_saveFailure;
    std::optional<DesktopNotification> m_loadNotice;
};

}
