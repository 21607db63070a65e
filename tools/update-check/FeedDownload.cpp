// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/FeedDownload.h"

#include "base/LocalizationManager.h"
#include "update-check/FeedAddress.h"

#include <QNetworkReply>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int maxRedirections = 5;
constexpr qint64 chunkSize = 65536; ///< what may arrive before it is counted

}

FeedDownload::FeedDownload(QUrl feed)
    : m_feed(std::move(feed))
{
}

void FeedDownload::fetch(const QUrl &address, qint64 maxSize, const Done &done)
{
    m_maxSize = maxSize;
    m_done = done;
    m_redirectionsLeft = maxRedirections;
    request(address);
}

void FeedDownload::request(const QUrl &address)
{
    if (!isFetchable(address, m_feed))
        return report(
            Failure { localized(u"The update feed is at an address that is not HTTPS."_s) });
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
    if (m_content.size() <= m_maxSize)
        return;
    reply->disconnect(this);
    reply->abort();
    report(Failure { localized(u"The server sends more than %1 KiB."_s).arg(m_maxSize / 1024) });
}

void FeedDownload::finish(QNetworkReply *reply)
{
    reply->deleteLater();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (status >= 300 && status < 400 && !target.isEmpty()) {
        if (m_redirectionsLeft-- > 0)
            return request(reply->url().resolved(target));
        return report(Failure { localized(u"The server redirects too many times."_s) });
    }
    if (status != 0 && status != 200)
        return report(Failure { localized(u"The server answered with status %1."_s).arg(status) });
    if (reply->error() == QNetworkReply::RemoteHostClosedError)
        return report(
            Failure { localized(u"The connection ended before the answer was complete."_s) });
    if (reply->error() != QNetworkReply::NoError)
        return report(Failure {
            localized(u"The server cannot be reached: %1."_s).arg(reply->errorString()) });
    report(std::exchange(m_content, {}));
}

void FeedDownload::report(const Result<QByteArray> &result)
{
    if (const Done done = std::exchange(m_done, {})) // it may fetch the next file
        done(result);
}

}
