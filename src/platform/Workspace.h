// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The application that has the user's attention.
struct FrontApplication
{
    std::optional<QString> bundleIdentifier; ///< desktop-entry id, else the window class
    QString localizedName; ///< empty when it has none
    bool isTerminal = false; ///< Ctrl+C would interrupt what runs in it
    quint32 window = 0; ///< the backend's own handle of its active window
};

/// Applications and URL handlers of the desktop.
class Workspace
{
public:
    virtual ~Workspace() = default;

    [[nodiscard]] virtual std::optional<FrontApplication> frontmostApplication() = 0;

    /// Hands an absolute URL to the user's default handler for its scheme; returns at once.
    virtual void open(const QString &url) = 0;

    /// What the desktop lacks for watching keys and copying, in words for the user; empty: all is
    /// there ("trusted").
    [[nodiscard]] virtual QStringList missingAccess() const = 0;
};
