// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "calendar-entry/NumberWords.h"

#include <QHash>
#include <QString>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

std::optional<int> chineseNumber(QStringView text)
{
    constexpr QStringView digits = u"零一二三四五六七八九";
    int number = 0;
    int digit = 0;
    bool hasTen = false;
    for (const QChar c : text) {
        if (c == u'十' && !hasTen) {
            number = (digit == 0 ? 1 : digit) * 10;
            digit = 0;
            hasTen = true;
        } else if (const auto value = digits.indexOf(c == u'两' ? u'二' : c);
                   value >= 0 && digit == 0) {
            digit = static_cast<int>(value);
        } else {
            return {};
        }
    }
    return text.isEmpty() ? std::nullopt : std::optional(number + digit);
}

}

std::optional<int> numberFromWords(QStringView text)
{
    static const QHash<QString, int> words = [] {
        QHash<QString, int> numbers {
            { u"a"_s, 1 },     { u"an"_s, 1 },    { u"하루"_s, 1 },   { u"이틀"_s, 2 },
            { u"사흘"_s, 3 },  { u"나흘"_s, 4 },  { u"닷새"_s, 5 },   { u"엿새"_s, 6 },
            { u"열흘"_s, 10 }, { u"보름"_s, 15 }, { u"일주일"_s, 7 },
        };
        int number = 0;
        for (const QStringView word :
             QStringView(u"one two three four five six seven eight nine ten "
                         u"eleven twelve")
                 .split(u' '))
            numbers.insert(word.toString(), ++number);
        number = 0;
        for (const QStringView word :
             QStringView(u"한 두 세 네 다섯 여섯 일곱 여덟 아홉 열 열한 열두").split(u' '))
            numbers.insert(word.toString(), ++number);
        return numbers;
    }();
    bool isDecimal = false;
    const int number = text.size() <= 4 ? text.toInt(&isDecimal) : 0;
    if (isDecimal)
        return number;
    const auto word = words.constFind(text.toString().toLower());
    return word == words.constEnd() ? chineseNumber(text) : std::optional(*word);
}

}
