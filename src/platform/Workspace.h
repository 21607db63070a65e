// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tessel {

/// The application that has the user's attention.
struct FrontApplication
{
    std::optional<QString> bundleIdentifier; ///< desktop-entry id, else the window class
    QString localizedName; ///< empty when it has none
    bool isTerminal = false; ///< keys go to whatever runs in it
    bool isModal = false; ///< any key may be a command, as in editors of the vi family
    quint64 window = 0; ///< the backend's own handle of its active window; 0: not known
};

/// An application that the user can pick from a list.
struct InstalledApplication
{
    /// What frontmostApplication() gives for its windows.
    QString bundleIdentifier;
    QString localizedName;
    QString icon; ///< a name of the icon theme, an absolute path, or empty

    friend bool operator==(const InstalledApplication &, const InstalledApplication &) = default;
};

/// Applications and URL handlers of the desktop.
class Workspace
{
public:
    virtual ~Workspace() = default;

    [[nodiscard]] virtual std::optional<FrontApplication> frontmostApplication() = 0;

    /// The applications that menus show, in the order of their names.
    [[nodiscard]] virtual QList<InstalledApplication> installedApplications() = 0;

    /// The bundle identifier of the application that a file describes; nothing when it describes
    /// none.
    [[nodiscard]] virtual std::optional<QString> bundleIdentifierOf(const QString &path) = 0;

    /// Hands an absolute URL to the user's default handler for its scheme; returns at once.
    virtual void open(const QString &url) = 0;

    /// Called with a URL that nothing could open, from the event loop, perhaps seconds later.
    std::function<void(const QString &url)> nothingOpened = [](const QString &) {};

    /// Shows one of our own windows, which is there already, to the user: on the desktop that is
    /// current, before the others, with the keyboard. The number is QWindow::winId().
    virtual void bringToFront(quint64 window) = 0;

    /// What the desktop lacks for watching keys and copying, in words for the user; empty: all is
    /// there ("trusted").
    [[nodiscard]] virtual QStringList missingAccess() const = 0;
};

}
