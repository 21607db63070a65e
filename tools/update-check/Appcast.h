// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tessel {

/// One release that the feed tells about.
struct Release
{
    QString version; ///< what is compared; isVersion()
    QString displayVersion; ///< what people are shown; plain text of at most 64 characters
    QString
        link; ///< the page about it, as the feed writes it: not checked in any way; may be empty
    QString notes; ///< plain text, may be empty

    friend bool operator==(const Release &, const Release &) = default;
};

/// Exactly one of the two is there.
struct AppcastResult
{
    std::optional<Release> newest;
    QString error; ///< a sentence for the user
};

/// The item of the highest version. The form is RSS 2.0 with the elements of
/// http://www.andymatuschak.org/xml-namespaces/sparkle, which also stand as attributes of
/// <enclosure>. Items of a named channel or for another system do not count. A document type, which
/// could define entities, makes the feed invalid.
[[nodiscard]] AppcastResult parseAppcast(const QByteArray &xml);

}
