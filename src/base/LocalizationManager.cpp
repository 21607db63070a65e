// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/LocalizationManager.h"

#include "base/BundleFolder.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr const char *inheritedLanguage = "TESSEL_LANGUAGE";

/// What the list of languages begins with, whatever else there is.
const QList<LocalizationManager::Language> &firstLanguages()
{
    static const QList<LocalizationManager::Language> languages { { u"en"_s, u"English"_s },
                                                                  { u"ko"_s, u"한국어"_s },
                                                                  { u"zh"_s, u"中文"_s } };
    return languages;
}

}

LocalizationManager::LocalizationManager(QString folder)
    : currentLanguage(u"en"_s)
    , m_folder(std::move(folder))
{
}

LocalizationManager &LocalizationManager::shared()
{
    static auto *manager = new LocalizationManager(bundleFolder() + u"/Localizations"_s);
    return *manager;
}

QList<LocalizationManager::Language> LocalizationManager::languages() const
{
    QList<Language> others;
    const QList<Language> &first = firstLanguages();
    for (QString code : QDir(m_folder).entryList({ u"*.json"_s }, QDir::Files)) {
        code.chop(5);
        if (std::none_of(first.begin(), first.end(),
                         [&](const Language &known) { return known.code == code; }))
            others.append({ code, load(code).value(u"English"_s, code) });
    }
    std::sort(others.begin(), others.end(),
              [](const Language &a, const Language &b) { return a.name < b.name; });
    return first + others;
}

std::optional<QString> LocalizationManager::languageFrom(const QString &code) const
{
    if (code == u"system")
        return systemLanguage();
    const QList<Language> &first = firstLanguages();
    const bool isKnown = std::any_of(first.begin(), first.end(),
                                     [&](const Language &known) { return known.code == code; })
        || (!code.contains(u'/') && QFile::exists(tablePath(code)));
    return isKnown ? std::optional(code) : std::nullopt;
}

QString LocalizationManager::systemLanguage() const
{
    for (QString language : QLocale::system().uiLanguages()) {
        language.replace(u'-', u'_');
        for (const QString &code : { language, language.section(u'_', 0, 0) }) {
            if (const auto known = languageFrom(code))
                return *known;
        }
    }
    return u"en"_s;
}

QString LocalizationManager::localizedString(const QString &key) const
{
    auto table = m_translations.constFind(currentLanguage);
    if (table == m_translations.constEnd())
        table = m_translations.insert(currentLanguage, load(currentLanguage));
    return table->value(key, key);
}

void LocalizationManager::takeInheritedLanguage()
{
    currentLanguage
        = languageFrom(qEnvironmentVariable(inheritedLanguage)).value_or(systemLanguage());
}

void LocalizationManager::bequeathLanguage() const
{
    qputenv(inheritedLanguage, currentLanguage.toUtf8());
}

QString LocalizationManager::tablePath(const QString &code) const
{
    return u"%1/%2.json"_s.arg(m_folder, code);
}

LocalizationManager::Table LocalizationManager::load(const QString &code) const
{
    QFile file(tablePath(code));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Table table;
    const QJsonObject texts = QJsonDocument::fromJson(file.readAll()).object();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        table.insert(text.key(), text.value().toString());
    return table;
}

QString localized(const QString &key)
{
    return LocalizationManager::shared().localizedString(key);
}

}
