// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "Log.h"
#include "UpdateWindow.h"
#include "UpdaterController.h"
#include "platform/fake/FakePlatform.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <openssl/evp.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 20000; // milliseconds

/// Answers by path with bytes as they are; with nothing, and an open connection, where they are
/// empty; with 404 where there is no answer.
class Server final : public QTcpServer
{
public:
    Server()
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

    [[nodiscard]] QString url(const QString &path = u"/feed"_s) const
    {
        return u"http://127.0.0.1:%1%2"_s.arg(serverPort()).arg(path);
    }

    QHash<QByteArray, QByteArray> answers;
    QList<QByteArray> requests; ///< heads
    int disconnections = 0;

private:
    void answer(QTcpSocket *socket)
    {
        const QByteArray head = socket->readAll(); // a small request comes in one piece
        requests += head;
        const QByteArray bytes = answers.value(head.split(' ').value(1),
                                               "HTTP/1.1 404 Not Found\r\n"
                                               "Content-Length: 2\r\n\r\nno");
        if (bytes.isEmpty())
            return;
        socket->write(bytes);
        socket->disconnectFromHost();
    }
};

QByteArray ok(const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n"
        + body;
}

QByteArray redirect(const QByteArray &target)
{
    return "HTTP/1.1 302 Found\r\nLocation: " + target + "\r\nContent-Length: 0\r\n\r\n";
}

QByteArray feed(const QByteArray &version, const QByteArray &more = {})
{
    return "<rss xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel>"
           "<item><sparkle:version>"
        + version + "</sparkle:version>" + more + "</item></channel></rss>";
}

/// The owner of the feed, with a fixed key.
class Signer final
{
public:
    Signer()
    {
        const QByteArray seed(32, 's');
        m_key = EVP_PKEY_new_raw_private_key(
            EVP_PKEY_ED25519, nullptr, reinterpret_cast<const unsigned char *>(seed.data()), 32);
    }
    ~Signer() { EVP_PKEY_free(m_key); }
    Q_DISABLE_COPY_MOVE(Signer)

    [[nodiscard]] QString publicKey() const
    {
        QByteArray raw(32, '\0');
        size_t size = 32;
        EVP_PKEY_get_raw_public_key(m_key, reinterpret_cast<unsigned char *>(raw.data()), &size);
        return QString::fromLatin1(raw.toBase64());
    }

    [[nodiscard]] QByteArray sign(const QByteArray &data) const
    {
        QByteArray raw(64, '\0');
        size_t size = 64;
        EVP_MD_CTX *context = EVP_MD_CTX_new();
        EVP_DigestSignInit(context, nullptr, nullptr, nullptr, m_key);
        EVP_DigestSign(context, reinterpret_cast<unsigned char *>(raw.data()), &size,
                       reinterpret_cast<const unsigned char *>(data.data()), size_t(data.size()));
        EVP_MD_CTX_free(context);
        return raw.toBase64() + '\n';
    }

private:
    EVP_PKEY *m_key;
};

/// A program of version 1.0 that finds its feed on a server of this machine.
struct Fixture
{
    Fixture()
    {
        QTest::failOnWarning(
            QRegularExpression(u"^(?!This plugin does not support (propagateSizeHints|raise))"_s));
        Log::setSink([this](QStringView line) { log += line.toString(); });
    }
    ~Fixture() { Log::setSink({}); }
    Q_DISABLE_COPY_MOVE(Fixture)

    void publish(const QByteArray &content)
    {
        server.answers[QByteArray("/feed")] = ok(content);
        server.answers[QByteArray("/feed.sig")] = ok(signer.sign(content));
    }

    void remember(const QString &highestVersion, const QString &lastCheck = {})
    {
        QVERIFY(QDir().mkpath(folder.filePath(u"state"_s)));
        QFile file(dependencies.stateFile);
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QJsonObject state { { u"highestVersion"_s, highestVersion },
                                  { u"lastCheck"_s, lastCheck } };
        file.write(QJsonDocument(state).toJson());
    }

    [[nodiscard]] QString remembered(const QString &member = u"highestVersion"_s) const
    {
        QFile file(dependencies.stateFile);
        return file.open(QIODevice::ReadOnly)
            ? QJsonDocument::fromJson(file.readAll()).object().value(member).toString()
            : QString();
    }

    [[nodiscard]] UpdaterController &start()
    {
        controller = std::make_unique<UpdaterController>(dependencies);
        return *controller;
    }

    [[nodiscard]] static UpdateWindow *window()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *found = qobject_cast<UpdateWindow *>(widget); found && found->isVisible())
                return found;
        }
        return nullptr;
    }

    [[nodiscard]] static QString text(const QString &name)
    {
        return window() ? window()->findChild<QLabel *>(name)->text() : QString();
    }

    [[nodiscard]] static bool hasResult()
    {
        return window() && !text(u"title"_s).startsWith(u"Checking");
    }

    QTemporaryDir folder;
    Server server;
    Signer signer;
    FakePlatform platform;
    QStringList log;
    QDateTime time = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);
    UpdaterController::Dependencies dependencies {
        .workspace = platform.workspace(),
        .helperPath = QStringLiteral(TESSEL_UPDATE_HELPER),
        .feed = server.url(),
        .publicKey = signer.publicKey(),
        .stateFile = folder.filePath(u"state/updates.json"_s),
        .currentVersion = u"1.0"_s,
        .now = [this] { return time; },
        .firstCheckDelay = 1h,
    };
    std::unique_ptr<UpdaterController> controller;
};

using Prepare = std::function<void(Fixture &)>;

}

Q_DECLARE_METATYPE(Prepare)

class tst_UpdaterController : public QObject
{
    Q_OBJECT

    const QString m_newer = u"A new version is available"_s;
    const QString m_newest = u"You have the newest version"_s;
    const QString m_failed = u"The check for updates failed"_s;

    /// What a server, or someone in between, may do, and what the user is told.
    void addSituations(bool onlyFailures)
    {
        QTest::addColumn<Prepare>("prepare");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        const auto row = [&](const char *name, const QString &title, const QString &text,
                             const Prepare &prepare) {
            if (!onlyFailures || title == m_failed)
                QTest::newRow(name) << prepare << title << text;
        };
        const auto answer = [](const QByteArray &path, const QByteArray &bytes) {
            return Prepare([path, bytes](Fixture &f) {
                f.publish(feed("2.0"));
                f.server.answers[path] = bytes;
            });
        };
        const QByteArray big(1024 * 1024 + 1, ' ');
        row("newer", m_newer, u"Tessel 2.0 is available. You have 1.0."_s,
            [](Fixture &f) { f.publish(feed("2.0")); });
        row("same", m_newest, u"1.0"_s, [](Fixture &f) { f.publish(feed("1.0.0")); });
        row("older than this one", m_newest, u"1.0"_s, [](Fixture &f) { f.publish(feed("0.9")); });
        row("as large as allowed", m_newer, u"2.0"_s, [big](Fixture &f) {
            const QByteArray content = feed("2.0");
            f.publish(content + big.chopped(content.size() + 1));
        });
        row("five redirections", m_newer, u"2.0"_s, [](Fixture &f) {
            const QByteArray content = feed("2.0");
            f.publish(content);
            f.server.answers[QByteArray("/feed")] = redirect("/1");
            for (int i = 1; i < 5; ++i)
                f.server.answers["/" + QByteArray::number(i)]
                    = redirect("/" + QByteArray::number(i + 1));
            f.server.answers[QByteArray("/5")] = ok(content);
        });
        row("older than one seen", m_failed, u"older"_s, [](Fixture &f) {
            f.publish(feed("2.0"));
            f.remember(u"2.1"_s);
        });
        row("signed by another", m_failed, u"signature"_s,
            answer("/feed.sig", ok(QByteArray(64, 'x').toBase64())));
        row("not what was signed", m_failed, u"signature"_s, answer("/feed", ok(feed("3.0"))));
        row("no signature", m_failed, u"404"_s, [](Fixture &f) {
            f.publish(feed("2.0"));
            f.server.answers.remove("/feed.sig");
        });
        row("large signature", m_failed, u"more than 1 KiB"_s,
            answer("/feed.sig", ok(QByteArray(1025, 'A'))));
        row("truncated", m_failed, u"before the answer was complete"_s,
            answer("/feed", ok(feed("2.0")).chopped(5)));
        row("truncated chunks", m_failed, u"before the answer was complete"_s,
            answer("/feed", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n<rss>\r\n"));
        row("too large", m_failed, u"more than 1024 KiB"_s, answer("/feed", ok(big)));
        row("too large, size untold", m_failed, u"more than 1024 KiB"_s,
            answer("/feed", "HTTP/1.1 200 OK\r\n\r\n" + big.repeated(8)));
        row("404", m_failed, u"404"_s, [](Fixture &) {});
        row("500", m_failed, u"500"_s, answer("/feed", "HTTP/1.1 500 Oops\r\n\r\n"));
        row("not HTTP", m_failed, u"."_s, answer("/feed", "SSH-2.0-x\r\n"));
        row("refused", m_failed, u"cannot be reached"_s, [](Fixture &f) { f.server.close(); });
        row("never answers", m_failed, u"in time"_s, [answer](Fixture &f) {
            answer("/feed", {})(f);
            f.dependencies.timeout = 1s;
        });
        row("stops in the middle", m_failed, u"in time"_s, [answer](Fixture &f) {
            answer("/feed.sig", {})(f);
            f.dependencies.timeout = 1s;
        });
        row("redirects to a file", m_failed, u"not HTTPS"_s,
            answer("/feed", redirect("file:///etc/passwd")));
        row("redirects to FTP", m_failed, u"not HTTPS"_s,
            answer("/feed", redirect("ftp://127.0.0.1/feed")));
        row("redirects to HTTP elsewhere", m_failed, u"not HTTPS"_s,
            answer("/feed", redirect("http://127.0.0.1.invalid/feed")));
        row("redirects in a circle", m_failed, u"too many times"_s,
            answer("/feed", redirect("/feed")));
        row("signed, but not a feed", m_failed, u"not valid"_s,
            [](Fixture &f) { f.publish("<html/>"); });
        row("no such helper", m_failed, u"program"_s,
            [](Fixture &f) { f.dependencies.helperPath = u"/nowhere"_s; });
        row("a helper that hangs", m_failed, u"program"_s, [](Fixture &f) {
            f.dependencies.helperPath = f.folder.filePath(u"helper"_s);
            QFile script(f.dependencies.helperPath);
            QVERIFY(script.open(QIODevice::WriteOnly));
            script.write("#!/bin/sh\nexec sleep 60\n");
            QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
            f.dependencies.timeout = 50ms;
        });
        row("another program", m_failed, u"program"_s,
            [](Fixture &f) { f.dependencies.helperPath = u"/bin/true"_s; });
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *variable : { "http_proxy", "https_proxy", "all_proxy", "no_proxy" }) {
            qunsetenv(variable);
            qunsetenv(QByteArray(variable).toUpper());
        }
    }

    void tellsWhoAsks_data() { addSituations(false); }

    void tellsWhoAsks()
    {
        QFETCH(Prepare, prepare);
        QFETCH(QString, title);
        QFETCH(QString, text);
        Fixture f;
        prepare(f);
        f.start().checkForUpdates();
        QVERIFY(f.window()); // at once
        QTRY_VERIFY_WITH_TIMEOUT(f.hasResult(), patience);
        QCOMPARE(f.text(u"title"_s), title);
        QVERIFY2(f.text(u"text"_s).contains(text), qUtf8Printable(f.text(u"text"_s)));
        QCOMPARE(f.log, QStringList());
    }

    void failsQuietlyByItself_data() { addSituations(true); }

    void failsQuietlyByItself()
    {
        QFETCH(Prepare, prepare);
        QFETCH(QString, text);
        Fixture f;
        prepare(f);
        const QString seen = f.remembered();
        f.dependencies.firstCheckDelay = 1ms;
        static_cast<void>(f.start());
        QTRY_COMPARE_WITH_TIMEOUT(f.log.size(), 1, patience);
        QVERIFY2(f.log[0].startsWith(u"WARNING: update check failed: ") && f.log[0].contains(text),
                 qUtf8Printable(f.log[0]));
        QVERIFY(!f.window());
        QCOMPARE(f.remembered(), seen);
    }

    void announcesNewsOnce()
    {
        Fixture f;
        f.publish(feed("2.0"));
        f.dependencies.firstCheckDelay = 1ms;
        f.dependencies.checkInterval = 50ms;
        f.dependencies.now = &QDateTime::currentDateTimeUtc;
        static_cast<void>(f.start());
        QTRY_VERIFY_WITH_TIMEOUT(f.window(), patience);
        QCOMPARE(f.text(u"title"_s), m_newer);
        QVERIFY(f.window()->testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(!f.window()->isModal());
        QCOMPARE(f.remembered(), u"2.0"_s);
        QTest::keyClick(f.window(), Qt::Key_Escape);
        QVERIFY(!f.window());

        const qsizetype before = f.server.requests.size();
        QTRY_VERIFY_WITH_TIMEOUT(f.server.requests.size() >= before + 4,
                                 patience); // feed and signature, twice
        QVERIFY(!f.window());
        f.publish(feed("2.1"));
        QTRY_VERIFY_WITH_TIMEOUT(f.window(), patience);
        QVERIFY(f.text(u"text"_s).contains(u"2.1"));
    }

    void isQuietWithoutNews()
    {
        Fixture f;
        f.publish(feed("1.0"));
        f.dependencies.firstCheckDelay = 1ms;
        static_cast<void>(f.start());
        QTRY_COMPARE_WITH_TIMEOUT(f.remembered(), u"1.0"_s, patience);
        QVERIFY(!f.window());
        QCOMPARE(f.log, QStringList());
        for (const QByteArray &request : std::as_const(f.server.requests)) {
            QVERIFY2(request.contains("User-Agent: Tessel\r\n"), request);
            QVERIFY2(!request.toLower().contains("cookie"), request);
        }
    }

    void checksOnceADay_data()
    {
        QTest::addColumn<QString>("lastCheck");
        QTest::addColumn<bool>("isDue");
        QTest::newRow("never") << QString() << true;
        QTest::newRow("just now") << u"2026-03-01T11:59:00Z"_s << false;
        QTest::newRow("almost a day ago") << u"2026-02-28T12:00:10Z"_s << false;
        QTest::newRow("a day ago") << u"2026-02-28T12:00:00Z"_s << true;
        QTest::newRow("by a clock that was ahead") << u"2027-01-01T00:00:00Z"_s << true;
        QTest::newRow("damaged") << u"yesterday"_s << true;
    }

    void checksOnceADay()
    {
        QFETCH(QString, lastCheck);
        QFETCH(bool, isDue);
        Fixture f;
        f.publish(feed("1.0"));
        f.remember(u"1.0"_s, lastCheck);
        f.dependencies.firstCheckDelay = 1ms;
        bool hasLooked = false;
        f.dependencies.now = [&] {
            hasLooked = true;
            return f.time;
        };
        static_cast<void>(f.start());
        QTRY_VERIFY_WITH_TIMEOUT(hasLooked, patience);
        // Written in the same turn in which it looked, before the helper starts.
        QCOMPARE(f.remembered(u"lastCheck"_s), isDue ? u"2026-03-01T12:00:00Z"_s : lastCheck);
        if (isDue)
            QTRY_COMPARE_WITH_TIMEOUT(f.server.requests.size(), 2, patience);
    }

    void runsOneCheckAndShowsOneWindow()
    {
        Fixture f;
        f.publish(feed("2.0"));
        f.remember(u"2.0"_s); // no news
        UpdaterController &controller = f.start();
        controller.checkForUpdates();
        const UpdateWindow *window = f.window();
        controller.checkForUpdates();
        QCOMPARE(f.window(), window);
        QTRY_VERIFY_WITH_TIMEOUT(f.hasResult(), patience);
        QCOMPARE(f.window(), window);
        QCOMPARE(f.server.requests.size(), 2);

        controller.checkForUpdates();
        f.window()->close();
        QTRY_COMPARE_WITH_TIMEOUT(f.server.disconnections, 4, patience);
        controller.checkForUpdates();
        QTRY_VERIFY_WITH_TIMEOUT(f.hasResult(), patience);
    }

    void endsWithItsHelper()
    {
        Fixture f;
        f.server.answers[QByteArray("/feed")] = QByteArray();
        f.start().checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(f.server.requests.size(), 1, patience);
        QCOMPARE(f.server.disconnections, 0);
        QElapsedTimer timer;
        timer.start();
        f.controller.reset();
        QVERIFY2(timer.elapsed() < 5000, "it waited for the helper's own deadline");
        QVERIFY(!f.window());
        QTRY_COMPARE_WITH_TIMEOUT(f.server.disconnections, 1, patience);
    }

    void showsHostileTextAsText()
    {
        Fixture f;
        f.publish(feed("2.0",
                       "<sparkle:shortVersionString>&lt;b>%1%2</sparkle:shortVersionString>"
                       "<description>&lt;img src='"
                           + f.server.url().toLatin1() + "'>&amp;lt;u&amp;gt;</description>"));
        f.start().checkForUpdates();
        QTRY_VERIFY_WITH_TIMEOUT(f.hasResult(), patience);
        QCOMPARE(f.text(u"text"_s), u"Tessel %1%2 is available. You have 1.0."_s);
        QCOMPARE(f.window()->findChild<QPlainTextEdit *>()->toPlainText(), u"<u>"_s);
        for (const QLabel *label : f.window()->findChildren<QLabel *>())
            QCOMPARE(label->textFormat(), Qt::PlainText);
        QCOMPARE(f.server.requests.size(), 2);
    }

    void opensOnlyWebLinks_data()
    {
        QTest::addColumn<QByteArray>("link");
        QTest::addColumn<QStringList>("opened");
        const auto row = [](const char *name, const QByteArray &link, const QStringList &opened) {
            QTest::newRow(name) << link << opened;
        };
        row("HTTPS", "https://a.invalid/%20?b=%22#c", { u"https://a.invalid/%20?b=%22#c"_s });
        row("HTTP", "HTTP://a.invalid/ü", { u"http://a.invalid/%C3%BC"_s });
        row("file", "file:///etc/passwd", {});
        row("file of a host", "file://a.invalid/x.desktop", {});
        row("FTP", "ftp://a.invalid/", {});
        row("script", "javascript:alert(1)", {});
        row("option", "--help", {});
        row("no host", "https:///a", {});
        row("spaces", "https://a.invalid/ --help", {});
        row("none", "", {});
    }

    void opensOnlyWebLinks()
    {
        QFETCH(QByteArray, link);
        QFETCH(QStringList, opened);
        Fixture f;
        f.publish(feed("2.0", "<link>" + link + "</link>"));
        f.start().checkForUpdates();
        QTRY_VERIFY_WITH_TIMEOUT(f.hasResult(), patience);
        auto *button = f.window()->findChild<QPushButton *>(u"link"_s);
        QCOMPARE(button->isVisible(), !opened.isEmpty());
        if (button->isVisible())
            button->click();
        QCOMPARE(f.platform.workspace().opened, opened);
    }

    void knowsItsSurroundings()
    {
        Fixture f;
        qputenv("XDG_STATE_HOME", "relative");
        const auto standard = UpdaterController::standard(f.platform.workspace());
        QCOMPARE(standard.helperPath, QStringLiteral(TESSEL_UPDATE_HELPER));
        QCOMPARE(standard.stateFile, QDir::homePath() + u"/.local/state/tessel/updates.json"_s);
        qputenv("XDG_STATE_HOME", "/s");
        QCOMPARE(UpdaterController::standard(f.platform.workspace()).stateFile,
                 u"/s/tessel/updates.json"_s);
        qunsetenv("XDG_STATE_HOME");
    }

    void leavesUpdatesToThePackageManager()
    {
        Fixture f;
        f.dependencies.publicKey.clear();
        f.dependencies.firstCheckDelay = 0ms;
        f.start().checkForUpdates();
        QCOMPARE(f.text(u"title"_s), u"Updates come from your package manager"_s);
        QCoreApplication::processEvents(); // a timer of no delay would fire here
        QCOMPARE(f.server.requests.size(), 0);
        QVERIFY(!QFile::exists(f.dependencies.stateFile));
    }
};

QTEST_MAIN(tst_UpdaterController)
#include "tst_UpdaterController.moc"
