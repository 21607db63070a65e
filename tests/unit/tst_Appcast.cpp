// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/Appcast.h"
#include "update-check/CheckResult.h"
#include "update-check/FeedAddress.h"
#include "update-check/FeedSignature.h"
#include "update-check/ReleaseNotes.h"
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
        for (const QString &other :
             { u"1.2.0-rc.1"_s, u"1.2rc1"_s, u"1.02-RC.01"_s, u"1.2-rc.1+build.7"_s }) {
            QVERIFY2(isVersion(other), qUtf8Printable(other));
            QVERIFY2(std::is_eq(compareVersions(other, u"1.2-rc.1")), qUtf8Printable(other));
        }
        for (const QString &other : { QString(), u"v1.2"_s, u"1.2 (3)"_s, u"1.2\n"_s, u"1<b>"_s,
                                      u"1.٣"_s, QString(65, u'1') })
            QVERIFY2(!isVersion(other), qUtf8Printable(other));
    }

    void findsTheNewestItem_data()
    {
        QTest::addColumn<QByteArray>("items");
        QTest::addColumn<QStringList>("expected"); // version, displayed version, link, notes
        const auto row = [](const char *name, const QByteArray &items, const QString &version,
                            const QString &displayVersion, const QString &link,
                            const QString &notes) {
            QTest::newRow(name) << items << QStringList { version, displayVersion, link, notes };
        };
        row("elements",
            "<item><title>T</title><link> https://a/ </link><description>N</description>"
            "<sparkle:version>\n2.0\n</sparkle:version>"
            "<sparkle:shortVersionString>2.0 Winter</sparkle:shortVersionString></item>",
            u"2.0"_s, u"2.0 Winter"_s, u"https://a/"_s, u"N"_s);
        row("attributes",
            "<item><enclosure url='https://a/b.deb' sparkle:version='2.1' "
            "sparkle:shortVersionString='2.1 beta'/></item>",
            u"2.1"_s, u"2.1 beta"_s, {}, {});
        row("short version only",
            "<item><sparkle:shortVersionString>1.4</sparkle:shortVersionString></item>", u"1.4"_s,
            u"1.4"_s, {}, {});
        row("unordered, with another prefix",
            "<item><enclosure sparkle:version='3'/><sparkle:version>1.9</sparkle:version></item>"
            "<item><v:version xmlns:v='http://www.andymatuschak.org/xml-namespaces/sparkle'>1.10"
            "</v:version></item><item><enclosure sparkle:version='1.2'/></item>",
            u"1.10"_s, u"1.10"_s, {}, {});
        row("not for this program",
            "<item><enclosure sparkle:version='9'/><sparkle:channel>beta</sparkle:channel></item>"
            "<item><enclosure sparkle:version='8' sparkle:os='windows'/></item>"
            "<item><enclosure sparkle:version='latest'/></item>"
            "<item><version>7</version><x:version xmlns:x='urn:x'>6</x:version>"
            "<sparkle:deltas><enclosure sparkle:version='5'/></sparkle:deltas>"
            "<enclosure sparkle:version='1' sparkle:os='linux'/></item>",
            u"1"_s, u"1"_s, {}, {});
        row("link to the notes",
            "<item><title>Bigger</title><sparkle:version>1</sparkle:version>"
            "<sparkle:releaseNotesLink>https://n/</sparkle:releaseNotesLink></item>",
            u"1"_s, u"1"_s, u"https://n/"_s, u"Bigger\nhttps://n/"_s);
        row("notes in HTML",
            "<item><sparkle:version>1</sparkle:version><description><![CDATA[<h2>New</h2>"
            "<script>x()</script><ul><li>A &amp; B</li></ul>]]></description></item>",
            u"1"_s, u"1"_s, {}, u"New\n\n• A & B"_s);
    }

    void findsTheNewestItem()
    {
        QFETCH(QByteArray, items);
        const AppcastResult result = parseAppcast(feed(items));
        QCOMPARE(result.error, QString());
        const Release newest = result.newest.value_or(Release());
        QTEST((QStringList { newest.version, newest.displayVersion, newest.link, newest.notes }),
              "expected");
    }

    void refusesInvalidFeeds_data()
    {
        QTest::addColumn<QByteArray>("xml");
        const QByteArray item = "<item><enclosure sparkle:version='9'/></item>";
        const QByteArray good = feed(item);
        const QByteArray rss = good.mid(good.indexOf("<rss"));
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("other XML") << QByteArray("<feed>" + item + "</feed>");
        QTest::newRow("truncated") << good.chopped(3);
        QTest::newRow("more after it") << good + "<x/>";
        QTest::newRow("no items") << feed({});
        QTest::newRow("undeclared prefix") << feed("<item><s:version>1</s:version></item>");
        QTest::newRow("entities") << "<!DOCTYPE rss [<!ENTITY a 'x'><!ENTITY b '&a;&a;&a;'>]>"
                + rss;
        QTest::newRow("external entity") << "<!DOCTYPE rss SYSTEM 'file:///etc/passwd'>" + rss;
        QTest::newRow("not UTF-8") << feed(item + "<title>\xff\xfe</title>");
    }

    void refusesInvalidFeeds()
    {
        QFETCH(QByteArray, xml);
        const AppcastResult result = parseAppcast(xml);
        QVERIFY(!result.newest && !result.error.isEmpty());
    }

    void makesNotesPlain_data()
    {
        QTest::addColumn<QString>("notes");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QString &notes, const QString &expected) {
            QTest::newRow(name) << notes << expected;
        };
        row("plain text", u" a < b && c > d\r\n\r\n\r\n\r\nsecond  \nthird "_s,
            u"a < b && c > d\n\nsecond\nthird"_s);
        row("paragraphs", u"<p>one\ntwo</p>\n<P class='x'>three<br/>four</P>"_s,
            u"one two\n\nthree\nfour"_s);
        row("image and link", u"<img src='https://spy/'><a href='javascript:x'>here</a>"_s,
            u"here"_s);
        row("comment, style", u"<!-- <p> --><style>p { }</style><b>x</b>"_s, u"x"_s);
        row("unclosed script", u"<script>"_s, {});
        row("escaped tags stay text", u"<p>&lt;b&gt; &amp;lt;</p>"_s, u"<b> &lt;"_s);
        row("control and direction", u"a\u202eb\u0007c\u2066d\u009b"_s, u"abcd"_s);
    }

    void makesNotesPlain()
    {
        QFETCH(QString, notes);
        QTEST(plainText(notes), "expected");
        QVERIFY(plainText(notes.repeated(30'000)).size() <= 20000);
    }

    void verifiesSignatures_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QByteArray>("signature");
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<bool>("expected");
        // RFC 8032, 7.1, tests 1 and 3
        const auto base64 = [](const char *hex) { return QByteArray::fromHex(hex).toBase64(); };
        const QByteArray key1
            = base64("d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a");
        const QByteArray signature1
            = base64("e5564300c360ac729086e2cc806e828a84877f1eb8e5d974d873e065224901555"
                     "fb8821590a33bacc61e39701cf9b46bd25bf5f0595bbe24655141438e7a100b");
        const QByteArray key3
            = base64("fc51cd8e6218a1a38da47ed00230f0580816ed13ba3303ac5deb911548908025");
        const QByteArray signature3
            = base64("6291d657deec24024827e69c3abe01a30ce548a284743a445e3680d7db5ac3ac1"
                     "8ff9b538d16f290ae67f760984dc6594a7c15e9716ed28dc027beceea1ec40a");
        const QByteArray data3 = "\xaf\x82";
        QByteArray tampered = QByteArray::fromBase64(signature3);
        const QByteArray shortened = tampered.chopped(1).toBase64();
        tampered[10] = char(tampered[10] ^ 1);
        QTest::newRow("empty data") << key1 << signature1 << QByteArray() << true;
        QTest::newRow("line end") << key3 << signature3 + "\n" << data3 << true;
        QTest::newRow("other key") << key1 << signature3 << data3 << false;
        QTest::newRow("no key") << QByteArray() << signature3 << data3 << false;
        QTest::newRow("tampered data") << key3 << signature3 << QByteArray("\xaf\x83") << false;
        QTest::newRow("longer data") << key3 << signature3 << data3 + '\n' << false;
        QTest::newRow("tampered signature") << key3 << tampered.toBase64() << data3 << false;
        QTest::newRow("short signature") << key3 << shortened << data3 << false;
        QTest::newRow("no signature") << key3 << QByteArray() << data3 << false;
        QTest::newRow("not Base64") << key3 << signature3 + "?" << data3 << false;
    }

    void verifiesSignatures()
    {
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, signature);
        QFETCH(QByteArray, data);
        QTEST(isSignedBy(key, signature, data), "expected");
    }

    void judges()
    {
        using enum CheckResult::Status;
        const auto status = [](const QString &offered, const QString &own, const QString &seen) {
            return judge({ offered, {}, {}, {} }, own, seen).status;
        };
        QCOMPARE(status(u"1.1"_s, u"1.0"_s, {}), newer);
        QCOMPARE(status(u"1.1"_s, u"1.0"_s, u"1.1.0"_s), newer);
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
        QVERIFY(fetches("http://[::1]:8/f", "http://[::1]/f"));
        QVERIFY(fetches("http://127.0.0.1/f", "https://b/f"));
        QVERIFY(!fetches("https://a/f", "http://a/f"));
        QVERIFY(!fetches("http://a/f", "http://a/f"));
        QVERIFY(!fetches("https://a/f", "http://127.0.0.1/f"));
        QVERIFY(!fetches("http://127.0.0.1/f", "http://127.0.0.1.b/f"));
        QVERIFY(!fetches("http://127.0.0.1/f", "http://127.0.0.1@b/f"));
        QVERIFY(!fetches("https://a/f", "file:///f"));
        QVERIFY(!fetches("file:///f", "file:///f"));
        QVERIFY(!fetches("https://a/f", "https:///f"));
    }

    void findsTheSignature()
    {
        QCOMPARE(
            signatureAddress(QUrl(u"https://a/b%20c/f%3F.xml?x=1"_s)).toString(QUrl::FullyEncoded),
            u"https://a/b%20c/f%3F.xml.sig?x=1"_s);
    }
};

QTEST_GUILESS_MAIN(tst_Appcast)
#include "tst_Appcast.moc"
