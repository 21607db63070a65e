// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/terms/Terms.h"

namespace Tessel::Osascript {

namespace {

using enum Suite;
using enum ParameterTerm::Kind;

constexpr ParameterTerm dialogParameters[] {
    { u"default answer", u"Shows a text field with this in it." },
    { u"hidden answer", u"Shows dots in the field.", flag },
    { u"buttons", u"One to three names." },
    { u"default button", u"Its name or number." },
    { u"cancel button", u"Its name or number; raises -128." },
    { u"with title", u"Of the window." },
    { u"with icon", u"stop, note, caution, or 0 to 2.", choice, u"stop|note|caution" },
    { u"giving up after", u"Seconds." },
};

constexpr ParameterTerm alertParameters[] {
    { u"message", u"The smaller text." },
    { u"as", u"What kind.", choice, u"critical|informational|warning" },
    { u"buttons", u"One to three names." },
    { u"default button", u"Its name or number." },
    { u"cancel button", u"Its name or number; raises -128." },
    { u"giving up after", u"Seconds." },
};

constexpr ParameterTerm notificationParameters[] {
    { u"with title", u"Of the notification." },
    { u"subtitle", u"Under the title." },
    { u"sound name", u"Ignored." },
};

constexpr ParameterTerm chooseParameters[] {
    { u"with title", u"Of the window." },
    { u"with prompt", u"Above the list." },
    { u"default items", u"What is selected at first." },
    { u"OK button name", u"Its label." },
    { u"cancel button name", u"Its label." },
    { u"multiple selections allowed", u"", flag },
    { u"empty selection allowed", u"", flag },
};

constexpr ParameterTerm shellParameters[] {
    { u"as", u"The class of the result.", className },
    { u"altering line endings", u"Without it, the output stays as it is.", flag },
    { u"administrator privileges", u"Refused.", flag },
    { u"user name", u"Refused with them." },
    { u"password", u"Refused with them." },
};

constexpr ParameterTerm asParameter[] { { u"as", u"The class of the result.", className } };

constexpr ParameterTerm offsetParameters[] {
    { u"of", u"The text to look for." },
    { u"in", u"The text to look in." },
};

constexpr ParameterTerm randomParameters[] {
    { u"from", u"The least." },
    { u"to", u"The greatest." },
};

constexpr ParameterTerm roundParameters[] {
    { u"rounding", u"Which way; to the nearest without it, halves to the even.", choice,
      u"up|down|toward zero|to nearest|as taught in school" },
};

constexpr ParameterTerm sayParameters[] {
    { u"using", u"The voice; ignored." },
    { u"speaking rate", u"Ignored." },
    { u"pitch", u"Ignored." },
    { u"modulation", u"Ignored." },
    { u"volume", u"Ignored." },
    { u"waiting until completion", u"Ignored.", flag },
};

constexpr ParameterTerm runScriptParameters[] {
    { u"with parameters", u"A list of arguments." },
};

constexpr ParameterTerm openParameters[] { { u"using", u"The application." } };

constexpr ParameterTerm keyParameters[] { { u"using", u"Keys held down: one or a list." } };

constexpr ParameterTerm makeParameters[] {
    { u"new", u"Of what class.", className },
    { u"at", u"Where.", place },
    { u"with properties", u"A record." },
};

constexpr ParameterTerm inputParameter[] { { u"with input", u"The text it works on." } };

constexpr QStringView folders
    = u"home folder|desktop folder|desktop|documents folder|downloads folder|music folder|"
      u"pictures folder|movies folder|temporary items folder|temporary items|trash|"
      u"application support folder|application support|frontmost application";

constexpr ParameterTerm pathParameters[] {
    { u"from", u"Ignored.", choice, u"user domain|local domain|system domain" },
    { u"as", u"The class of the result.", className },
};

constexpr CommandTerm commands[] {
    { u"the clipboard", additions, Direct::none, asParameter, u"The clipboard’s text." },
    { u"set the clipboard to", additions, Direct::required, {}, u"Puts a text there." },
    { u"do shell script", additions, Direct::required, shellParameters,
      u"Runs a command with /bin/sh. Its output is the result, without the last line break and "
      u"with line feeds turned into returns; an exit status other than 0 raises an error." },
    { u"display dialog", additions, Direct::required, dialogParameters,
      u"The answer is a record. Cancel raises -128." },
    { u"display alert", additions, Direct::required, alertParameters, u"The answer is a record." },
    { u"display notification", additions, Direct::required, notificationParameters, u"" },
    { u"choose from list", additions, Direct::required, chooseParameters,
      u"A list of what was chosen, or false." },
    { u"open location", additions, Direct::required, {}, u"Opens a URL." },
    { u"delay", additions, Direct::optional, {}, u"Waits for some seconds." },
    { u"beep", additions, Direct::optional, {}, u"So many times." },
    { u"say", additions, Direct::required, sayParameters, u"Speaks." },
    { u"log", additions, Direct::optional, {}, u"Writes to standard error." },
    { u"current date", additions, Direct::none, {}, u"Now." },
    { u"random number", additions, Direct::optional, randomParameters,
      u"A real from 0 to 1, or an integer in the range." },
    { u"round", additions, Direct::required, roundParameters, u"An integer." },
    { u"offset", additions, Direct::none, offsetParameters,
      u"Where a text first is in another, from 1; or 0." },
    { u"character id", additions, Direct::operand, {}, u"The text of a code point." },
    { u"string id", additions, Direct::operand, {}, u"The text of a list of code points." },
    { u"ASCII character", additions, Direct::operand, {}, u"The same as character id." },
    { u"ASCII number", additions, Direct::operand, {}, u"The first code point." },
    { u"path to", additions, Direct::required, pathParameters,
      u"A folder of the user; of an application, its name as a text.", folders },
    { u"time to GMT", additions, Direct::none, {}, u"How many seconds local time is ahead." },
    { u"system attribute",
      additions,
      Direct::required,
      {},
      u"An environment variable, or an empty text." },
    { u"run script", additions, Direct::required, runScriptParameters,
      u"Runs a text, or the script in a file." },
    { u"count", additions, Direct::operand, {}, u"How many items, fields or characters." },

    { u"activate", application, Direct::optional, {}, u"Brings it to the front, or starts it." },
    { u"launch", application, Direct::optional, {}, u"Starts it." },
    { u"run", application, Direct::optional, {}, u"Starts it; runs a script object." },
    { u"quit", application, Direct::optional, {}, u"Closes it." },
    { u"open", application, Direct::required, openParameters, u"Opens files or URLs." },

    { u"keystroke", systemEvents, Direct::required, keyParameters, u"Types a text." },
    { u"key code", systemEvents, Direct::required, keyParameters,
      u"Presses keys by number: one or a list." },

    { u"make", notes, Direct::none, makeParameters,
      u"Writes a note into the folder Notes of the user’s documents, named by its title. A body of "
      u"the form <html><body>…</body></html> is text of which only <br> is a tag; in others the "
      u"tags and entities of HTML count." },
    { u"show", notes, Direct::required, {}, u"Opens a note." },

    { u"run", shortcuts, Direct::required, inputParameter, u"Its output is the result." },

    { u"reveal", finder, Direct::required, {}, u"Shows it in the file manager." },

    { u"make", calendar, Direct::none, makeParameters, u"Hands an event to the calendar." },
    { u"make", reminders, Direct::none, makeParameters, u"Hands a to-do to the calendar." },

    { u"make", mail, Direct::none, makeParameters,
      u"A message, shown in a compose window when the script has ended." },
    { u"send", mail, Direct::required, {}, u"Shows the message; the user sends it." },
};

}

std::span<const CommandTerm> commandTerms()
{
    return commands;
}

}
