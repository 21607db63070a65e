// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/DesktopEntry.h"

#include <QHash>
#include <QList>
#include <QProcess>

#include <algorithm>

namespace Tessel {

namespace {

/// Keys of the group "[Desktop Entry]", values as written.
QHash<QByteArray, QByteArray> mainGroup(const QByteArray &content)
{
    QHash<QByteArray, QByteArray> values;
    bool inGroup = false;
    for (const QByteArray &line : content.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.startsWith('[')) {
            if (inGroup)
                break;
            inGroup = trimmed == "[Desktop Entry]";
        } else if (inGroup && !trimmed.startsWith('#')) {
            const qsizetype equals = trimmed.indexOf('=');
            if (equals > 0)
                values.insert(trimmed.left(equals).trimmed(), trimmed.mid(equals + 1).trimmed());
        }
    }
    return values;
}

/// Section "Localized values for keys": the language with its country, then alone, then none.
QByteArray localized(const QHash<QByteArray, QByteArray> &values, const QByteArray &key,
                     const QString &locale)
{
    const QByteArray full = locale.section(u'.', 0, 0).section(u'@', 0, 0).toLatin1();
    const QByteArray language = full.split('_').constFirst();
    for (const QByteArray &tag : { full, language }) {
        const auto value = values.constFind(key + '[' + tag + ']');
        if (value != values.constEnd())
            return *value;
    }
    return values.value(key);
}

/// Section "Possible value types": the escapes of strings.
QString unescaped(const QByteArray &value)
{
    const QString text = QString::fromUtf8(value);
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        constexpr QStringView escapes = u"sntr\\";
        constexpr QStringView meanings = u" \n\t\r\\";
        const auto escape = escapes.indexOf(text[++i]);
        if (escape >= 0)
            result += meanings[escape];
        else
            (result += u'\\') += text[i];
    }
    return result;
}

/// Section "The Exec key". One that is given more than files runs a part of an application, such
/// as its settings.
QString programOf(const QString &exec)
{
    const QStringList words = QProcess::splitCommand(exec);
    const bool hasArguments
        = std::any_of(words.begin() + !words.isEmpty(), words.end(),
                      [](const QString &word) { return !word.startsWith(u'%'); });
    return words.isEmpty() || hasArguments ? QString() : words[0].section(u'/', -1);
}

}

std::optional<DesktopEntry> parseDesktopEntry(const QString &id, const QByteArray &content,
                                              const QString &locale)
{
    const auto values = mainGroup(content);
    if (values.value("Type") != "Application" || values.value("Hidden") == "true")
        return {};
    const QString exec = unescaped(values.value("Exec"));
    return DesktopEntry {
        .id = id,
        .name = QString::fromUtf8(localized(values, "Name", locale)),
        .windowClass = QString::fromUtf8(values.value("StartupWMClass")),
        .program = programOf(exec),
        .icon = QString::fromUtf8(localized(values, "Icon", locale)),
        .isTerminal = values.value("Categories").split(';').contains("TerminalEmulator"),
        .isShown = values.value("NoDisplay") != "true",
        .plainName = QString::fromUtf8(values.value("Name")),
        .exec = exec,
        .workingFolder = unescaped(values.value("Path")),
        .runsInTerminal = values.value("Terminal") == "true",
        .file = {},
    };
}

bool declaresMimeType(const QByteArray &content, const QByteArray &mimeType)
{
    return content.contains(mimeType)
        && mainGroup(content).value("MimeType").split(';').contains(mimeType);
}

}
