// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

namespace Tessel {

/// Where the programs are that commands find before the system's own: installed beside the program,
/// else in the build folder.
[[nodiscard]] QString helperFolder(const QString &programFolder
                                   = QCoreApplication::applicationDirPath());

/// Puts the helper folder first on the PATH of the process, and so of its children. To be called
/// once, when the application object exists and no thread reads the environment.
void prependHelperFolderToPath();

}
