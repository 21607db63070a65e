// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// The folder of texts and images that is installed with the program and its helpers: below the
/// prefix they are in, else the build folder's. Ends the program with a message when there is
/// neither. Needs an application object.
[[nodiscard]] QString bundleFolder();

}
