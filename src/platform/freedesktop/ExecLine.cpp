// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/ExecLine.h"

#include <QRegularExpression>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

struct Word
{
    QString text;
    bool isQuoted = false; ///< has no field codes then
};

/// Nothing when a quotation does not end.
std::optional<QList<Word>> words(QStringView line)
{
    QList<Word> result;
    bool inQuotes = false;
    bool inWord = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (c == u'"') {
            inQuotes = !inQuotes;
        } else if (!inQuotes && c.isSpace()) {
            inWord = false;
            continue;
        }
        if (!std::exchange(inWord, true))
            result.append(Word {});
        Word &word = result.last();
        if (c == u'"')
            word.isQuoted = true;
        else if (inQuotes && c == u'\\' && i + 1 < line.size())
            word.text += line[++i];
        else
            word.text += c;
    }
    return inQuotes ? std::nullopt : std::optional(result);
}

/// What a field inside a word stands for; deprecated ones for nothing.
QString fieldValue(QChar code, const DesktopEntry &entry, const QStringList &targets)
{
    if (code == u'%')
        return u"%"_s;
    if (code == u'c')
        return entry.name;
    if (code == u'k')
        return entry.file;
    return code == u'f' || code == u'u' ? targets.value(0) : QString();
}

QString expanded(const QString &word, const DesktopEntry &entry, const QStringList &targets)
{
    QString result;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] == u'%' && i + 1 < word.size())
            result += fieldValue(word[++i], entry, targets);
        else
            result += word[i];
    }
    return result;
}

}

QStringList commandLine(const DesktopEntry &entry, const QStringList &targets)
{
    static const QRegularExpression targetField(u"%[fFuU]"_s);
    const auto parsed = words(entry.exec);
    if (!parsed || parsed->isEmpty())
        return {};
    QStringList command;
    bool takesTargets = false;
    for (const Word &word : *parsed) {
        const bool isField = !word.isQuoted && word.text.size() == 2 && word.text[0] == u'%';
        const QChar code = isField ? word.text[1] : QChar();
        takesTargets |= !word.isQuoted && word.text.contains(targetField);
        if (code == u'F' || code == u'U')
            command += targets;
        else if (code == u'f' || code == u'u')
            command += targets.mid(0, 1);
        else if (code == u'i' && !entry.icon.isEmpty())
            command += { u"--icon"_s, entry.icon };
        else if (word.isQuoted)
            command += word.text;
        else if (!isField || code == u'%' || code == u'c' || code == u'k')
            command += expanded(word.text, entry, targets);
    }
    return takesTargets ? command : command + targets;
}

}
