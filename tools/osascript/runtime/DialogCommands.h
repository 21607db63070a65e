// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"
#include "osascript/values/TextContext.h"

namespace Tessel::Osascript {

[[nodiscard]] Value displayDialog(const Invocation &call, const TextContext &context, Host &host);
[[nodiscard]] Value displayAlert(const Invocation &call, const TextContext &context, Host &host);
[[nodiscard]] Value displayNotification(const Invocation &call, const TextContext &context,
                                        Host &host);
[[nodiscard]] Value chooseFromList(const Invocation &call, const TextContext &context, Host &host);

}
