// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/LocalizationManager.h"

#include "config/ResourceBundle.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

LocalizationManager::LocalizationManager(QString folder)
    : m_folder(std::move(folder))
{
}

LocalizationManager &LocalizationManager::shared()
{
    static auto *manager
        = new LocalizationManager(ResourceBundle::module().folder() + u"/Localizations"_s);
    return *manager;
}

std::optional<LocalizationManager::Language> LocalizationManager::languageFrom(const QString &code)
{
    for (const LanguageInfo &known : languages) {
        if (known.code == code)
            return known.language;
    }
    return std::nullopt;
}

QString LocalizationManager::code(Language language)
{
    return std::find_if(std::begin(languages), std::end(languages),
                        [=](const LanguageInfo &known) { return known.language == language; })
        ->code.toString();
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
    QFile file(u"%1/%2.json"_s.arg(m_folder, code(language)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Table table;
    const QJsonObject texts = QJsonDocument::fromJson(file.readAll()).object();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        table.insert(text.key(), text.value().toString());
    return table;
}

}
