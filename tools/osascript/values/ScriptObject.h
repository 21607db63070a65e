// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/Value.h"

#include <QHash>
#include <QSet>

namespace Tessel::Osascript {

struct ScriptBlock;

/// Variables by name in lower case.
using Variables = QHash<QString, Value>;

/// A script while it runs: the main one, or what a `script` block makes.
struct ScriptObject
{
    const ScriptBlock *block = nullptr;
    ScriptObject *outer = nullptr; ///< the script around it, whose properties it sees
    QString name;
    Variables properties;
    Variables captured; ///< of the handler that made it: its parameters and variables at that time
    Variables runVariables; ///< of its run handler, which references can name
    QSet<QString> globals; ///< names declared global for all of its handlers
};

}
