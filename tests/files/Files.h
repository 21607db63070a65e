// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Tessel {

/// In a folder that is made when it is missing. False when it cannot be written.
[[nodiscard]] inline bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(content) == content.size();
}

[[nodiscard]] inline bool writeFile(const QString &path, const QString &text)
{
    return writeFile(path, text.toUtf8());
}

/// A shell script that its owner can run.
[[nodiscard]] inline bool writeProgram(const QString &path, const QString &script)
{
    return writeFile(path, QStringLiteral("#!/bin/sh\n") + script)
        && QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
}

/// Empty when there is none.
[[nodiscard]] inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}
