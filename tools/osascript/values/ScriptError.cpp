// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/ScriptError.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

void fail(ScriptError::Number number, const QString &message)
{
    throw ScriptError { message, number };
}

void failWith(int number, const QString &message)
{
    throw ScriptError { message, number };
}

void check(const Result<void> &result)
{
    if (result)
        return;
    const QString &reason = result.error().reason;
    fail(ScriptError::failed, reason.endsWith(u'.') ? reason : reason + u'.');
}

void failToGet(const QString &what)
{
    fail(ScriptError::cannotGet, u"Can’t get "_s + what + u'.');
}

void failToSet(const QString &what, const QString &value)
{
    fail(ScriptError::cannotSet, u"Can’t set "_s + what + u" to "_s + value + u'.');
}

void failToCoerce(const QString &what, const QString &className)
{
    fail(ScriptError::cannotCoerce, u"Can’t make "_s + what + u" into type "_s + className + u'.');
}

}
