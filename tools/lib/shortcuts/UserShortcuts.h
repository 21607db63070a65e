// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

#include <QCoreApplication>

namespace Tessel {

/// The user's shortcuts: executable files in a folder of their own, each named by its file's name
/// without the extension. A shortcut gets text on standard input and in SHORTCUT_INPUT, and what it
/// writes to standard output is its result.
///
/// Only what belongs to the user (or root) and cannot be written by others is run; that goes for
/// all folders above it too, sticky ones excepted, and for what links lead to. Hidden files,
/// editors' backups and names with control characters are not shortcuts. Names are compared in NFC.
/// Of several files of one name the first counts. Text without a "#!" line is run by /bin/sh.
///
/// When the folder does not exist yet, it is made with copies of the samples: deleted ones do not
/// come back. Those that the default actions need are there without a copy, unless the user has one
/// of that name.
class UserShortcuts final : public Osascript::ShortcutLibrary
{
public:
    struct Outcome
    {
        Result<void> result;
        QByteArray output = {}; ///< there may be some of a failure, too
    };

    /// Shortcuts find the programs of the helper folder on their PATH.
    explicit UserShortcuts(QString helperFolder = QCoreApplication::applicationDirPath(),
                           QString folder = standardFolder());

    /// "tessel/shortcuts" below $XDG_DATA_HOME.
    [[nodiscard]] static QString standardFolder();

    QStringList names() override;
    Result<QString> run(const QString &name, const QString &input) override;

    /// The same byte for byte. Standard error is the process's own. A shortcut that ends with
    /// another status than 0 has failed; its output counts all the same.
    [[nodiscard]] Outcome run(const QString &name, const QByteArray &input);

private:
    struct Entry
    {
        QString name;
        QString path;
        bool isOwn; ///< not one that comes with the program, which is trusted as that is
    };

    [[nodiscard]] QList<Entry> entries();
    void offerSamples();
    [[nodiscard]] Outcome execute(const Entry &entry, const QByteArray &input) const;

    QString m_helperFolder;
    QString m_folder;
};

}
