// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace Tessel {

/// Where the signature of a feed is: the address with ".sig" at the end of its path.
[[nodiscard]] QUrl signatureAddress(QUrl feed);

/// Whether anything may be fetched from there, directly or after a redirection, for this feed: over
/// HTTPS from anywhere; over HTTP from this machine when the feed itself is there.
[[nodiscard]] bool isFetchable(const QUrl &address, const QUrl &feed);

}
