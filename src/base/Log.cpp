// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/Log.h"

#include "base/TextRules.h"

#include <QByteArray>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace Tessel {

namespace {

std::function<void(QStringView)> &sink()
{
    static std::function<void(QStringView)> installed;
    return installed;
}

}

void Log::print(QStringView line)
{
    if (sink())
        return sink()(line);
    // Children get the default disposition back.
    [[maybe_unused]] static const auto previous = std::signal(SIGPIPE, SIG_IGN);
    // A captured text may hold commands for a terminal. Files and pipes get it exactly.
    static const bool isTerminal = ::isatty(STDOUT_FILENO) != 0;
    const QByteArray bytes
        = (isTerminal ? withControlPictures(line.toString()).toUtf8() : line.toUtf8()) + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void Log::setSink(std::function<void(QStringView)> newSink)
{
    sink() = std::move(newSink);
}

}
