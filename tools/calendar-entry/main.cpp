// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/TextRules.h"
#include "calendar-entry/DatePhrase.h"
#include "lib/calendar/CalendarEntry.h"
#include "platform/freedesktop/XdgOpen.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

int fail(const QString &reason)
{
    std::fprintf(stderr, "tessel-calendar-entry: %s\n", qUtf8Printable(reason));
    return EXIT_FAILURE;
}

/// The first line is the summary, all of it the description.
CalendarEntry entryFrom(const QString &text, const QDateTime &now)
{
    const DatePhrase phrase = findDatePhrase(text, now).value_or(DatePhrase { now.date() });
    CalendarEntry entry;
    entry.summary = text.section(u'\n', 0, 0).trimmed();
    entry.description = text;
    entry.start = QDateTime(phrase.date, phrase.time.value_or(QTime(0, 0)));
    entry.isAllDay = !phrase.time;
    return entry;
}

}

/// Makes a calendar entry of the text on standard input and hands it to the default calendar.
int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return fail(input.errorString());
    const QString text = withNormalizedLineEnds(QString::fromUtf8(input.readAll())).trimmed();
    if (text.isEmpty())
        return fail(u"There is no text on standard input."_s);
    const Result<QString> path = writeCalendarFile(entryFrom(text, QDateTime::currentDateTime()));
    if (!path)
        return fail(path.error().reason);
    const auto opened = xdgOpen(*path);
    return opened ? EXIT_SUCCESS : fail(opened.error().reason);
}
