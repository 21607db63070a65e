// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/LocalizationManager.h"

#include "config/ResourceBundle.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace Tessel {

namespace {

constexpr std::pair<LocalizationManager::Language, QStringView> codes[] = {
    { LocalizationManager::Language::english, u"en" },
    { LocalizationManager::Language::korean, u"ko" },
    { LocalizationManager::Language::chinese, u"zh" },
};

}

LocalizationManager::LocalizationManager(QString folder)
    : m_folder(std::move(folder))
{
}

LocalizationManager &LocalizationManager::shared()
{
    static auto *manager = new LocalizationManager(ResourceBundle::module().folder()
                                                   + QStringLiteral("/Localizations"));
    return *manager;
}

std::optional<LocalizationManager::Language> LocalizationManager::languageFrom(const QString &code)
{
    for (const auto &[language, known] : codes) {
        if (known == code)
            return language;
    }
    return std::nullopt;
}

QString LocalizationManager::code(Language language)
{
    for (const auto &[known, code] : codes) {
        if (known == language)
            return code.toString();
    }
    Q_UNREACHABLE();
}

QString LocalizationManager::localizedString(const QString &key) const
{
    auto table = m_translations.constFind(currentLanguage);
    if (table == m_translations.constEnd())
        table = m_translations.insert(currentLanguage, load(currentLanguage));
    return table->value(key, key);
}

LocalizationManager::Table LocalizationManager::load(Language language) const
{
    QFile file(QStringLiteral("%1/%2.json").arg(m_folder, code(language)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Table table;
    const QJsonObject texts = QJsonDocument::fromJson(file.readAll()).object();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        table.insert(text.key(), text.value().toString());
    return table;
}

}
