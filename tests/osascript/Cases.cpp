// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/Cases.h"

#include "files/Files.h"

using namespace Qt::StringLiterals;

namespace {

QString unescaped(QString text)
{
    return text.replace(u"\\n"_s, u"\n"_s).replace(u"\\r"_s, u"\r"_s).replace(u"\\t"_s, u"\t"_s);
}

/// The rest of the line when it starts with the mark; a null text otherwise.
QString after(const QString &mark, const QString &line)
{
    return line.startsWith(mark) ? line.mid(mark.size()) : QString();
}

void addLine(const QString &line, Case &row)
{
    const auto directive = [&line](const QString &name) {
        return unescaped(
            after(u'[' + name + u": "_s, line).chopped(line.startsWith(u'[' + name) ? 1 : 0));
    };
    if (line.startsWith(u"[clipboard: "_s))
        row.clipboard = directive(u"clipboard"_s);
    else if (line.startsWith(u"[answer: "_s))
        row.answer = directive(u"answer"_s);
    else if (line.startsWith(u"[arguments: "_s))
        row.arguments = directive(u"arguments"_s).split(u" | "_s);
    else if (line.startsWith(u">> "_s))
        row.recorded.append(after(u">> "_s, line));
    else if (line.startsWith(u"=> "_s))
        row.result += (row.result.isEmpty() ? u""_s : u"\n"_s) + after(u"=> "_s, line);
    else if (line.startsWith(u"!> "_s))
        row.error = after(u"!> "_s, line);
    else
        row.script += (row.script.isEmpty() ? u""_s : u"\n"_s) + line;
}

}

QList<Case> readCases(const QString &path)
{
    QList<Case> cases;
    QString title;
    Case row;
    const QStringList lines = QString::fromUtf8(Tessel::readFile(path)).split(u'\n') << QString();
    for (qsizetype number = 1; const QString &line : lines) {
        ++number;
        if (!line.isEmpty()) {
            if (const QString name = after(u"# "_s, line); !name.isEmpty())
                title = name;
            else
                addLine(line, row);
            continue;
        }
        if (!row.script.isEmpty()) {
            row.name
                = u"%1 (line %2): "_s.arg(title).arg(number - 2) + row.script.simplified().left(60);
            cases.append(std::exchange(row, {}));
        }
    }
    return cases;
}
