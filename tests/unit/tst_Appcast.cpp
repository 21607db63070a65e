// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/Appcast.h"
#include "update-check/CheckResult.h"
#include "update-check/FeedAddress.h"
#include "update-check/FeedSignature.h"
#include "update-check/Version.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_Appcast : public QObject
{
    Q_OBJECT

    static QByteArray feed(const QByteArray &items)
    {
        return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
               "<rss version=\"2.0\" "
               "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">"
               "<channel><title>Tessel 9.9</title><link>https://channel/</link>"
            + items + "</channel></rss>";
    }

private Q_SLOTS:
    void ordersVersions()
    {
        const QStringList ascending = u"0 0.9 1.0-alpha 1.0-alpha.1 1.0-alpha.beta 1.0-beta "
                                      "1.0-beta.2 1.0-beta11 1.0-RC1 1.0 1.0.1 1.2b3 1.2-rc1 1.2.0 "
                                      "1.10 1.10.0.1 2 10.0 99999999999999999999 "
                                      "100000000000000000000"_s.split(u' ');
        for (qsizetype i = 0; i < ascending.size(); ++i) {
            QVERIFY2(isVersion(ascending[i]), qUtf8Printable(ascending[i]));
            for (qsizetype j = 0; j < ascending.size(); ++j) {
                QVERIFY2(compareVersions(ascending[i], ascending[j]) == (i <=> j),
                         qUtf8Printable(ascending[i] + u" and "_s + ascending[j]));
            }
        }
    }

    void recognizesVersions()
    {
        QVERIFY(isVersion(u"1.2-rc.1+build.7"_s));
        QVERIFY(std::is_eq(compareVersions(u"1.02.0-RC.01+build.7", u"1.2rc1")));
        for (const QString &other : { QString(), u"v1.2"_s, u"1.2 (3)"_s, u"1.2\n"_s, u"1<b>"_s,
                                      u"1.٣"_s, QString(65, u'1') })
            QVERIFY2(!isVersion(other), qUtf8Printable(other));
    }

    void findsTheNewestItem()
    {
        const std::pair<QByteArray, Release> rows[] {
            { "<item><title>T</title><link> https://a/ </link><description>N</description>"
              "<sparkle:version>\n2.0\n</sparkle:version>"
              "<sparkle:shortVersionString>2.0 Winter</sparkle:shortVersionString></item>",
              { u"2.0"_s, u"2.0 Winter"_s, u"https://a/"_s, u"N"_s } },
            { "<item><enclosure url='https://a/b.deb' sparkle:version='2.1' "
              "sparkle:shortVersionString='2.1 beta'/></item>",
              { u"2.1"_s, u"2.1 beta"_s, {}, {} } },
            { "<item><sparkle:shortVersionString>1.4</sparkle:shortVersionString></item>",
              { u"1.4"_s, u"1.4"_s, {}, {} } },
            { "<item><enclosure sparkle:version='3'/><sparkle:version>1.9</sparkle:version></item>"
              "<item><v:version xmlns:v='http://www.andymatuschak.org/xml-namespaces/sparkle'>1.10"
              "</v:version></item><item><enclosure sparkle:version='1.2'/></item>",
              { u"1.10"_s, u"1.10"_s, {}, {} } },
            // not for this program
            { "<item><enclosure sparkle:version='9'/><sparkle:channel>beta</sparkle:channel></item>"
              "<item><enclosure sparkle:version='8' sparkle:os='windows'/></item>"
              "<item><enclosure sparkle:version='latest'/></item>"
              "<item><version>7</version><x:version xmlns:x='urn:x'>6</x:version>"
              "<sparkle:deltas><enclosure sparkle:version='5'/></sparkle:deltas>"
              "<enclosure sparkle:version='1' sparkle:os='linux'/></item>",
              { u"1"_s, u"1"_s, {}, {} } },
            { "<item><title>Bigger</title><sparkle:version>1</sparkle:version>"
              "<sparkle:releaseNotesLink>https://n/</sparkle:releaseNotesLink></item>",
              { u"1"_s, u"1"_s, u"https://n/"_s, u"Bigger\nhttps://n/"_s } },
        };
        for (const auto &[items, expected] : rows) {
            const auto newest = parseAppcast(feed(items));
            QVERIFY2(newest && *newest == expected, items);
        }
    }

    void refusesInvalidFeeds()
    {
        const QByteArray item = "<item><enclosure sparkle:version='9'/></item>";
        const QByteArray good = feed(item);
        const QByteArray rss = good.mid(good.indexOf("<rss"));
        QVERIFY(parseAppcast(rss));
        for (const QByteArray &xml :
             { "<feed>" + item + "</feed>", good.chopped(3), good + "<x/>", feed({}),
               "<!DOCTYPE rss [<!ENTITY a 'x'><!ENTITY b '&a;&a;&a;'>]>" + rss,
               "<!DOCTYPE rss SYSTEM 'file:///etc/passwd'>" + rss })
            QVERIFY2(!parseAppcast(xml), xml);
    }

    void verifiesSignatures()
    {
        // RFC 8032, 7.1, test 3; the other key is of test 1
        const QByteArray signature = QByteArray::fromHex(
            "6291d657deec24024827e69c3abe01a30ce548a284743a445e3680d7db5ac3ac1"
            "8ff9b538d16f290ae67f760984dc6594a7c15e9716ed28dc027beceea1ec40a");
        const auto key = QByteArray::fromHex(
                             "fc51cd8e6218a1a38da47ed00230f0580816ed13ba3303ac5deb911548908025")
                             .toBase64();
        const auto otherKey
            = QByteArray::fromHex(
                  "d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a")
                  .toBase64();
        const QByteArray data = "\xaf\x82";
        QByteArray tampered = signature;
        tampered[10] = char(tampered[10] ^ 1);
        QVERIFY(isSignedBy(key, signature.toBase64() + '\n', data));
        QVERIFY(!isSignedBy(key, signature.toBase64(), "\xaf\x83"));
        QVERIFY(!isSignedBy(otherKey, signature.toBase64(), data));
        QVERIFY(!isSignedBy({}, signature.toBase64(), data));
        for (const QByteArray &other : { tampered.toBase64(), signature.chopped(1).toBase64(),
                                         QByteArray(), signature.toBase64() + '?' })
            QVERIFY2(!isSignedBy(key, other, data), other);
    }

    void comparesReleases()
    {
        using enum CheckResult::Status;
        const auto status = [](const QString &offered, const QString &own, const QString &seen) {
            return compareRelease({ offered, {}, {}, {} }, own, seen).status;
        };
        QCOMPARE(status(u"1.1"_s, u"1.0"_s, {}), newer);
        QCOMPARE(status(u"1.0"_s, u"1.0"_s, u"1.0"_s), current);
        QCOMPARE(status(u"1.0"_s, u"1.1-dev"_s, {}), current);
        QCOMPARE(status(u"1.1"_s, u"1.0"_s, u"1.2"_s), stale); // rolled back
        QCOMPARE(status(u"1.0"_s, u"1.0"_s, u"1.2"_s), stale);
    }

    void knowsFetchableAddresses()
    {
        const auto fetches = [](const char *feed, const char *address) {
            return isFetchable(QUrl(QLatin1String(address)), QUrl(QLatin1String(feed)));
        };
        QVERIFY(fetches("https://a/f", "https://b/g"));
        QVERIFY(fetches("http://127.0.0.1:8/f", "http://localhost/f"));
        QVERIFY(fetches("http://127.0.0.1/f", "https://b/f"));
        QVERIFY(!fetches("https://a/f", "http://a/f"));
        QVERIFY(!fetches("http://a/f", "http://a/f"));
        QVERIFY(!fetches("https://a/f", "http://127.0.0.1/f"));
        QVERIFY(!fetches("http://127.0.0.1/f", "http://127.0.0.1.b/f"));
        QVERIFY(!fetches("http://127.0.0.1/f", "http://127.0.0.1@b/f"));
        QVERIFY(!fetches("file:///f", "file:///f"));
        QVERIFY(!fetches("https://a/f", "https:///f"));
        QCOMPARE(
            signatureAddress(QUrl(u"https://a/b%20c/f%3F.xml?x=1"_s)).toString(QUrl::FullyEncoded),
            u"https://a/b%20c/f%3F.xml.sig?x=1"_s);
    }
};

QTEST_GUILESS_MAIN(tst_Appcast)
#include "tst_Appcast.moc"
