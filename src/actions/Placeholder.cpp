// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/Placeholder.h"

#include <QByteArray>

using namespace Qt::StringLiterals;

namespace Tessel {

QString Placeholder::substitute(const QString &templateText, const QString &value)
{
    return QString(templateText).replace(u"{text}"_s, value);
}

std::optional<QString> Placeholder::percentEncodedForQuery(const QString &text)
{
    if (!text.isValidUtf16())
        return std::nullopt;
    // Letters, digits and - . _ ~ are never encoded.
    return QString::fromLatin1(text.toUtf8().toPercentEncoding("!$&'()*+,/:;=?@"));
}

QString Placeholder::escapedForShell(const QString &text)
{
    return QString(text).replace(u'\'', u"'\\''"_s);
}

QString Placeholder::escapedForAppleScript(const QString &text)
{
    return QString(text).replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
}

}
