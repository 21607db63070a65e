// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/terms/Terms.h"

namespace Tessel::Osascript {

namespace {

using enum NameTerm::Kind;
using enum Suite;

constexpr NameTerm names[] {
    { u"item", element, language, u"An item of a list; a character of a text.", u"items" },
    { u"character", element, language, u"What a reader takes for one character.", u"characters" },
    { u"word", element, language, u"A word by the rules of Unicode.", u"words" },
    { u"paragraph", element, language, u"A line.", u"paragraphs" },
    { u"text item", element, language, u"What stands between the text item delimiters.",
      u"text items" },
    { u"text", element, language, u"A stretch of a text; a text in a list.", u"texts" },
    { u"string", element, language, u"The same as text.", u"strings", u"text" },
    { u"integer", element, language, u"A whole number.", u"integers" },
    { u"real", element, language, u"A number with a fraction.", u"reals" },
    { u"number", element, language, u"An integer or a real.", u"numbers" },
    { u"boolean", element, language, u"true or false.", u"booleans" },
    { u"list", element, language, u"Values in a row.", u"lists" },
    { u"record", element, language, u"Values with names.", u"records" },
    { u"date", element, language,
      u"A day and a time. date \"2026-11-21 05:59\" and date \"Saturday, November 21, 2026 at "
      u"5:59:07 AM\" are understood.",
      u"dates" },
    { u"alias", element, language, u"A file that exists, by its path.", u"aliases" },
    { u"file", element, language, u"A file, by its path.", u"files" },
    { u"POSIX file", element, language, u"The same as file.", u"POSIX files", u"file" },
    { u"application", element, language, u"An application, by its name or its id.",
      u"applications" },
    { u"app", element, language, u"The same as application.", u"apps", u"application" },
    { u"Unicode text", type, language, u"The same as text.", {}, u"text" },
    { u"«class utf8»", type, language, u"The same as text.", {}, u"text" },
    { u"class", type, language, u"What “class of” gives." },
    { u"constant", type, language, u"A word with a meaning of its own, such as Monday." },
    { u"handler", type, language, u"A handler as a value." },
    { u"reference", type, language, u"What “a reference to” makes." },
    { u"anything", type, language, u"Any value, unchanged." },
    { u"month", type, language, u"The class of January to December." },
    { u"weekday", type, language, u"The class of Sunday to Saturday." },

    { u"class", property, language, u"Of any value." },
    { u"contents", property, language, u"Of a reference: what it refers to." },
    { u"length", property, language, u"How many items, fields or characters." },
    { u"reverse", property, language, u"Of a list: the items from the last to the first." },
    { u"rest", property, language, u"Of a list: all items but the first." },
    { u"id", property, language, u"Of a text: the code points, as a number or a list." },
    { u"name", property, language, u"Of an object." },
    { u"version", property, language, u"Of AppleScript or an application." },
    { u"running", property, language, u"Of an application: whether it runs." },
    { u"text item delimiters", property, language,
      u"What divides text items; of AppleScript. The first joins lists. A carriage return and a "
      u"line feed in a row divide once when both are among them." },
    { u"result", property, language, u"The value of the statement before." },
    { u"quoted form", property, additions, u"Of a text: quoted for the shell." },
    { u"POSIX path", property, additions, u"Of a file: its path." },
    { u"year", property, language, u"Of a date." },
    { u"month", property, language, u"Of a date; a constant, or the number when set." },
    { u"day", property, language, u"Of a date: 1 to 31." },
    { u"weekday", property, language, u"Of a date; a constant." },
    { u"hours", property, language, u"Of a date: 0 to 23." },
    { u"minutes", property, language, u"Of a date: 0 to 59." },
    { u"seconds", property, language, u"Of a date: 0 to 59." },
    { u"time", property, language, u"Of a date: the seconds since midnight." },
    { u"date string", property, language, u"Of a date: Saturday, November 21, 2026." },
    { u"short date string", property, language, u"Of a date: 11/21/26." },
    { u"time string", property, language, u"Of a date: 5:59:07 AM." },
    { u"button returned", property, additions, u"Of the answer to a dialog." },
    { u"text returned", property, additions, u"Of the answer to a dialog." },
    { u"gave up", property, additions, u"Of the answer to a dialog with “giving up after”." },

    { u"true", constant, language, u"" },
    { u"false", constant, language, u"" },
    { u"missing value", constant, language, u"No value." },
    { u"pi", constant, language, u"3.14159265359" },
    { u"tab", constant, language, u"A tabulator." },
    { u"space", constant, language, u"A space." },
    { u"return", constant, language, u"A carriage return." },
    { u"linefeed", constant, language, u"A line feed." },
    { u"quote", constant, language, u"A double quote." },
    { u"minutes", constant, language, u"60" },
    { u"hours", constant, language, u"3600" },
    { u"days", constant, language, u"86400" },
    { u"weeks", constant, language, u"604800" },
    { u"yes", constant, language, u"" },
    { u"no", constant, language, u"" },
    { u"ask", constant, language, u"" },
    { u"AppleScript", constant, language, u"The language itself; has text item delimiters." },
    { u"current application", constant, language, u"The runner." },
    { u"January", constant, language, u"" },
    { u"February", constant, language, u"" },
    { u"March", constant, language, u"" },
    { u"April", constant, language, u"" },
    { u"May", constant, language, u"" },
    { u"June", constant, language, u"" },
    { u"July", constant, language, u"" },
    { u"August", constant, language, u"" },
    { u"September", constant, language, u"" },
    { u"October", constant, language, u"" },
    { u"November", constant, language, u"" },
    { u"December", constant, language, u"" },
    { u"Sunday", constant, language, u"" },
    { u"Monday", constant, language, u"" },
    { u"Tuesday", constant, language, u"" },
    { u"Wednesday", constant, language, u"" },
    { u"Thursday", constant, language, u"" },
    { u"Friday", constant, language, u"" },
    { u"Saturday", constant, language, u"" },

    { u"process", element, systemEvents, u"An application with a window.", u"processes" },
    { u"application process", element, systemEvents, u"The same as process.",
      u"application processes", u"process" },
    { u"frontmost", property, systemEvents,
      u"Of a process: whether it has the keyboard. Settable "
      u"to true." },
    { u"visible", property, systemEvents, u"Of a process." },
    { u"displayed name", property, systemEvents, u"Of a process." },
    { u"unix id", property, systemEvents,
      u"Of a process; `missing value` where the desktop does not tell." },
    { u"bundle identifier", property, systemEvents, u"Of a process: its desktop entry." },
    { u"command down", constant, systemEvents, u"Ctrl; in a terminal Ctrl+Shift." },
    { u"control down", constant, systemEvents, u"Ctrl." },
    { u"option down", constant, systemEvents, u"Alt." },
    { u"shift down", constant, systemEvents, u"Shift." },

    { u"note", element, notes, u"A Markdown file in the folder Notes of the user’s documents.",
      u"notes" },
    { u"folder", element, notes, u"A folder of notes.", u"folders" },
    { u"account", element, notes, u"Accepted; there is one place for notes.", u"accounts" },
    { u"default account", property, notes, u"An account." },
    { u"body", property, notes, u"Of a note: its text or HTML." },
    { u"plaintext", property, notes, u"Of a note: its text." },

    { u"shortcut", element, shortcuts, u"An executable file among the user’s shortcuts.",
      u"shortcuts" },

    { u"folder", element, finder, u"A folder.", u"folders" },
    { u"home", property, finder, u"The home folder." },
    { u"desktop", property, finder, u"The desktop’s folder." },
    { u"container", property, finder, u"Of a file: its folder." },
    { u"name extension", property, finder, u"Of a file." },
    { u"URL", property, finder, u"Of a file." },

    { u"calendar", element, calendar, u"Accepted; the desktop’s calendar asks where to put things.",
      u"calendars" },
    { u"event", element, calendar, u"An event.", u"events" },
    { u"summary", property, calendar, u"Of an event." },
    { u"start date", property, calendar, u"Of an event." },
    { u"end date", property, calendar, u"Of an event." },
    { u"location", property, calendar, u"Of an event." },
    { u"description", property, calendar, u"Of an event." },
    { u"allday event", property, calendar, u"Of an event." },

    { u"list", element, reminders, u"Accepted, as calendars are.", u"lists" },
    { u"default list", property, reminders, u"A list." },
    { u"reminder", element, reminders, u"A to-do.", u"reminders" },
    { u"body", property, reminders, u"Of a reminder: its notes." },
    { u"due date", property, reminders, u"Of a reminder." },
    { u"allday due date", property, reminders, u"Of a reminder: a day without a time." },
    { u"remind me date", property, reminders,
      u"Of a reminder: the due date when there is no other." },
    { u"priority", property, reminders, u"Of a reminder: 1, the highest, to 9; 0 is none." },
    { u"flagged", property, reminders, u"Of a reminder; ignored." },

    { u"outgoing message", element, mail, u"A message to be sent.", u"outgoing messages" },
    { u"to recipient", element, mail, u"Whom it goes to.", u"to recipients" },
    { u"cc recipient", element, mail, u"Who gets a copy.", u"cc recipients" },
    { u"bcc recipient", element, mail, u"Who gets a copy unseen.", u"bcc recipients" },
    { u"recipient", element, mail, u"The same as to recipient.", u"recipients", u"to recipient" },
    { u"subject", property, mail, u"Of a message." },
    { u"content", property, mail, u"Of a message: its text." },
    { u"sender", property, mail, u"Of a message; ignored, the mail program knows it." },
    { u"address", property, mail, u"Of a recipient." },
    { u"visible", property, mail, u"Of a message; it is shown in any case." },
};

struct ApplicationName
{
    QStringView name;
    Suite suite;
};

constexpr ApplicationName applications[] {
    { u"System Events", systemEvents },
    { u"com.apple.systemevents", systemEvents },
    { u"Notes", notes },
    { u"com.apple.Notes", notes },
    { u"Shortcuts", shortcuts },
    { u"Shortcuts Events", shortcuts },
    { u"com.apple.shortcuts", shortcuts },
    { u"com.apple.shortcuts.events", shortcuts },
    { u"Finder", finder },
    { u"com.apple.finder", finder },
    { u"Calendar", calendar },
    { u"com.apple.iCal", calendar },
    { u"Reminders", reminders },
    { u"com.apple.reminders", reminders },
    { u"Mail", mail },
    { u"com.apple.mail", mail },
};

}

std::span<const NameTerm> nameTerms()
{
    return names;
}

QStringView bareName(QStringView name)
{
    constexpr QStringView suffix = u".app";
    if (name.endsWith(suffix, Qt::CaseInsensitive))
        name.chop(suffix.size());
    return name.sliced(name.lastIndexOf(u'/') + 1);
}

Suite suiteOf(QStringView application)
{
    const QStringView name = bareName(application);
    for (const auto &[known, suite] : applications) {
        if (name.compare(known, Qt::CaseInsensitive) == 0)
            return suite;
    }
    return Suite::application;
}

}
