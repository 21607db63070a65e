// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace Tessel {

/// The texts of the interface in the user's language. Main thread only.
class LocalizationManager
{
public:
    enum class Language { english, korean, chinese };

    struct LanguageInfo
    {
        Language language;
        QStringView code; ///< in the configuration, and the name of the file with the texts
        QStringView name; ///< in the language itself
    };

    static constexpr LanguageInfo languages[] = {
        { Language::english, u"en", u"English" },
        { Language::korean, u"ko", u"한국어" },
        { Language::chinese, u"zh", u"中文" },
    };

    /// `folder`: holds a table of texts per language, "en.json" and so on, keyed by the English
    /// text.
    explicit LocalizationManager(QString folder = {});

    /// The process-wide instance, with the tables of the program's resources.
    static LocalizationManager &shared();

    /// The language of a configuration code; nothing for an unknown one.
    [[nodiscard]] static std::optional<Language> languageFrom(const QString &code);
    [[nodiscard]] static QString code(Language language);

    /// The text in the current language; the key itself when the table lacks it.
    [[nodiscard]] QString localizedString(const QString &key) const;

    /// Whoever writes it announces languageDidChange afterwards.
    Language currentLanguage = Language::english;

private:
    using Table = QHash<QString, QString>;

    [[nodiscard]] Table load(Language language) const;

    QString m_folder;
    mutable QHash<Language, Table> m_translations; ///< those that were asked for; never change
};

}
