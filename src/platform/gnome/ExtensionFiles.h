// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

namespace Tessel {

/// The files of the shell's extension: those that come with the program, a folder for each kind of
/// shell, and the user's copy, which the shell reads when the user logs in.
class ExtensionFiles final
{
public:
    [[nodiscard]] static QString uuid() { return QStringLiteral("tessel@com.tessel.app"); }

    ExtensionFiles(); ///< of this program and this user
    ExtensionFiles(QString shipped, QString copy);

    /// The folder that comes for a version of the shell ("43.9", "49.beta"); empty: none does.
    [[nodiscard]] QString shippedFor(const QString &shellVersion) const;

    /// Whether the shell finds an extension of this name, the user's or the system's.
    [[nodiscard]] bool areThere() const;

    /// Whether the user's copy is another than what comes for the shell. A link is not a copy.
    [[nodiscard]] bool isCopyOld(const QString &shellVersion) const;

    /// Makes the copy, or makes it anew.
    Result<void> install(const QString &shellVersion) const;

private:
    QString m_shipped;
    QString m_copy;
};

}
