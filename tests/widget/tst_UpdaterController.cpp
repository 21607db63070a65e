// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/UpdaterController.h"
#include "base/Log.h"
#include "platform/fake/FakePlatform.h"
#include "windows/UpdateWindow.h"

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

using namespace Tessel;
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

    [[nodiscard]] QString url() const { return u"http://127.0.0.1:%1/feed"_s.arg(serverPort()); }

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

/// By the owner of the feed, whose private key is 32 times "s".
QByteArray sign(const QByteArray &data)
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

    void serve(const QByteArray &path, const QByteArray &bytes) { server.answers[path] = bytes; }

    void publish(const QByteArray &content)
    {
        serve("/feed", ok(content));
        serve("/feed.sig", ok(sign(content)));
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

    UpdaterController &start(std::chrono::milliseconds firstCheckDelay = 1h)
    {
        dependencies.firstCheckDelay = firstCheckDelay;
        controller = std::make_unique<UpdaterController>(dependencies);
        return *controller;
    }

    [[nodiscard]] static UpdateWindow *window()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && qobject_cast<UpdateWindow *>(widget))
                return static_cast<UpdateWindow *>(widget);
        }
        return nullptr;
    }

    [[nodiscard]] static QString text(const QString &name)
    {
        return window() ? window()->findChild<QLabel *>(name)->text() : QString();
    }

    void check()
    {
        controller->checkForUpdates();
        QVERIFY(window()); // at once
        QTRY_VERIFY_WITH_TIMEOUT(!text(u"title"_s).startsWith(u"Checking"), patience);
    }

    QTemporaryDir folder;
    Server server;
    FakePlatform platform;
    QStringList log;
    const QDateTime time = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);
    UpdaterController::Dependencies dependencies {
        .workspace = platform.workspace(),
        .helperPath = QStringLiteral(TESSEL_UPDATE_HELPER),
        .feed = server.url(),
        .publicKey = u"/sFChnP2r+iSZLOAc0SuiyadElpQOFUgJofbWnEoV58="_s,
        .stateFile = folder.filePath(u"state/updates.json"_s),
        .currentVersion = u"1.0"_s,
        .now = [this] { return time; },
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

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *variable : { "http_proxy", "https_proxy", "all_proxy", "no_proxy" }) {
            qunsetenv(variable);
            qunsetenv(QByteArray(variable).toUpper());
        }
    }

    /// What a server, or someone in between, may do, and what the user is told.
    void tells_data()
    {
        QTest::addColumn<Prepare>("prepare");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        const auto row
            = [](const char *name, const QString &title, const QString &text,
                 const Prepare &prepare) { QTest::newRow(name) << prepare << title << text; };
        const auto fails = [&row, this](const char *name, const QString &text,
                                        const QByteArray &path, const QByteArray &bytes) {
            row(name, m_failed, text, [path, bytes](Fixture &f) {
                f.publish(feed("2.0"));
                f.serve(path, bytes);
                f.dependencies.timeout = bytes.isEmpty() ? 1s : f.dependencies.timeout;
            });
        };
        const QByteArray big(1024 * 1024 + 1, ' ');
        const QByteArray head = "HTTP/1.1 200 OK\r\n";
        row("newer", m_newer, u"Tessel 2.0 is available. You have 1.0."_s,
            [](Fixture &f) { f.publish(feed("2.0")); });
        row("same", m_newest, u"1.0"_s, [](Fixture &f) { f.publish(feed("1.0.0")); });
        row("as large as allowed", m_newer, u"2.0"_s,
            [big](Fixture &f) { f.publish(feed("2.0") + big.chopped(feed("2.0").size() + 1)); });
        row("five redirections", m_newer, u"2.0"_s, [](Fixture &f) {
            f.publish(feed("2.0"));
            f.serve("/5", ok(feed("2.0")));
            f.serve("/feed", redirect("/1"));
            for (int i = 1; i < 5; ++i)
                f.serve('/' + QByteArray::number(i), redirect('/' + QByteArray::number(i + 1)));
        });
        row("older than one seen", m_failed, u"older"_s, [](Fixture &f) {
            f.publish(feed("2.0"));
            f.remember(u"2.1"_s);
        });
        fails("another's", u"signature"_s, "/feed.sig", ok(QByteArray(64, 'x').toBase64()));
        fails("not what was signed", u"signature"_s, "/feed", ok(feed("3.0")));
        fails("no signature", u"404"_s, "/feed.sig", "HTTP/1.1 404 Gone\r\n\r\n");
        fails("large signature", u"more than 1 KiB"_s, "/feed.sig", ok(QByteArray(1025, 'A')));
        fails("cut off", u"before the answer was"_s, "/feed", ok(feed("2.0")).chopped(5));
        fails("cut off, in chunks", u"before the answer was"_s, "/feed",
              head + "Transfer-Encoding: chunked\r\n\r\n5\r\n<rss>\r\n");
        fails("too large", u"more than 1024 KiB"_s, "/feed", ok(big));
        fails("too large, size untold", u"more than 1024 KiB"_s, "/feed",
              head + "\r\n" + big.repeated(8));
        fails("not HTTP", u"."_s, "/feed", "SSH-2.0-x\r\n");
        fails("stops in the middle", u"in time"_s, "/feed.sig", {});
        fails("to a file", u"not HTTPS"_s, "/feed", redirect("file:///etc/passwd"));
        fails("to HTTP elsewhere", u"not HTTPS"_s, "/feed", redirect("http://127.0.0.1.invalid/"));
        fails("in a circle", u"too many times"_s, "/feed", redirect("/feed"));
        row("refused", m_failed, u"cannot be reached"_s, [](Fixture &f) { f.server.close(); });
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
    }

    /// Whoever asks is told everything; a check by itself that fails is only logged.
    void tells()
    {
        QFETCH(Prepare, prepare);
        QFETCH(QString, title);
        QFETCH(QString, text);
        Fixture f;
        prepare(f);
        const QString seen = f.remembered();
        const bool fails = title == m_failed;
        f.start(fails ? 1ms : 1h);
        if (fails) {
            QTRY_COMPARE_WITH_TIMEOUT(f.log.size(), 1, patience);
            const QString &line = f.log.constFirst();
            QVERIFY2(line.startsWith(u"WARNING: update check failed: "), qUtf8Printable(line));
            QVERIFY2(line.contains(text), qUtf8Printable(line));
            QVERIFY(!f.window());
        }
        f.check();
        QCOMPARE(f.text(u"title"_s), title);
        QVERIFY2(f.text(u"text"_s).contains(text), qUtf8Printable(f.text(u"text"_s)));
        QCOMPARE(f.log.size(), fails ? 1 : 0);
        if (fails)
            QCOMPARE(f.remembered(), seen);
    }

    void announcesNewsOnce()
    {
        Fixture f;
        f.publish(feed("2.0"));
        f.dependencies.checkInterval = 50ms;
        f.dependencies.now = &QDateTime::currentDateTimeUtc;
        f.start(1ms);
        QTRY_VERIFY_WITH_TIMEOUT(f.window(), patience);
        QCOMPARE(f.text(u"title"_s), m_newer);
        QVERIFY(f.window()->testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(!f.window()->isModal());
        QCOMPARE(f.remembered(), u"2.0"_s);
        QTest::keyClick(f.window(), Qt::Key_Escape);
        QVERIFY(!f.window());

        const qsizetype twice = f.server.requests.size() + 4; // feed and signature each
        QTRY_VERIFY_WITH_TIMEOUT(f.server.requests.size() >= twice, patience);
        QVERIFY(!f.window());
        f.publish(feed("2.1"));
        QTRY_VERIFY_WITH_TIMEOUT(f.window(), patience);
        QVERIFY(f.text(u"text"_s).contains(u"2.1"));
    }

    void checksOnceADay_data()
    {
        QTest::addColumn<QString>("lastCheck");
        QTest::addColumn<bool>("isDue");
        QTest::newRow("never") << QString() << true;
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
        f.remember(u"0.9"_s, lastCheck);
        bool hasLooked = false;
        f.dependencies.now = [&] {
            hasLooked = true;
            return f.time;
        };
        f.start(1ms);
        QTRY_VERIFY_WITH_TIMEOUT(hasLooked, patience);
        // Written in the same turn in which it looked, before the helper starts.
        QCOMPARE(f.remembered(u"lastCheck"_s), isDue ? u"2026-03-01T12:00:00Z"_s : lastCheck);
        if (isDue)
            QTRY_COMPARE_WITH_TIMEOUT(f.remembered(), u"1.0"_s, patience);
        QVERIFY(!f.window()); // no news
        QCOMPARE(f.log, QStringList());
        for (const QByteArray &request : std::as_const(f.server.requests)) {
            QVERIFY2(request.contains("User-Agent: Tessel\r\n"), request);
            QVERIFY2(!request.toLower().contains("cookie"), request);
        }
    }

    void runsOneCheckAndShowsOneWindow()
    {
        Fixture f;
        f.publish(feed("2.0"));
        f.remember(u"2.0"_s); // no news
        UpdaterController &controller = f.start();
        controller.checkForUpdates();
        const UpdateWindow *window = f.window();
        f.check();
        QCOMPARE(f.window(), window);
        QCOMPARE(f.server.requests.size(), 2);

        controller.checkForUpdates();
        f.window()->close();
        QTRY_COMPARE_WITH_TIMEOUT(f.server.disconnections, 4, patience);
        f.check();
    }

    void endsWithItsHelper()
    {
        Fixture f;
        f.serve("/feed", {});
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
        f.start();
        f.check();
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
        QTest::newRow("HTTPS") << QByteArray("https://a.invalid/%20?b=%22#c")
                               << QStringList(u"https://a.invalid/%20?b=%22#c"_s);
        QTest::newRow("HTTP") << QByteArray("HTTP://a.invalid/ü")
                              << QStringList(u"http://a.invalid/%C3%BC"_s);
        for (const char *link :
             { "file:///etc/passwd", "file://a.invalid/x.desktop", "ftp://a.invalid/",
               "javascript:alert(1)", "--help", "https:///a", "https://a.invalid/ --help", "" })
            QTest::newRow(*link ? link : "none") << QByteArray(link) << QStringList();
    }

    void opensOnlyWebLinks()
    {
        QFETCH(QByteArray, link);
        QFETCH(QStringList, opened);
        Fixture f;
        f.publish(feed("2.0", "<link>" + link + "</link>"));
        f.start();
        f.check();
        auto *button = f.window()->findChild<QPushButton *>(u"link"_s);
        QCOMPARE(button->isVisible(), !opened.isEmpty());
        if (button->isVisible())
            button->click();
        QCOMPARE(f.platform.workspace().opened, opened);
    }

    void leavesUpdatesToThePackageManager()
    {
        Fixture f;
        f.dependencies.publicKey.clear();
        f.start(0ms).checkForUpdates();
        QCOMPARE(f.text(u"title"_s), u"Updates come from your package manager"_s);
        QCoreApplication::processEvents(); // a timer of no delay would fire here
        QCOMPARE(f.server.requests.size(), 0);
        QVERIFY(!QFile::exists(f.dependencies.stateFile));
    }
};

QTEST_MAIN(tst_UpdaterController)
#include "tst_UpdaterController.moc"
