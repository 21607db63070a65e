// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/ExecLine.h"

#include <optional>

using namespace Qt::StringLiterals;

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
    switch (code.unicode()) {
    case u'%':
        return u"%"_s;
    case u'c':
        return entry.name;
    case u'k':
        return entry.file;
    case u'f':
    case u'u':
        return targets.value(0);
    default:
        return {};
    }
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
    const auto parsed = words(entry.exec);
    if (!parsed || parsed->isEmpty())
        return {};
    QStringList command;
    bool takesTargets = false;
    for (const Word &word : *parsed) {
        const bool isField = !word.isQuoted && word.text.size() == 2 && word.text[0] == u'%';
        const QChar code = isField ? word.text[1] : QChar();
        const bool isTarget = code == u'f' || code == u'u' || code == u'F' || code == u'U';
        takesTargets |= isTarget || (!word.isQuoted && word.text.contains(u"%f"))
            || (!word.isQuoted && word.text.contains(u"%u"));
        if (isTarget)
            command
                += code.isUpper() ? targets : targets.first(std::min<qsizetype>(1, targets.size()));
        else if (code == u'i')
            command
                += entry.icon.isEmpty() ? QStringList() : QStringList { u"--icon"_s, entry.icon };
        else if (word.isQuoted)
            command += word.text;
        else if (!isField || code == u'%' || code == u'c' || code == u'k')
            command += expanded(word.text, entry, targets);
    }
    return takesTargets ? command : command + targets;
}
