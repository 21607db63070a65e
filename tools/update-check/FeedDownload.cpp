// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/FeedDownload.h"

#include "update-check/FeedAddress.h"

#include <QNetworkReply>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int mostRedirections = 5;
constexpr qint64 chunkSize = 65536; ///< what may arrive before it is counted

}

FeedDownload::FeedDownload(QUrl feed, Failure failure)
    : m_feed(std::move(feed))
    , m_failure(std::move(failure))
{
}

void FeedDownload::fetch(const QUrl &address, qint64 limit, const Content &done)
{
    m_limit = limit;
    m_done = done;
    m_redirectionsLeft = mostRedirections;
    request(address);
}

void FeedDownload::request(const QUrl &address)
{
    if (!isFetchable(address, m_feed)) {
        m_failure(u"The update feed is at an address that is not HTTPS."_s);
        return;
    }
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setRawHeader("Accept-Encoding", "identity"); // the signature is over these very bytes
    request.setRawHeader("Accept-Language", "en"); // not the user's
    request.setRawHeader("User-Agent", "Tessel");
    m_content.clear();
    QNetworkReply *reply = m_network.get(request);
    reply->setReadBufferSize(chunkSize);
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] { read(reply); });
    connect(reply, &QNetworkReply::finished, this, [this, reply] { finish(reply); });
}

void FeedDownload::read(QNetworkReply *reply)
{
    m_content += reply->readAll();
    if (m_content.size() <= m_limit)
        return;
    m_failure(u"The server sends more than %1 KiB."_s.arg(m_limit / 1024));
    reply->disconnect(this);
    reply->abort();
}

void FeedDownload::finish(QNetworkReply *reply)
{
    reply->deleteLater();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (status >= 300 && status < 400 && !target.isEmpty()) {
        if (m_redirectionsLeft-- > 0)
            request(reply->url().resolved(target));
        else
            m_failure(u"The server redirects too many times."_s);
    } else if (status != 0 && status != 200) {
        m_failure(u"The server answered with status %1."_s.arg(status));
    } else if (reply->error() == QNetworkReply::RemoteHostClosedError) {
        m_failure(u"The connection ended before the answer was complete."_s);
    } else if (reply->error() != QNetworkReply::NoError) {
        m_failure(u"The server cannot be reached: %1."_s.arg(reply->errorString()));
    } else {
        const Content done = std::exchange(m_done, {}); // it may fetch the next file
        done(std::exchange(m_content, {}));
    }
}

}
