// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SelectionText.h"

#include "base/TextRules.h"

#include <algorithm>

namespace Tessel {

std::optional<OfferedFormat> textFormatOf(const QList<QByteArray> &offered)
{
    for (const TextFormat &format : textFormats) {
        for (const QByteArray &name : offered) {
            if (name.compare(format.name, Qt::CaseInsensitive) == 0)
                return OfferedFormat { name, format.charset };
        }
    }
    return {};
}

QByteArray toUtf8(const QByteArray &bytes, TextFormat::Charset charset)
{
    return charset == TextFormat::Charset::utf8 ? bytes : QString::fromLatin1(bytes).toUtf8();
}

std::optional<QByteArray> toLatin1(const QByteArray &utf8)
{
    const QString text = exactText(utf8);
    const bool fits = utf8.isValidUtf8()
        && std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x100; });
    return fits ? std::optional(text.toLatin1()) : std::nullopt;
}

QString selectedText(QByteArrayView utf8)
{
    while (utf8.endsWith('\0'))
        utf8.chop(1);
    return exactText(utf8);
}

}
