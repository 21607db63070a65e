// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/Version.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

struct Parts
{
    QStringList numbers;
    QStringList preRelease; ///< runs of digits and runs of letters
};

Parts partsOf(QStringView version)
{
    static const QRegularExpression numbers(u"^[0-9.]*"_s);
    static const QRegularExpression run(u"[0-9]+|[a-z]+"_s,
                                        QRegularExpression::CaseInsensitiveOption);
    const QString text = version.toString().section(u'+', 0, 0); // without the metadata
    const QString leading = numbers.match(text).captured();
    Parts parts;
    parts.numbers = leading.split(u'.', Qt::SkipEmptyParts);
    for (auto runs = run.globalMatch(text, leading.size()); runs.hasNext();)
        parts.preRelease += runs.next().captured();
    return parts;
}

/// Digits of any length.
std::weak_ordering compareNumbers(QString left, QString right)
{
    static const QRegularExpression zeros(u"^0+"_s);
    left.remove(zeros);
    right.remove(zeros);
    return left.size() == right.size() ? left.compare(right) <=> 0 : left.size() <=> right.size();
}

std::weak_ordering compareRuns(const QString &left, const QString &right)
{
    const bool isLeftNumber = left.front().isDigit();
    const bool isRightNumber = right.front().isDigit();
    if (isLeftNumber != isRightNumber)
        return isRightNumber <=> isLeftNumber; // numbers come first
    return isLeftNumber ? compareNumbers(left, right)
                        : left.compare(right, Qt::CaseInsensitive) <=> 0;
}

}

bool isVersion(const QString &text)
{
    static const QRegularExpression form(u"\\A[0-9][0-9A-Za-z.+-]{0,63}\\z"_s);
    return form.match(text).hasMatch();
}

std::weak_ordering compareVersions(QStringView left, QStringView right)
{
    const Parts a = partsOf(left);
    const Parts b = partsOf(right);
    for (qsizetype i = 0; i < std::max(a.numbers.size(), b.numbers.size()); ++i) {
        const auto order = compareNumbers(a.numbers.value(i), b.numbers.value(i));
        if (std::is_neq(order))
            return order;
    }
    if (a.preRelease.isEmpty() || b.preRelease.isEmpty())
        return a.preRelease.isEmpty() <=> b.preRelease.isEmpty(); // it comes before its release
    return std::lexicographical_compare_three_way(a.preRelease.begin(), a.preRelease.end(),
                                                  b.preRelease.begin(), b.preRelease.end(),
                                                  compareRuns);
}

}
