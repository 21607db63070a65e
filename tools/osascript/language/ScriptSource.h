// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QIODevice;

namespace Tessel::Osascript {

/// The text of a script, or in plain English why it cannot be run; one of the two is empty, or
/// both.
struct ScriptSource
{
    QString text;
    QString error;
};

/// Reads all that the open device has: UTF-8, or UTF-16 with a byte order mark.
[[nodiscard]] ScriptSource readScriptSource(QIODevice &device);

}
