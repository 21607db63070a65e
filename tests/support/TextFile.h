// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

namespace Tessel::Desktop {

// Writes the text as UTF-8, in a folder that is made when it is missing. False when it cannot.
[[nodiscard]] inline bool writeFile(const QString &path, const QString &text)
{
    QFile file(path);
    const QByteArray content = text.toUtf8();
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(content) == content.size();
}

}
