// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/Constants.h"

#include <QHash>

#include <numbers>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

Value constantValue(QStringView words)
{
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    constexpr qint64 day = 24 * hour;
    static const QHash<QStringView, Value> values {
        { u"true", Value(true) },
        { u"false", Value(false) },
        { u"missing value", Value(Missing()) },
        { u"pi", Value(std::numbers::pi) },
        { u"tab", Value(u"\t"_s) },
        { u"space", Value(u" "_s) },
        { u"return", Value(u"\r"_s) },
        { u"linefeed", Value(u"\n"_s) },
        { u"quote", Value(u"\""_s) },
        { u"minutes", Value(minute) },
        { u"hours", Value(hour) },
        { u"days", Value(day) },
        { u"weeks", Value(7 * day) },
    };
    return values.value(words, Value(Constant { words.toString() }));
}

}
