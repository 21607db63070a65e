// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/Manual.h"

#include "osascript/terms/Terms.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr QStringView introduction = uR"(# AppleScript here

`osascript` runs the scripts of actions, and any script from a shell:

    osascript [-l AppleScript] [-s flags] [-e statement | file | -] [argument …]

Several `-e` are the lines of one script; without a script it is read from standard input. The
arguments go to the `run` handler. The result is printed for people (`-s h`) or as it would be
written in a script (`-s s`). An error is printed as `START:END: execution error: message (number)`
to standard error, or to standard output with `-s o`, and the exit status is 1.

The language is the one of the public AppleScript Language Guide. All of a script is read before any
of it runs: a word that is not in these tables, or an application that is not there, is an error
before the clipboard or the keyboard are touched. Elements are named by index (`word 2 of x`,
`item -1 of x`, `first word of x`, `3rd item of x`), by name (`process "x"`), all at once (`every word
of x`, `words of x`), in part (`items 2 thru -1 of x`, `text from word 1 to word 3 of x`), or as
`last`, `middle`, `some`; those of applications also with `whose` and a test. Comments, continuation lines (¬), possessives
(`'s`), the article “the” and names between bars are what they are in the guide. No locale matters.

What is different here:

- Command is Ctrl, and Ctrl+Shift where the keys go to a terminal.
- A file is a POSIX path, as a text, too; there are no volumes and no paths with colons.
- On the clipboard and in dialogs a return alone becomes a line feed, which is what ends lines here.
- The variable of `repeat with x in list` stands for the item wherever it is used.
- Script objects have no parents, and frameworks and raw codes (`«event …»`) are not known, but for `«class utf8»`.
- A text is at most 32 Mi code units long and a list 4 Mi items; more is error -108. What nests or
  recurses too deeply is error -2741 or -2706.
)";

struct Section
{
    Suite suite;
    QStringView title;
};

constexpr Section sections[] {
    { Suite::language, u"Values and properties" },
    { Suite::additions, u"Standard additions" },
    { Suite::application, u"Every application" },
    { Suite::systemEvents, u"System Events" },
    { Suite::notes, u"Notes" },
    { Suite::shortcuts, u"Shortcuts, Shortcuts Events" },
    { Suite::finder, u"Finder" },
    { Suite::calendar, u"Calendar" },
    { Suite::reminders, u"Reminders" },
    { Suite::mail, u"Mail" },
};

QString item(const QString &term, QStringView help)
{
    const QString text = help.toString().replace(u'<', u"\\<"_s);
    return u"- "_s + term + (help.isEmpty() ? QString() : u": "_s + text) + u'\n';
}

QString code(QStringView text)
{
    return u'`' + text.toString() + u'`';
}

QString statements()
{
    QString text = u"\n## Statements\n\n"_s;
    for (const StatementTerm &term : statementTerms())
        text += item(code(term.form), term.help);
    return text;
}

/// Words that mean the same stand in one line.
QString operators()
{
    QString text = u"\n## Operators\n\nFrom the tightest: `^`; `*` and its like; `+`; `&`; `as`; "
                   "comparisons by size; comparisons\nby equality and containment; `not`; `and`; "
                   "`or`.\n\n"_s;
    QStringList words;
    const auto terms = operatorTerms();
    for (auto term = terms.begin(); term != terms.end(); ++term) {
        words.append(code(term->words));
        const bool isLast = term + 1 == terms.end() || (term + 1)->operation != term->operation;
        if (!isLast)
            continue;
        text += u"- "_s + words.join(u", "_s) + u'\n';
        words.clear();
    }
    return text;
}

QString names(Suite suite, NameTerm::Kind kind, const QString &title)
{
    QString text;
    QStringList bare; // what needs no words
    for (const NameTerm &term : nameTerms()) {
        if (term.suite != suite || term.kind != kind)
            continue;
        if (term.help.isEmpty())
            bare.append(code(term.words));
        else
            text += item(code(term.words), term.help);
    }
    if (!bare.isEmpty())
        text += u"- "_s + bare.join(u", "_s) + u'\n';
    return text.isEmpty() ? text : u'\n' + title + u":\n\n"_s + text;
}

QString commands(Suite suite)
{
    QString text;
    for (const CommandTerm &term : commandTerms()) {
        if (term.suite != suite)
            continue;
        const bool takesValue = term.direct != Direct::none;
        const QString value = term.direct == Direct::optional ? u" [value]"_s : u" value"_s;
        text += item(code(term.words.toString() + (takesValue ? value : QString())), term.help);
        if (!term.choices.isEmpty())
            text += u"  - value: "_s + term.choices.toString().replace(u'|', u", "_s) + u'\n';
        for (const ParameterTerm &parameter : term.parameters) {
            const bool isFlag = parameter.kind == ParameterTerm::Kind::flag;
            const QString choices = parameter.choices.toString().replace(u'|', u", "_s);
            text += u"  "_s
                + item(code((isFlag ? u"with "_s : QString()) + parameter.label.toString()),
                       parameter.help)
                      .chopped(1)
                + (choices.isEmpty() ? QString() : u" ("_s + choices + u')') + u'\n';
        }
    }
    return text.isEmpty() ? text : u"\nCommands:\n\n"_s + text;
}

}

QString manual()
{
    QString text = introduction.toString() + statements() + operators();
    for (const auto &[suite, title] : sections) {
        text += u"\n## "_s + title.toString() + u'\n';
        text += names(suite, NameTerm::Kind::element, u"Classes"_s);
        text += names(suite, NameTerm::Kind::type, u"Classes without elements"_s);
        text += names(suite, NameTerm::Kind::property, u"Properties"_s);
        text += names(suite, NameTerm::Kind::constant, u"Constants"_s);
        text += commands(suite);
    }
    return text;
}

}
