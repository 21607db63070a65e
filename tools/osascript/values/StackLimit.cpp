// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/StackLimit.h"

#include "osascript/values/ScriptError.h"

#include <QtGlobal>

#include <algorithm>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr quint64 maxStack = 8U << 20U;

qsizetype maxDepth()
{
    rlimit limit {};
    const bool isKnown = getrlimit(RLIMIT_STACK, &limit) == 0;
    const quint64 size = isKnown ? std::min<quint64>(limit.rlim_cur, maxStack) : maxStack;
    return static_cast<qsizetype>(size / 4 * 3);
}

}

void checkStack()
{
    const auto here = reinterpret_cast<qintptr>(__builtin_frame_address(0));
    static thread_local const qintptr top = here; // the first call is near the top
    static const qsizetype max = maxDepth();
    if (top - here > max)
        fail(ScriptError::stackOverflow, u"Stack overflow."_s);
}

}
