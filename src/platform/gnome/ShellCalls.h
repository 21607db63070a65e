// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

#include <optional>

namespace Tessel {

/// The shell's extension, for programs that wait for each answer, with the program's token. Needs
/// the application object.
namespace ShellCalls {

/// Whether there is a shell that takes the token.
[[nodiscard]] bool areAnswered();

/// What the method of com.tessel.app.Shell returns; nothing when the shell refuses, or does not
/// answer within two seconds.
std::optional<QVariantList> call(const char *method, const QVariantList &arguments = {});

}

}
