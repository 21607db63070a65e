// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

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
    using Content = std::function<void(const QByteArray &content)>;
    using Failure = std::function<void(const QString &message)>; ///< a sentence for the user

    FeedDownload(QUrl feed, Failure failure);

    /// Calls `done` once with all bytes, at most `limit`, or the failure at least once. One fetch
    /// at a time.
    void fetch(const QUrl &address, qint64 limit, const Content &done);

private:
    void request(const QUrl &address);
    void read(QNetworkReply *reply);
    void finish(QNetworkReply *reply);

    QUrl m_feed;
    Failure m_failure;
    QNetworkAccessManager m_network;
    QByteArray m_content;
    qint64 m_limit = 0;
    Content m_done;
    int m_redirectionsLeft = 0;
};

}
