// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

#include <optional>

namespace Tessel {

/// Sets a variable of the environment for this process's own libraries: child programs get it as it
/// was before. To be called when no other thread reads the environment.
void setPrivateVariable(const QString &name, const QString &value);

/// What those were before; nothing where they were not set.
[[nodiscard]] const QMap<QString, std::optional<QString>> &variablesOfChildren();

}
