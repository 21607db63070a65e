// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ConfigManager.h"

#include "base/BaseFolders.h"
#include "base/Identifier.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "config/ConfigFile.h"
#include "config/DefaultActions.h"
#include "config/NotificationCenter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <filesystem>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qint64 maxIconFileSize = 64 << 20; ///< bytes; the file is copied while the user waits

}

ConfigManager::ConfigManager(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_history(m_dependencies.history)
{
    createConfigDirectory();
    load();
}

ConfigManager &ConfigManager::shared()
{
    static auto *manager = new ConfigManager(
        { QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
          NotificationCenter::defaultCenter(), LocalizationManager::shared(),
          BaseFolders::state() });
    return *manager;
}

QString ConfigManager::folder() const
{
    const QString &parent = m_dependencies.applicationSupport;
    return parent.isEmpty() ? QString() : parent + u"/GlintClone"_s;
}

QString ConfigManager::configURL() const
{
    return folder().isEmpty() ? QString() : folder() + u"/config.json"_s;
}

QString ConfigManager::iconFolder() const
{
    return folder() + u"/Icons"_s;
}

void ConfigManager::createConfigDirectory() const
{
    if (!folder().isEmpty())
        QDir().mkpath(folder());
}

void ConfigManager::load()
{
    const Result<std::optional<QByteArray>> file = ConfigFile::read(configURL());
    if (!file)
        return leaveAlone(file.error());
    m_isNew = !*file;
    if (m_isNew)
        return loadDefaults();
    Result<AppConfig> decoded = decodeConfig(**file);
    if (!decoded)
        return replaceUndecodable(decoded.error());
    AppConfig::operator=(*std::move(decoded));
    m_history.add(**file);
    Log::print(u"DEBUG: Config loaded. Excluded: %1, Actions: %2"_s.arg(excludedBundleIds.size())
                   .arg(customActions.size()));
    applyLanguage();
    restoreStandardActions();
}

void ConfigManager::replaceUndecodable(const Failure &failure)
{
    Log::print(u"ERROR: Failed to decode config: "_s + failure.reason);
    const LocalizationManager &texts = m_dependencies.localization;
    QString text = texts.localizedString(u"The configuration file could not be read."_s);
    if (const std::optional<QString> copy = m_history.setNewestAside()) {
        text += u'\n' + texts.localizedString(u"A copy of the last good one: %1"_s).arg(*copy);
    }
    m_loadNotice = { .text = text,
                     .title = texts.localizedString(u"Tessel uses its default settings"_s),
                     .topic = u"configuration"_s };
    loadDefaults();
}

/// What is no configuration file is not replaced by one either.
void ConfigManager::leaveAlone(const Failure &failure)
{
    Log::print(u"ERROR: Config left alone: "_s + failure.reason);
    const LocalizationManager &texts = m_dependencies.localization;
    m_loadNotice
        = { .text = texts.localizedString(u"The configuration file was left as it is: %1"_s)
                        .arg(texts.localizedString(failure.reason))
                + u'\n' + configURL(),
            .title = texts.localizedString(u"Tessel uses its default settings"_s),
            .topic = u"configuration"_s };
    setDefaultLists();
}

void ConfigManager::applyLanguage() const
{
    const auto known = m_dependencies.localization.languageFrom(language);
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

void ConfigManager::save()
{
    const QString path = configURL();
    if (path.isEmpty())
        return;
    const QByteArray json = encodeConfig(*this);
    const Result<void> written = ConfigFile::write(path, json);
    setSaveFailure(written ? QString() : written.error().reason);
    if (!written) {
        Log::print(u"ERROR: Failed to save config: "_s + m_saveFailure);
        return;
    }
    m_history.add(json);
    const QString message = u"DEBUG: Config saved to "_s + path;
    Log::print(message);
    Log::print(message); // twice for each save: part of the output's fixed form
    Q_EMIT m_dependencies.notifications.configDidChange();
    Q_EMIT m_dependencies.notifications.themeDidChange();
}

void ConfigManager::setSaveFailure(const QString &reason)
{
    if (std::exchange(m_saveFailure, reason) != reason)
        Q_EMIT saveFailureChanged();
}

void ConfigManager::setDefaultLists()
{
    excludedBundleIds.clear();
    customActions = DefaultActions::all();
}

void ConfigManager::loadDefaults()
{
    setDefaultLists();
    save();
}

bool ConfigManager::validateAction(const ActionConfig &action)
{
    return !action.isEnabled || infoOf(action.type).isRunnable(action.templateText);
}

Result<QString> ConfigManager::saveCustomIcon(const QString &sourcePath) const
{
    if (folder().isEmpty())
        return Failure { u"Changes are not being saved"_s };
    Result<QString> name = copyIntoIconFolder(sourcePath);
    if (!name)
        Log::print(u"Error saving custom icon: %1: %2"_s.arg(sourcePath, name.error().reason));
    return name;
}

Result<QString> ConfigManager::copyIntoIconFolder(const QString &sourcePath) const
{
    const QFileInfo info(sourcePath);
    if (!info.isFile())
        return Failure { u"Not a regular file"_s };
    if (info.size() > maxIconFileSize)
        return Failure { u"Larger than 64 MiB"_s };
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(iconFolder()).toStdString(), error);
    if (error)
        return Failure { QString::fromStdString(error.message()) };
    const QString name = newIdentifier() + u'.' + info.suffix();
    QFile source(sourcePath);
    if (!source.copy(iconFolder() + u'/' + name))
        return Failure { source.errorString() };
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
