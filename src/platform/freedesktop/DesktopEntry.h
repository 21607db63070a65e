// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What the program needs of a desktop entry (Desktop Entry Specification 1.5).
struct DesktopEntry
{
    QString id; ///< the file's name without ".desktop", folders joined by '-'
    QString name; ///< in the user's language
    QString windowClass; ///< StartupWMClass; often empty
    bool isTerminal = false; ///< category TerminalEmulator

    friend bool operator==(const DesktopEntry &, const DesktopEntry &) = default;
};

/// Nothing when the content is not an application's entry. The locale is as in $LANG ("ko_KR").
[[nodiscard]] std::optional<DesktopEntry>
parseDesktopEntry(const QString &id, const QByteArray &content, const QString &locale);
