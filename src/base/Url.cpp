// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/Url.h"

#include <algorithm>

#include <arpa/inet.h>

namespace Tessel {

namespace {

// Character classes of RFC 3986 (appendix A), over ASCII.

bool isLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isHexDigit(QChar c)
{
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// Only unreserved characters, sub-delims, percent-encoded octets and the further ones given.
bool consistsOf(QStringView part, QStringView further)
{
    for (qsizetype i = 0; i < part.size(); ++i) {
        const QChar c = part[i];
        if (c == u'%') {
            if (part.size() - i < 3 || !isHexDigit(part[i + 1]) || !isHexDigit(part[i + 2]))
                return false;
            i += 2;
        } else if (!isLetter(c) && !isDigit(c) && !QStringView(u"-._~!$&'()*+,;=").contains(c)
                   && !further.contains(c)) {
            return false;
        }
    }
    return true;
}

/// The part of an IP-literal between the brackets.
bool isIpLiteral(QStringView text)
{
    if (text.startsWith(u'v') || text.startsWith(u'V')) {
        const qsizetype dot = text.indexOf(u'.');
        return dot > 1 && dot + 1 < text.size() && !text.contains(u'%')
            && std::all_of(text.begin() + 1, text.begin() + dot, isHexDigit)
            && consistsOf(text.mid(dot + 1), u":");
    }
    in6_addr address;
    return inet_pton(AF_INET6, text.toLatin1().constData(), &address) == 1;
}

bool isAuthority(QStringView text)
{
    if (const qsizetype at = text.indexOf(u'@'); at >= 0) {
        if (!consistsOf(text.left(at), u":"))
            return false;
        text = text.mid(at + 1);
    }
    qsizetype hostEnd = text.indexOf(u':');
    if (text.startsWith(u'[')) {
        hostEnd = text.indexOf(u']') + 1;
        if (hostEnd == 0 || !isIpLiteral(text.mid(1, hostEnd - 2)))
            return false;
    } else if (!consistsOf(hostEnd < 0 ? text : text.left(hostEnd), u"")) {
        return false;
    }
    const QStringView port = hostEnd < 0 ? QStringView() : text.mid(hostEnd);
    return port.isEmpty()
        || (port.front() == u':' && std::all_of(port.begin() + 1, port.end(), isDigit));
}

/// scheme ":" [ "//" authority ] path [ "?" query ] [ "#" fragment ]
bool isUri(QStringView text)
{
    const QStringView scheme = Url::schemeOf(text);
    if (scheme.isEmpty())
        return false;
    QStringView rest = text.mid(scheme.size() + 1);
    const auto cutFrom = [&rest](QChar mark) {
        const qsizetype start = rest.indexOf(mark);
        const QStringView cut = start < 0 ? QStringView() : rest.mid(start + 1);
        rest = start < 0 ? rest : rest.left(start);
        return cut;
    };
    if (!consistsOf(cutFrom(u'#'), u":@/?") || !consistsOf(cutFrom(u'?'), u":@/?"))
        return false;
    if (rest.startsWith(u"//")) {
        const qsizetype slash = rest.indexOf(u'/', 2);
        const qsizetype end = slash < 0 ? rest.size() : slash;
        if (!isAuthority(rest.mid(2, end - 2)))
            return false;
        rest = rest.mid(end);
    }
    return consistsOf(rest, u":@/");
}

/// Behind the scheme's colon: where the path of a URL begins.
qsizetype pathStart(QStringView text)
{
    const qsizetype start = Url::schemeOf(text).size() + 1;
    if (!text.mid(start).startsWith(u"//"))
        return start;
    const auto *end = std::find_if(text.begin() + start + 2, text.end(),
                                   [](QChar c) { return QStringView(u"/?#").contains(c); });
    return end - text.begin();
}

/// Encodes non-ASCII characters, and in path, query and fragment those ASCII ones that browsers
/// accept there and RFC 3986 does not. Spaces and control characters are not among them.
QString percentEncoded(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    const qsizetype path = text.first(std::min(pathStart(text), text.size())).toUtf8().size();
    QByteArray encoded;
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        const char byte = utf8[i];
        const bool isEncoded = static_cast<unsigned char>(byte) >= 0x80
            || (i >= path && QByteArrayView("\"<>[\\]^`{|}").contains(byte));
        encoded += isEncoded ? QByteArray(1, byte).toPercentEncoding() : QByteArray(1, byte);
    }
    return QString::fromLatin1(encoded);
}

}

QStringView Url::schemeOf(QStringView text)
{
    const qsizetype colon = text.indexOf(u':');
    const QStringView scheme = colon < 0 ? QStringView() : text.left(colon);
    const bool isScheme = !scheme.isEmpty() && isLetter(scheme.front())
        && std::all_of(scheme.begin(), scheme.end(), [](QChar c) {
               return isLetter(c) || isDigit(c) || QStringView(u"+-.").contains(c);
           });
    return isScheme ? scheme : QStringView();
}

// Not by QUrl: even in StrictMode it takes brackets in a path, rewrites a second '#', and refuses
// an underscore in a host.
std::optional<QString> Url::validated(const QString &text)
{
    if (!text.isValidUtf16())
        return std::nullopt;
    const QString url = percentEncoded(text);
    if (!isUri(url))
        return std::nullopt;
    return url;
}

}
