// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ConfigManager.h"

#include "base/KeyCodes.h"
#include "base/Log.h"
#include "config/DefaultActions.h"
#include "config/LocalizationManager.h"
#include "config/NotificationCenter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>
#include <filesystem>

namespace Tessel {

namespace {

constexpr QStringView customIconPrefix = u"custom:";
constexpr qint64 largestIconFile = 64 << 20; ///< bytes; it is copied while the user waits

/// Whether the text begins with a URL scheme (RFC 3986, section 3.1) and "://".
bool beginsWithScheme(QStringView text)
{
    const auto isLetter
        = [](QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); };
    const auto *end = std::find_if_not(text.begin(), text.end(), [&isLetter](QChar c) {
        return isLetter(c) || (c >= u'0' && c <= u'9') || QStringView(u"+.-").contains(c);
    });
    return end != text.begin() && isLetter(text.front())
        && text.mid(end - text.begin()).startsWith(u"://");
}

bool isRunnable(const ActionConfig &action)
{
    const QString &value = action.templateText;
    switch (action.type) {
    case ActionType::url:
        return beginsWithScheme(value);
    case ActionType::shortcut:
    case ActionType::shellScript:
    case ActionType::appleScript:
        return !value.isEmpty();
    case ActionType::builtin:
        return value == u"COPY" || value == u"COUNT" || value == u"LARGE_TYPE";
    }
    return false;
}

}

ConfigManager::ConfigManager(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{
    createConfigDirectory();
    load();
}

ConfigManager &ConfigManager::shared()
{
    static auto *manager = new ConfigManager(
        { QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
          NotificationCenter::defaultCenter(), LocalizationManager::shared() });
    return *manager;
}

QString ConfigManager::folder() const
{
    const QString &parent = m_dependencies.applicationSupport;
    return parent.isEmpty() ? QString() : parent + QStringLiteral("/GlintClone");
}

QString ConfigManager::configURL() const
{
    return folder().isEmpty() ? QString() : folder() + QStringLiteral("/config.json");
}

QString ConfigManager::iconFolder() const
{
    return folder() + QStringLiteral("/Icons");
}

void ConfigManager::createConfigDirectory() const
{
    if (!folder().isEmpty())
        QDir().mkpath(folder());
}

void ConfigManager::load()
{
    QFile file(configURL());
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
        return loadDefaults();
    const DecodedConfig decoded = decodeConfig(file.readAll());
    if (!decoded.config) {
        Log::print(QStringLiteral("ERROR: Failed to decode config: ") + decoded.error);
        return loadDefaults();
    }
    apply(*decoded.config);
    Log::print(QStringLiteral("DEBUG: Config loaded. Excluded: %1, Actions: %2")
                   .arg(excludedBundleIds.size())
                   .arg(customActions.size()));
    applyLanguage();
    restoreStandardActions();
}

void ConfigManager::apply(const AppConfig &config)
{
    excludedBundleIds = config.excludedBundleIds;
    customActions = config.customActions;
    triggerKeyCode = config.triggerKeyCode.value_or(KeyCodes::keyF2);
    triggerModifiers = config.triggerModifiers.value_or(0);
    showTooltips = config.showTooltips.value_or(true);
    enableKeyboardShortcuts = config.enableKeyboardShortcuts.value_or(true);
    alwaysOnTop = config.alwaysOnTop.value_or(true);
    language = config.language.value_or(QStringLiteral("en"));
    showKeyboardShortcuts = config.showKeyboardShortcuts.value_or(true);
    appIcon = config.appIcon.value_or(AppIconType::standard);
    themeMode = config.themeMode.value_or(ThemeMode::system);
}

void ConfigManager::applyLanguage() const
{
    const auto known = LocalizationManager::languageFrom(language);
    if (!known)
        return;
    m_dependencies.localization.currentLanguage = *known;
    Q_EMIT m_dependencies.notifications.languageDidChange();
}

/// Puts the standard actions that the file lacks in front, and gives the others current icon names.
void ConfigManager::restoreStandardActions()
{
    QSet<QString> ids;
    for (ActionConfig &action : customActions) {
        ids.insert(action.id);
        action.iconName = DefaultActions::renamedIcon(action.iconName);
    }
    QList<ActionConfig> actions = DefaultActions::standard();
    actions.removeIf([&ids](const ActionConfig &action) { return ids.contains(action.id); });
    if (actions.isEmpty())
        return;
    customActions = actions + customActions;
    QMetaObject::invokeMethod(this, &ConfigManager::save, Qt::QueuedConnection);
}

AppConfig ConfigManager::currentConfig() const
{
    return { .excludedBundleIds = excludedBundleIds,
             .customActions = customActions,
             .triggerKeyCode = triggerKeyCode,
             .triggerModifiers = triggerModifiers,
             .showTooltips = showTooltips,
             .enableKeyboardShortcuts = enableKeyboardShortcuts,
             .alwaysOnTop = alwaysOnTop,
             .language = language,
             .showKeyboardShortcuts = showKeyboardShortcuts.value(),
             .appIcon = appIcon,
             .themeMode = themeMode };
}

void ConfigManager::save()
{
    QFile file(configURL());
    if (file.fileName().isEmpty())
        return;
    const QByteArray json = encodeConfig(currentConfig());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        || file.write(json) != json.size()) {
        Log::print(QStringLiteral("ERROR: Failed to save config: ") + file.errorString());
        return;
    }
    file.close();
    const QString message = QStringLiteral("DEBUG: Config saved to ") + file.fileName();
    Log::print(message);
    Log::print(message); // twice for each save: part of the output's fixed form
    Q_EMIT m_dependencies.notifications.configDidChange();
    Q_EMIT m_dependencies.notifications.themeDidChange();
}

void ConfigManager::loadDefaults()
{
    excludedBundleIds.clear();
    customActions = DefaultActions::all();
    save();
}

bool ConfigManager::validateAction(const ActionConfig &action)
{
    return !action.isEnabled || isRunnable(action);
}

std::optional<QString> ConfigManager::saveCustomIcon(const QString &sourcePath) const
{
    if (folder().isEmpty())
        return std::nullopt;
    const auto failure = [](const QString &problem) {
        Log::print(QStringLiteral("Error saving custom icon: ") + problem);
        return std::nullopt;
    };
    if (!QFileInfo(sourcePath).isFile())
        return failure(QStringLiteral("not a file: ") + sourcePath);
    if (QFileInfo(sourcePath).size() > largestIconFile)
        return failure(QStringLiteral("larger than 64 MiB: ") + sourcePath);
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(iconFolder()).toStdString(), error);
    if (error)
        return failure(QString::fromStdString(error.message()));
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() + u'.'
        + QFileInfo(sourcePath).suffix();
    QFile source(sourcePath);
    if (!source.copy(iconFolder() + u'/' + name))
        return failure(source.errorString());
    return customIconPrefix.toString() + name;
}

std::optional<QString> ConfigManager::getCustomIconURL(const QString &iconName) const
{
    if (!iconName.startsWith(customIconPrefix) || folder().isEmpty())
        return std::nullopt;
    const QString path = iconFolder() + u'/' + iconName.mid(customIconPrefix.size());
    return QFileInfo(path).isFile() ? std::optional(path) : std::nullopt;
}

}
