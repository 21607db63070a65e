// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ConfigFile.h"

#include "base/Descriptor.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr off_t maxSize = 256 << 20;

Descriptor openFile(const QByteArray &path, int flags, uint mode = 0)
{
    // O_NONBLOCK: a FIFO without another end.
    return Descriptor(::open(path.constData(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, mode));
}

Failure failed(int error)
{
    return { qt_error_string(error) };
}

Result<off_t> sizeOf(const Descriptor &file)
{
    struct stat status = {};
    if (::fstat(file.number(), &status) != 0)
        return failed(errno);
    if (!S_ISREG(status.st_mode))
        return Failure { u"Not a regular file"_s };
    if (status.st_size > maxSize)
        return Failure { u"Larger than 256 MiB"_s };
    return status.st_size;
}

/// Moves `size` bytes by `step`, which is read() or write() from an offset, until an end of file.
template <typename Step> Result<qsizetype> moveAll(qsizetype size, const Step &step)
{
    qsizetype done = 0;
    while (done < size) {
        const ssize_t count = step(done, size_t(size - done));
        if (count == 0)
            break;
        if (count > 0)
            done += count;
        else if (errno != EINTR)
            return failed(errno);
    }
    return done;
}

Result<void> reserve(const Descriptor &file, qsizetype size)
{
    int error = 0;
    do
        error = ::posix_fallocate(file.number(), 0, size);
    while (error == EINTR);
    const bool isUnknown = error == EOPNOTSUPP || error == EINVAL; // to this file system
    return error == 0 || isUnknown ? Result<void>() : failed(error);
}

Result<void> replaceContent(const Descriptor &file, const QByteArray &content)
{
    const auto written = moveAll(content.size(), [&](qsizetype offset, size_t size) {
        return ::pwrite(file.number(), content.constData() + offset, size, offset);
    });
    if (!written)
        return written.error();
    return ::ftruncate(file.number(), content.size()) == 0 ? Result<void>() : failed(errno);
}

}

Result<std::optional<QByteArray>> ConfigFile::read(const QString &path)
{
    const Descriptor file = openFile(QFile::encodeName(path), O_RDONLY);
    if (!file.isValid())
        return std::optional<QByteArray>();
    const Result<off_t> size = sizeOf(file);
    if (!size)
        return size.error();
    QByteArray content(*size, Qt::Uninitialized);
    const auto length = moveAll(*size, [&](qsizetype offset, size_t rest) {
        return ::pread(file.number(), content.data() + offset, rest, offset);
    });
    if (!length)
        return length.error();
    content.truncate(*length);
    return std::optional(content);
}

Result<void> ConfigFile::write(const QString &path, const QByteArray &content, uint mode)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat before = {};
    const bool isNew = ::lstat(name.constData(), &before) != 0;
    // Reserving room may read, where the C library does it for the file system.
    const Descriptor file = openFile(name, O_RDWR | O_CREAT, mode);
    if (!file.isValid())
        return failed(errno);
    const Result<off_t> oldSize = sizeOf(file);
    if (!oldSize)
        return oldSize.error();
    Result<void> reserved = reserve(file, content.size());
    if (reserved)
        return replaceContent(file, content);
    // A part of the room may have been added already.
    [[maybe_unused]] const int undone
        = isNew ? ::unlink(name.constData()) : ::ftruncate(file.number(), *oldSize);
    return reserved;
}

}
