// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QNetworkAccessManager>
#include <QUrl>

#include <functional>

class QNetworkReply;

namespace Tessel {

/// Fetches small files that belong to one feed: never more than a given size, never from an address
/// that is not isFetchable(), over at most five redirections. Sends no cookies, keeps nothing.
class FeedDownload final : public QObject
{
    Q_OBJECT

public:
    using Done = std::function<void(const Result<QByteArray> &content)>;

    explicit FeedDownload(QUrl feed);

    /// Calls `done` once with all bytes, at most `maxSize`. One fetch at a time.
    void fetch(const QUrl &address, qint64 maxSize, const Done &done);

private:
    void request(const QUrl &address);
    void read(QNetworkReply *reply);
    void finish(QNetworkReply *reply);
    void report(const Result<QByteArray> &result);

    QUrl m_feed;
    QNetworkAccessManager m_network;
    QByteArray m_content;
    qint64 m_maxSize = 0;
    Done m_done; ///< empty once it was called
    int m_redirectionsLeft = 0;
};

}
