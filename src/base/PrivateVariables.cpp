// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/PrivateVariables.h"

namespace Tessel {

namespace {

QMap<QString, std::optional<QString>> before;

}

void setPrivateVariable(const QString &name, const QString &value)
{
    const QByteArray variable = name.toLocal8Bit();
    if (!before.contains(name))
        before[name] = qEnvironmentVariableIsSet(variable.constData())
            ? std::optional(qEnvironmentVariable(variable.constData()))
            : std::nullopt;
    qputenv(variable.constData(), value.toLocal8Bit());
}

const QMap<QString, std::optional<QString>> &variablesOfChildren()
{
    return before;
}

}
