// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/SingleInstance.h"

#include "base/Descriptor.h"
#include "base/Log.h"
#include "base/Result.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qsizetype maxContent = 32; ///< bytes

/// Others may put anything into a shared folder.
bool isOwnFile(const struct stat &status)
{
    return S_ISREG(status.st_mode) && status.st_uid == ::geteuid() && status.st_size <= maxContent;
}

/// Empty also when the file is not one of ours, or there is none.
Result<QByteArray> readLock(const char *path)
{
    const Descriptor file(::open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const QString error = QString::fromLocal8Bit(std::strerror(errno));
    struct stat status = {};
    if ((file.isValid() ? ::fstat(file.number(), &status) : ::lstat(path, &status)) != 0
        || !isOwnFile(status))
        return QByteArray();
    QByteArray content(maxContent, 0);
    const ssize_t size
        = file.isValid() ? ::read(file.number(), content.data(), maxContent) : ssize_t(-1);
    if (size < 0)
        return Failure { error };
    return content.left(size);
}

/// As a new file under another name, which then takes the place of whatever is there.
bool writeLock(const QByteArray &path, const QByteArray &content)
{
    QByteArray temporary = path + ".XXXXXX";
    const Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.isValid())
        return false;
    if (::write(file.number(), content.constData(), size_t(content.size())) == content.size()
        && std::rename(temporary.constData(), path.constData()) == 0)
        return true;
    const int error = errno;
    ::unlink(temporary.constData());
    errno = error;
    return false;
}

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

std::optional<qint32> SingleInstance::liveOwner(const QString &path)
{
    const Result<QByteArray> content = readLock(QFile::encodeName(path).constData());
    const auto owner = content ? parseProcessId(*content) : std::nullopt;
    return owner && ::kill(*owner, 0) == 0 ? owner : std::nullopt;
}

std::optional<qint32> SingleInstance::liveOwnerElseTakeLock(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const Result<QByteArray> content = readLock(name.constData());
    if (!content) {
        report(content.error().reason);
        return {};
    }
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(*content);
    if (utf8.hasError()) {
        report(u"%1 is not UTF-8 text"_s.arg(path));
        return {};
    }
    const auto owner = parseProcessId(*content);
    if (owner && ::kill(*owner, 0) == 0)
        return owner;
    if (!writeLock(name, QByteArray::number(::getpid())))
        report(QString::fromLocal8Bit(std::strerror(errno)));
    return {};
}

}
