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

    /// `folder`: holds a table of texts per language, "en.json" and so on, keyed by the English
    /// text.
    explicit LocalizationManager(QString folder = {});

    /// The process-wide instance, with the tables of the program's resources.
    static LocalizationManager &shared();

    /// The language of a configuration code ("en", "ko", "zh"); nothing for any other.
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
