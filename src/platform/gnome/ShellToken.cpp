// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellToken.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSaveFile>

#include <array>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// XDG Base Directory Specification: only the user can access the folder.
QString filePath()
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return folder.isEmpty() ? QString() : folder + u"/com.tessel.app.shell-token"_s;
}

}

QString ShellToken::make()
{
    std::array<quint32, 4> random {};
    QRandomGenerator::system()->fillRange(random.data(), random.size());
    return QString::fromLatin1(
        QByteArray::fromRawData(reinterpret_cast<const char *>(random.data()), sizeof random)
            .toHex());
}

void ShellToken::publish(const QString &token)
{
    QSaveFile file(filePath());
    if (file.open(QFile::WriteOnly) && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)) {
        file.write(token.toLatin1());
        file.commit();
    }
}

void ShellToken::remove()
{
    QFile::remove(filePath());
}

QString ShellToken::published()
{
    QFile file(filePath());
    return !file.fileName().isEmpty() && file.open(QFile::ReadOnly)
        ? QString::fromLatin1(file.read(64))
        : QString();
}

}
