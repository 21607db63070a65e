// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel::GnomeSession {

/// Whether the compositor is GNOME's and Qt can show windows there.
[[nodiscard]] bool isOffered();

}
