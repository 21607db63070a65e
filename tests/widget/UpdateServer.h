// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

#include <openssl/evp.h>

namespace Tessel {

/// Answers by path with bytes as they are; with nothing, and an open connection, where they are
/// empty; with 404 where there is no answer.
class UpdateServer final : public QTcpServer
{
public:
    UpdateServer()
    {
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
            connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
                ++disconnections;
                socket->deleteLater();
            });
        });
        listen(QHostAddress::LocalHost);
    }

    QHash<QByteArray, QByteArray> answers;
    QList<QByteArray> requests; ///< heads
    int disconnections = 0;

private:
    void answer(QTcpSocket *socket)
    {
        const QByteArray head = socket->readAll(); // a small request comes in one piece
        requests += head;
        const QByteArray bytes
            = answers.value(head.split(' ').value(1), "HTTP/1.1 404 Not Found\r\n\r\n");
        if (bytes.isEmpty())
            return;
        socket->write(bytes);
        socket->disconnectFromHost();
    }
};

inline QByteArray ok(const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n"
        + body;
}

inline QByteArray redirect(const QByteArray &target)
{
    return "HTTP/1.1 302 Found\r\nLocation: " + target + "\r\nContent-Length: 0\r\n\r\n";
}

inline QByteArray feed(const QByteArray &version, const QByteArray &more = {})
{
    return "<rss xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel>"
           "<item><sparkle:version>"
        + version + "</sparkle:version>" + more + "</item></channel></rss>";
}

/// By the owner of the feed, whose private key is 32 times "s".
inline QByteArray sign(const QByteArray &data)
{
    const auto bytes = [](const QByteArray &array) {
        return reinterpret_cast<const unsigned char *>(array.data());
    };
    unsigned char raw[64];
    size_t size = sizeof raw;
    EVP_PKEY *key
        = EVP_PKEY_new_raw_private_key(EVP_PKEY_ED25519, nullptr, bytes(QByteArray(32, 's')), 32);
    EVP_MD_CTX *context = EVP_MD_CTX_new();
    EVP_DigestSignInit(context, nullptr, nullptr, nullptr, key);
    EVP_DigestSign(context, raw, &size, bytes(data), size_t(data.size()));
    EVP_MD_CTX_free(context);
    EVP_PKEY_free(key);
    return QByteArray(reinterpret_cast<char *>(raw), qsizetype(size)).toBase64() + '\n';
}

}
