// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

namespace Tessel {

/// One release that the feed tells about.
struct Release
{
    QString version; ///< what is compared; isVersion()
    // As the feed writes them, cut to a sensible size but not checked in any way: they may be
    // hostile, and all but the first may be empty.
    QString displayVersion; ///< what people are shown; may be HTML
    QString link; ///< the page about it
    QString notes; ///< may be HTML

    friend bool operator==(const Release &, const Release &) = default;
};

/// The item of the highest version. The form is RSS 2.0 with the elements of
/// http://www.andymatuschak.org/xml-namespaces/sparkle, which also stand as attributes of
/// <enclosure>. Items of a named channel or for another system do not count. A document type, which
/// could define entities, makes the feed invalid.
[[nodiscard]] Result<Release> parseAppcast(const QByteArray &xml);

}
