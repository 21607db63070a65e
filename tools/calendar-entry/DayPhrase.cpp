// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "calendar-entry/DayPhrase.h"

#include "calendar-entry/NumberWords.h"

#include <QList>
#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

using Match = QRegularExpressionMatch;
using Found = std::optional<DayPhrase>;

/// English verbs are spelled like two months and an abbreviation: those need their capital.
constexpr auto months
    = u"(?<month>(?i:jan(?:uary)?|feb(?:ruary)?|apr(?:il)?|june?|july?|aug(?:ust)?"
      u"|sept?(?:ember)?|oct(?:ober)?|nov(?:ember)?|dec(?:ember)?)"
      u"|Mar(?:ch)?|MAR(?:CH)?|May|MAY)";
constexpr auto hanNumber = u"(?:\\d{1,2}|[一二三四五六七八九十]{1,3})";

Found on(QDate date)
{
    return date.isValid() ? std::optional(DayPhrase { date }) : std::nullopt;
}

QDate rolledForward(int month, int day, QDate today)
{
    constexpr int leapYearGap = 8;
    for (int year = today.year(); year <= today.year() + leapYearGap; ++year) {
        const QDate date(year, month, day);
        if (date.isValid() && date >= today)
            return date;
    }
    return {};
}

int monthFrom(QStringView text)
{
    for (int month = 1; month <= 12; ++month) {
        if (text.startsWith(QLocale::c().monthName(month, QLocale::ShortFormat),
                            Qt::CaseInsensitive))
            return month;
    }
    return numberFromWords(text).value_or(0);
}

Found calendarDay(const Match &match, QDate today)
{
    int month = monthFrom(match.capturedView(u"month"));
    int day = numberFromWords(match.capturedView(u"day")).value_or(0);
    const QStringView year = match.capturedView(u"year");
    if (year.isEmpty())
        return on(rolledForward(month, day, today));
    if (month > 12) // 25/11/2026
        std::swap(month, day);
    return on(QDate(year.toInt() + (year.size() == 2 ? 2000 : 0), month, day));
}

Found dayOfMonth(const Match &match, QDate today)
{
    const int day = match.capturedView(u"day").toInt();
    for (const int ahead : { 0, 1, 2 }) {
        const QDate month = today.addMonths(ahead);
        const QDate date(month.year(), month.month(), day);
        if (date.isValid() && date >= today)
            return on(date);
    }
    return {};
}

Found namedDay(const Match &match, QDate today)
{
    struct Word
    {
        QStringView name;
        int daysAhead;
        bool isEvening = false;
    };
    static constexpr Word names[] = {
        { u"today", 0 }, { u"tonight", 0, true }, { u"tomorrow", 1 },   { u"오늘", 0 },
        { u"내일", 1 },  { u"모레", 2 },          { u"내일모레", 2 },   { u"글피", 3 },
        { u"今天", 0 },  { u"今日", 0 },          { u"今晚", 0, true }, { u"明天", 1 },
        { u"明日", 1 },  { u"明早", 1 },          { u"明晚", 1, true }, { u"后天", 2 },
        { u"後天", 2 },  { u"大后天", 3 },        { u"大後天", 3 },
    };
    const QStringView text = match.capturedView();
    for (const Word &word : names) {
        if (text.compare(word.name, Qt::CaseInsensitive) == 0)
            return DayPhrase { today.addDays(word.daysAhead), word.isEvening };
    }
    return on(today.addDays(2)); // the day after tomorrow, however it is spaced
}

Found afterSomeTime(const Match &match, QDate today)
{
    const auto number = numberFromWords(match.capturedView(u"number"));
    const QString unit = match.captured(u"unit").toLower();
    if (!number)
        return {};
    if (unit.startsWith(u"month") || unit == u"개월" || unit == u"달" || unit == u"个月")
        return on(today.addMonths(*number));
    const bool isWeeks = unit.startsWith(u"week") || unit.startsWith(u'주') || unit == u"周"
        || unit == u"週" || unit.endsWith(u"星期");
    return on(today.addDays(*number * (isWeeks ? 7 : 1)));
}

int weekdayFrom(QStringView name)
{
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
        if (name.startsWith(QLocale::c().dayName(day, QLocale::ShortFormat), Qt::CaseInsensitive))
            return day;
    }
    for (const QStringView names : { u"월화수목금토일", u"一二三四五六日", u"一二三四五六天" }) {
        if (const auto at = names.indexOf(name); at >= 0)
            return static_cast<int>(at) + 1;
    }
    return 0;
}

Found weekday(const Match &match, QDate today)
{
    QString week = match.captured(u"week").toLower();
    week.remove(u' ');
    const int day = weekdayFrom(match.capturedView(u"weekday"));
    const QDate monday = today.addDays(1 - today.dayOfWeek());
    if (week.startsWith(u"다다음") || week.startsWith(u"下下"))
        return on(monday.addDays(14 + day - 1));
    if (week == u"next" || week.startsWith(u"다음") || week == u"담주" || week == u"차주"
        || week.startsWith(u'下'))
        return on(monday.addDays(7 + day - 1));
    const bool isThisWeek = !week.isEmpty() && week != u"on" && week != u"by" && week != u"until";
    if (isThisWeek && day >= today.dayOfWeek())
        return on(monday.addDays(day - 1));
    return on(today.addDays((day - today.dayOfWeek() + 6) % 7 + 1));
}

struct Rule
{
    QRegularExpression pattern;
    Found (*day)(const Match &match, QDate today);
};

Rule rule(const QString &pattern, Found (*day)(const Match &, QDate))
{
    return { QRegularExpression(pattern, QRegularExpression::UseUnicodePropertiesOption), day };
}

/// In each group the more telling pattern comes first: of two that match at one place the longer
/// one counts, of equally long ones the first.
const QList<Rule> &rules()
{
    const QString month = QString::fromUtf16(months);
    const QString han = QString::fromUtf16(hanNumber);
    static const QList<Rule> all {
        // 2026-11-25, 2026. 11. 25., 25.11.2026, 11/25/2026
        rule(u"(?<![\\w./-])(?<year>(?:19|20)\\d{2})(?:-|/|\\. ?)(?<month>\\d{1,2})(?:-|/|\\. ?)"
             u"(?<day>\\d{1,2})(?![\\d/-]|\\.\\d)"_s,
             calendarDay),
        rule(
            u"(?<![\\w./-])(?<day>\\d{1,2})\\.(?<month>\\d{1,2})\\.(?<year>(?:19|20)\\d{2})(?![\\w/-]|\\.\\d)"_s,
            calendarDay),
        rule(
            u"(?<![\\w./-])(?<month>\\d{1,2})/(?<day>\\d{1,2})/(?<year>(?:20)?\\d{2})(?![\\w/-]|\\.\\d)"_s,
            calendarDay),
        // 11/25; not a fraction, a score or 24/7
        rule(u"(?<![\\w./$€£₩-])(?<month>\\d{1,2})/(?<day>0[1-9]|1[1-9]|2\\d|3[01])"
             u"(?![\\w/%-]|[.,]\\d|\\s*(?:inch|in\\b|cup|of\\b|\"))"_s,
             calendarDay),
        rule(
            u"\\b(?i:on|by|until|due)\\s+(?<month>\\d{1,2})/(?<day>\\d{1,2})(?![\\w/%-]|[.,]\\d)"_s,
            calendarDay),
        // Nov 25th, 2026; 25 November
        rule(u"\\b"_s + month
                 + u"\\.?\\s+(?<day>\\d{1,2})(?:st|nd|rd|th)?(?![\\w%]|[.,:]\\d)"
                   u"(?:,?\\s+(?<year>(?:19|20)\\d{2})\\b)?"_s,
             calendarDay),
        rule(u"(?<![\\w.,$€£-])(?<day>\\d{1,2})(?:st|nd|rd|th)?\\s+(?:of\\s+)?"_s + month
                 + u"\\b\\.?(?:,?\\s+(?<year>(?:19|20)\\d{2})\\b)?"_s,
             calendarDay),
        // 2026년 11월 25일, 11月25日
        rule(u"(?:(?<![\\d.])(?<year>(?:19|20)\\d{2})\\s*년\\s*)?(?<!\\d)(?<month>\\d{1,2})\\s*"
             u"월\\s*"
             u"(?<day>\\d{1,2})\\s*일(?!\\s*(?:간|동안))"_s,
             calendarDay),
        rule(u"(?:(?<!\\d)(?<year>(?:19|20)\\d{2})\\s*年\\s*)?(?<!\\d)(?<month>"_s + han
                 + u")\\s*月\\s*(?<day>"_s + han + u")\\s*[日号號]"_s,
             calendarDay),
        rule(
            u"(?<![\\d.])(?<day>\\d{1,2})일\\s*(?:\\([월화수목금토일]\\)|[월화수목금토일]요일|오전|오후)"_s,
            dayOfMonth),
        // words
        rule(u"\\b(?i:(?:the\\s+)?day\\s+after\\s+tomorrow|today|tonight|tomorrow)\\b"_s, namedDay),
        rule(u"오늘(?!날)|내일\\s*모레|내일|(?<![가-힣])(?:모레|글피)"_s, namedDay),
        rule(u"大?[后後]天|今[天日晚]|明[天日早晚]"_s, namedDay),
        // in 3 days
        rule(u"\\b(?i:in\\s+(?<number>\\d{1,3}|an?|one|two|three|four|five|six|seven|eight|nine|"
             u"ten)\\s+"
             u"(?<unit>days?|weeks?|months?))\\b(?!\\s+(?:of|ago))"_s,
             afterSomeTime),
        rule(u"\\b(?i:(?<number>\\d{1,3}|an?|one|two|three|four|five|six|seven|eight|nine|ten)\\s+"
             u"(?<unit>days?|weeks?|months?)\\s+from\\s+(?:now|today))\\b"_s,
             afterSomeTime),
        rule(u"(?<![\\d.])(?<number>\\d{1,3})\\s*(?<unit>일|주일?|개월|달)\\s*(?:후|뒤)"_s,
             afterSomeTime),
        rule(
            u"(?<![가-힣])(?<number>하루|이틀|사흘|나흘|닷새|엿새|열흘|보름|일주일)(?<unit>)\\s*(?:후|뒤)"_s,
            afterSomeTime),
        rule(u"(?<![\\d.])(?<number>\\d{1,3}|[一二两三四五六七八九十]{1,3})\\s*"
             u"(?<unit>天|日|[周週]|个?星期|个月)[之以]?[后後]"_s,
             afterSomeTime),
        // weekdays
        rule(u"\\b(?:(?i:(?<week>next|this|on|by|until))\\s+)?"
             u"(?<weekday>(?i:mon|tues|wednes|thurs|fri|satur|sun)day)\\b"_s,
             weekday),
        rule(u"\\b(?i:(?<week>next|this|on|by|until))\\s+"
             u"(?<weekday>Mon|Tue|Tues|Wed|Thu|Thur|Thurs|Fri|Sat|Sun)\\b"_s,
             weekday),
        rule(u"(?:(?<week>다다음\\s*주|다음\\s*주|이번\\s*주|담주|차주|금주)\\s*)?"
             u"(?<![가-힣])(?<weekday>[월화수목금토일])요일(?!마다)"_s,
             weekday),
        rule(u"(?<![上每一二两三四五六七八九十几\\d]|上个|每个)(?<week>下下|[下这這本])?个?"
             u"(?:[周週]|星期|[礼禮]拜)(?<weekday>[一二三四五六日天])(?![次遍回])"_s,
             weekday),
    };
    return all;
}

}

std::optional<DayPhrase> findDay(const QString &text, QDate today)
{
    Found first;
    qsizetype begin = text.size();
    qsizetype end = begin;
    for (const Rule &rule : rules()) {
        auto matches = rule.pattern.globalMatch(text);
        while (matches.hasNext()) {
            const Match match = matches.next();
            const bool isBetter = match.capturedStart() < begin
                || (match.capturedStart() == begin && match.capturedEnd() > end);
            const Found day = isBetter ? rule.day(match, today) : std::nullopt;
            if (!day)
                continue;
            first = day;
            begin = match.capturedStart();
            end = match.capturedEnd();
            break;
        }
    }
    return first;
}

}
