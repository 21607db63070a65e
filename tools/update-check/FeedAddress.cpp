// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/FeedAddress.h"

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

bool isLocalHttp(const QUrl &address)
{
    const QString host = address.host();
    return address.scheme() == u"http"
        && (host == u"127.0.0.1" || host == u"::1" || host == u"localhost");
}

}

QUrl signatureAddress(QUrl feed)
{
    feed.setPath(feed.path(QUrl::FullyEncoded) + u".sig"_s, QUrl::TolerantMode);
    return feed;
}

bool isFetchable(const QUrl &address, const QUrl &feed)
{
    if (!address.isValid() || address.host().isEmpty())
        return false;
    return address.scheme() == u"https" || (isLocalHttp(address) && isLocalHttp(feed));
}

}
