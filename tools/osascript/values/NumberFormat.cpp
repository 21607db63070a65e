// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/NumberFormat.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr int maxFractionDigits = 12;
constexpr double minPlain = 1e-4;
constexpr double maxPlain = 1e4;
constexpr double maxInteger = 536870911; // 2^29 - 1

/// At least one digit after the point.
QString trimmed(QString digits)
{
    while (digits.endsWith(u'0') && !digits.endsWith(u".0"_s))
        digits.chop(1);
    return digits;
}

}

QString formatReal(double number)
{
    if (std::isnan(number))
        return u"NaN"_s;
    if (std::isinf(number))
        return number > 0 ? u"INF"_s : u"-INF"_s;
    const double size = std::abs(number);
    if (size == 0 || (size > minPlain && size < maxPlain))
        return trimmed(QString::number(number, 'f', maxFractionDigits));
    const QString scientific = QString::number(number, 'e', maxFractionDigits); // d.ddde+XX
    const qsizetype e = scientific.indexOf(u'e');
    const int exponent = scientific.mid(e + 1).toInt();
    return trimmed(scientific.left(e)) + (exponent < 0 ? u"E-"_s : u"E+"_s)
        + QString::number(std::abs(exponent));
}

std::optional<Value> parseNumber(const QString &text)
{
    static const QRegularExpression form(
        uR"(\A\s*[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?\s*\z)"_s);
    static const QRegularExpression integer(uR"(\A\s*[+-]?[0-9]+\s*\z)"_s);
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const double number = text.trimmed().toDouble(); // the C locale's
    return integer.match(text).hasMatch() ? wholeNumber(number) : Value(number);
}

Value wholeNumber(double number)
{
    return std::abs(number) <= maxInteger ? Value(static_cast<qint64>(number)) : Value(number);
}

}
