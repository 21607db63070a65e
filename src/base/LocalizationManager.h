// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace Tessel {

/// The texts of the interface in the user's language. A language is a table of texts keyed by the
/// English ones, a JSON object in a file that its code names: "de.json". For "English" it has its
/// own name. Main thread only.
class LocalizationManager
{
public:
    struct Language
    {
        QString code; ///< in the configuration: "de", or "pt_BR"
        QString name; ///< in the language itself
    };

    /// `folder`: holds the tables.
    explicit LocalizationManager(QString folder = {});

    /// The process-wide instance, with the tables of the program's resources. Needs an application
    /// object.
    static LocalizationManager &shared();

    /// English, Korean and Chinese, then the others that have a table, by their names.
    [[nodiscard]] QList<Language> languages() const;

    /// The language of a configuration code, by its own code; nothing for an unknown one. "system"
    /// is the user's first language that has a table, else English.
    [[nodiscard]] std::optional<QString> languageFrom(const QString &code) const;

    /// The text in the current language; the key itself when the table lacks it.
    [[nodiscard]] QString localizedString(const QString &key) const;

    /// Takes the language that the program gave its child programs, else the system's.
    void takeInheritedLanguage();

    /// From now on, child programs that speak to the user take the current language.
    void bequeathLanguage() const;

    /// The code. Whoever writes it announces languageDidChange afterwards.
    QString currentLanguage;

private:
    using Table = QHash<QString, QString>;

    [[nodiscard]] QString systemLanguage() const;
    [[nodiscard]] QString tablePath(const QString &code) const;
    [[nodiscard]] Table load(const QString &code) const;

    QString m_folder;
    mutable QHash<QString, Table> m_translations; ///< those that were asked for; never change
};

/// The text in the current language of the process. Needs an application object.
[[nodiscard]] QString localized(const QString &key);

}
