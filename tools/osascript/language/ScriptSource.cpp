// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/ScriptSource.h"

#include <QIODevice>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr qint64 maxScriptSize = 8 << 20; // bytes

/// All of it, up to just over the limit: a pipe gives what it has at the moment.
QByteArray readAll(QIODevice &device)
{
    QByteArray bytes;
    while (bytes.size() <= maxScriptSize) {
        const QByteArray some = device.read(maxScriptSize + 1 - bytes.size());
        if (some.isEmpty())
            break;
        bytes += some;
    }
    return bytes;
}

}

Result<QString> readScriptSource(QIODevice &device)
{
    const QByteArray bytes = readAll(device);
    if (bytes.size() > maxScriptSize)
        return Failure { u"The script is too long."_s };
    if (bytes.startsWith("FasdUAS"))
        return Failure { u"Compiled scripts cannot be run, only their text."_s };
    QStringDecoder decoder(
        QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8));
    return QString(decoder.decode(bytes));
}

}
