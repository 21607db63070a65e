// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/BaseFolders.h"
#include "base/LocalizationManager.h"
#include "base/TextRules.h"
#include "calendar-entry/DatePhrase.h"
#include "lib/calendar/HandOver.h"
#include "lib/desktop/DesktopApplications.h"
#include "lib/desktop/DesktopDialogs.h"
#include "lib/desktop/DisplayConnection.h"
#include "lib/support/StandardStreams.h"

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
    BaseFolders::dropRelative();
    const QCoreApplication app(argc, argv);
    LocalizationManager::shared().takeInheritedLanguage();
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return fail(input.errorString());
    const Result<QByteArray> bytes = readInput(input);
    if (!bytes)
        return fail(u"standard input: "_s + bytes.error().reason);
    const QString text = withNormalizedLineEnds(QString::fromUtf8(*bytes)).trimmed();
    if (text.isEmpty())
        return fail(u"There is no text on standard input."_s);
    DisplayConnection display;
    DesktopApplications applications(display);
    DesktopDialogs dialogs(display, QCoreApplication::applicationDirPath());
    const auto given
        = handOver(entryFrom(text, QDateTime::currentDateTime()), applications, dialogs);
    return given ? EXIT_SUCCESS : fail(given.error().reason);
}
