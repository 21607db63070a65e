// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel::Osascript {

/// Sets $HOME to the folder of the user database when it is not an absolute path, for this process
/// and its children.
void ensureHome();

/// The absolute path of a folder by the words of `path to`: "home folder", "desktop", "documents
/// folder" … as the user's user-dirs.dirs names it, else its usual name in the home folder.
[[nodiscard]] QString userFolder(QStringView words);

}
