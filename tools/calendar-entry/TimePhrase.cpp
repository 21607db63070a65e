// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "calendar-entry/TimePhrase.h"

#include "calendar-entry/NumberWords.h"

#include <QList>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

using Match = QRegularExpressionMatch;

constexpr int minutesPerHour = 60;
constexpr int minutesPerDay = 24 * minutesPerHour;

enum class Period { unknown, morning, noon, afternoon, night };

Period periodFrom(const QString &word)
{
    if (word.isEmpty())
        return Period::unknown;
    const auto isAmong
        = [lower = word.toLower()](QStringView words) { return words.split(u' ').contains(lower); };
    if (isAmong(u"am a.m 오전 아침 새벽 凌晨 早上 上午 明早 morning"))
        return Period::morning;
    if (isAmong(u"낮 점심 中午"))
        return Period::noon;
    return isAmong(u"밤 晚上 今晚 明晚") ? Period::night : Period::afternoon;
}

/// Of 0 to 23; 24 for the midnight that ends the day.
int hourOfDay(int hour, Period period)
{
    switch (period) {
    case Period::morning:
        return hour == 12 ? 0 : hour;
    case Period::noon:
        return hour < 6 ? hour + 12 : hour;
    case Period::afternoon:
        return hour < 12 ? hour + 12 : hour;
    case Period::night:
        return hour >= 5 && hour <= 12 ? hour + 12 : hour;
    case Period::unknown:
        return hour >= 1 && hour <= 6 ? hour + 12 : hour;
    }
    Q_UNREACHABLE();
}

std::optional<int> minutesFrom(const Match &match, bool isEvening)
{
    const QStringView word = match.capturedView(u"word");
    if (!word.isEmpty()) {
        const bool isMidnight = word.compare(u"midnight", Qt::CaseInsensitive) == 0
            || word == u"자정" || word == u"午夜";
        return isMidnight ? minutesPerDay : minutesPerDay / 2;
    }
    const auto hour = numberFromWords(match.capturedView(u"hour"));
    const QStringView part = match.capturedView(u"minute");
    const int minute = part == u"반" || part == u"半" ? 30
        : part == u"一刻"                             ? 15
        : part == u"三刻"                             ? 45
                                                      : numberFromWords(part).value_or(0);
    Period period = periodFrom(match.captured(u"period"));
    if (period == Period::unknown && isEvening)
        period = Period::night;
    if (!hour || *hour > 23 || minute >= minutesPerHour)
        return {};
    // "03:30" means what it says; "3:30" is in the afternoon, as "3" is.
    const bool isExact = period == Period::unknown && match.capturedView(u"hour").startsWith(u'0');
    return (isExact ? *hour : hourOfDay(*hour, period)) * minutesPerHour + minute;
}

struct Rule
{
    QRegularExpression pattern;
    bool isSure;
};

Rule rule(const QString &pattern, bool isSure)
{
    return { QRegularExpression(pattern, QRegularExpression::UseUnicodePropertiesOption), isSure };
}

const QList<Rule> &rules()
{
    static const QList<Rule> all {
        // 3 pm, 3:30-5 p.m.
        rule(u"(?<![\\w.:$€£])(?<hour>1[0-2]|0?[1-9])(?::(?<minute>[0-5]\\d))?\\s*"
             u"(?:[-–~]\\s*\\d{1,2}(?::\\d{2})?\\s*)?(?<period>(?i:[ap]\\.?m))\\b"_s,
             true),
        // at 15:30, at 3 o'clock, at 3 in the afternoon, at 3 on Friday
        rule(u"\\b(?i:at)\\s+(?<hour>\\d{1,2}):(?<minute>[0-5]\\d)(?![\\w:%])"_s, true),
        rule(u"\\b(?i:at)\\s+(?<hour>\\d{1,2})(?:\\s*(?i:o['’]clock))?"
             u"(?:\\s+(?i:in the (?<period>morning|afternoon|evening))\\b"
             u"|(?=\\s*(?:$|[.,](?!\\d)|[;!?)\\n]"
             u"|(?i:on|with|for|today|tonight|tomorrow|next|this)\\b)))"_s,
             true),
        rule(u"\\b(?<word>(?i:noon|midday|midnight))\\b"_s, true),
        // 오후 3시 30분, 저녁 일곱 시 반
        rule(u"(?:(?<period>오전|오후|아침|점심|낮|저녁|밤|새벽)\\s*)?(?<![\\d.:])(?<hour>\\d{1,2})"
             u"\\s*시(?!간|즌|리즈)(?:\\s*(?<minute>\\d{1,2}(?=\\s*분)|반))?"_s,
             true),
        rule(u"(?<![가-힣])(?:(?<period>오전|오후|아침|점심|낮|저녁|밤|새벽)\\s*)?"
             u"(?<hour>한|두|세|네|다섯|여섯|일곱|여덟|아홉|열한|열두|열)\\s*시"
             u"(?=$|[\\s.,!?]|에|반|까지|부터|쯤|경)(?:\\s*(?<minute>\\d{1,2}(?=\\s*분)|반))?"_s,
             true),
        rule(u"(?<![가-힣])(?<word>정오|자정)(?=$|[\\s.,!?]|에|까지|부터|쯤)"_s, true),
        // 下午三点半
        rule(u"(?<period>凌晨|早上|上午|中午|下午|傍晚|晚上|今晚|明晚|明早)\\s*"
             u"(?<hour>\\d{1,2}|[一二两三四五六七八九十]{1,2})\\s*[点點:时時]"
             u"(?<minute>半|[一三]刻|\\d{1,2}|[零一二三四五六七八九十]{1,3})?"_s,
             true),
        rule(u"(?<![\\d.:])(?<hour>\\d{1,2}|[一二两三四五六七八九十]{1,2})\\s*[点點]"
             u"(?<minute>半|[一三]刻|\\d{1,2}|[零一二三四五六七八九十]{1,3})?"_s,
             false),
        rule(u"(?<word>正午|午夜)"_s, true),
        // 15:30, 오후 3:30
        rule(u"(?<period>오전|오후)\\s*(?<hour>\\d{1,2}):(?<minute>[0-5]\\d)(?![\\d:])"_s, true),
        rule(u"(?:(?<=\\dT)|(?<![A-Za-z\\d:.]))(?<hour>[01]?\\d|2[0-3]):(?<minute>[0-5]\\d)"
             u"(?::[0-5]\\d)?(?![A-Za-z\\d:])"_s,
             false),
    };
    return all;
}

}

std::optional<int> findTime(const QString &text, bool hasDay, bool isEvening)
{
    std::optional<int> first;
    qsizetype begin = text.size();
    for (const Rule &rule : rules()) {
        const Match match = rule.pattern.match(text);
        if (!match.hasMatch() || match.capturedStart() >= begin || !(rule.isSure || hasDay))
            continue;
        if (const auto minutes = minutesFrom(match, isEvening)) {
            first = minutes;
            begin = match.capturedStart();
        }
    }
    return first;
}

}
