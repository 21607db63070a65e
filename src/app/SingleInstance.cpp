// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/SingleInstance.h"

#include "base/Log.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

void report(const QString &error)
{
    Log::print(u"Error checking lock file: "_s + error);
}

}

QString SingleInstance::lockFilePath()
{
    QString folder = u"/tmp"_s;
    for (const char *variable : { "XDG_RUNTIME_DIR", "TMPDIR" }) {
        if (!qEnvironmentVariableIsEmpty(variable))
            folder = qEnvironmentVariable(variable);
    }
    return QDir(folder).filePath(u"com.tessel.app.lock"_s);
}

std::optional<qint32> SingleInstance::parseProcessId(const QByteArray &text)
{
    const qsizetype sign = text.startsWith('+') || text.startsWith('-') ? 1 : 0;
    const bool onlyDigits = text.size() > sign
        && std::all_of(text.cbegin() + sign, text.cend(),
                       [](char c) { return c >= '0' && c <= '9'; });
    bool fits = false;
    const int value = onlyDigits ? text.toInt(&fits) : 0;
    return fits ? std::optional<qint32>(value) : std::nullopt;
}

std::optional<qint32> SingleInstance::liveOwnerElseTakeLock(const QString &path)
{
    if (QFile::exists(path)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            report(file.errorString());
            return {};
        }
        const QByteArray content = file.readAll();
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString text = utf8(content);
        if (utf8.hasError()) {
            report(u"%1 is not UTF-8 text"_s.arg(path));
            return {};
        }
        const auto owner = parseProcessId(content);
        if (owner && ::kill(*owner, 0) == 0)
            return owner;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)
        || file.write(QByteArray::number(QCoreApplication::applicationPid())) < 0 || !file.commit())
        report(file.errorString());
    return {};
}

}
