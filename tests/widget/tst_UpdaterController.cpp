// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/UpdaterController.h"
#include "base/Log.h"
#include "files/Files.h"
#include "platform/fake/FakePlatform.h"
#include "widget/CpuTime.h"
#include "widget/ShownWindow.h"
#include "widget/UpdateServer.h"
#include "windows/ReleaseNotes.h"
#include "windows/UpdateWindow.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 20000; // milliseconds

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
        server.answers["/feed"] = ok(content);
        server.answers["/feed.sig"] = ok(sign(content));
    }

    void remember(const QString &highestVersion, const QString &lastCheck = {}) const
    {
        const QJsonObject state { { u"highestVersion"_s, highestVersion },
                                  { u"lastCheck"_s, lastCheck } };
        QVERIFY(writeFile(dependencies.stateFile, QJsonDocument(state).toJson()));
    }

    [[nodiscard]] QString remembered(const QString &member = u"highestVersion"_s) const
    {
        const QByteArray state = readFile(dependencies.stateFile);
        return QJsonDocument::fromJson(state).object().value(member).toString();
    }

    UpdaterController &start(std::chrono::milliseconds firstCheckDelay = 1h)
    {
        dependencies.firstCheckDelay = firstCheckDelay;
        controller = std::make_unique<UpdaterController>(dependencies);
        return *controller;
    }

    [[nodiscard]] static QString text(const QString &name)
    {
        auto *window = shownWindow<UpdateWindow>();
        return window ? window->findChild<QLabel *>(name)->text() : QString();
    }

    void check() const
    {
        controller->checkForUpdates();
        QVERIFY(shownWindow<UpdateWindow>()); // at once
        QTRY_VERIFY_WITH_TIMEOUT(!text(u"title"_s).startsWith(u"Checking"), patience);
    }

    QTemporaryDir folder;
    UpdateServer server;
    FakePlatform platform;
    QStringList log;
    UpdaterController::Dependencies dependencies {
        .workspace = platform.workspace(),
        .helperPath = QStringLiteral(TESSEL_UPDATE_HELPER),
        .feed = u"http://127.0.0.1:%1/feed"_s.arg(server.serverPort()),
        .publicKey = u"/sFChnP2r+iSZLOAc0SuiyadElpQOFUgJofbWnEoV58="_s,
        .stateFile = folder.filePath(u"updates.json"_s),
        .currentVersion = u"1.0"_s,
    };
    std::unique_ptr<UpdaterController> controller;
};

using Prepare = std::function<void(Fixture &)>;

}

Q_DECLARE_METATYPE(Prepare)

class tst_UpdaterController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *variable : { "http_proxy", "https_proxy", "all_proxy", "no_proxy" }) {
            qunsetenv(variable);
            qunsetenv(QByteArray(variable).toUpper());
        }
    }

    /// What a server, or someone in between, may do, and what the user is told.
    void fails_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Prepare>("prepare");
        const auto answers = [](const char *name, const QString &text, const QByteArray &path,
                                const QByteArray &bytes) {
            QTest::newRow(name) << text << Prepare([path, bytes](Fixture &f) {
                f.server.answers[path] = bytes;
                f.dependencies.timeout = bytes.isEmpty() ? 1s : f.dependencies.timeout;
            });
        };
        answers("not what was signed", u"signature"_s, "/feed", ok(feed("3.0")));
        answers("no signature", u"404"_s, "/feed.sig", "HTTP/1.1 404 Gone\r\n\r\n");
        answers("large signature", u"more than 1 KiB"_s, "/feed.sig", ok(QByteArray(1025, 'A')));
        answers("cut off", u"before the answer was"_s, "/feed", ok(feed("2.0")).chopped(5));
        answers("too large, size untold", u"more than 1024 KiB"_s, "/feed",
                "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(8 * 1024 * 1024, ' '));
        answers("stops in the middle", u"in time"_s, "/feed.sig", {});
        answers("to a file", u"not HTTPS"_s, "/feed", redirect("file:///etc/passwd"));
        answers("to HTTP elsewhere", u"not HTTPS"_s, "/feed", redirect("http://127.0.0.1.b/"));
        answers("in a circle", u"too many times"_s, "/feed", redirect("/feed"));
        const auto row = [](const char *name, const QString &text, const Prepare &prepare) {
            QTest::newRow(name) << text << prepare;
        };
        row("older than one seen", u"older"_s, [](Fixture &f) { f.remember(u"2.1"_s); });
        row("refused", u"cannot be reached"_s, [](Fixture &f) { f.server.close(); });
        row("no such helper", u"program"_s,
            [](Fixture &f) { f.dependencies.helperPath = u"/nowhere"_s; });
        row("a helper that hangs", u"program"_s, [](Fixture &f) {
            f.dependencies.helperPath = f.folder.filePath(u"helper"_s);
            QVERIFY(writeProgram(f.dependencies.helperPath, u"exec sleep 60\n"_s));
            f.dependencies.timeout = 50ms;
        });
    }

    /// Whoever asks is told everything; a check by itself that fails is only logged.
    void fails()
    {
        QFETCH(QString, text);
        QFETCH(Prepare, prepare);
        Fixture f;
        f.publish(feed("2.0"));
        prepare(f);
        const QString seen = f.remembered();
        f.start(1ms);
        QTRY_COMPARE_WITH_TIMEOUT(f.log.size(), 1, patience);
        const QString &line = f.log.constFirst();
        QVERIFY2(line.startsWith(u"WARNING: update check failed: "), qUtf8Printable(line));
        QVERIFY2(line.contains(text), qUtf8Printable(line));
        QVERIFY(!shownWindow<UpdateWindow>());
        f.check();
        QCOMPARE(f.text(u"title"_s), u"The check for updates failed"_s);
        QVERIFY2(f.text(u"text"_s).contains(text), qUtf8Printable(f.text(u"text"_s)));
        QCOMPARE(f.log.size(), 1);
        QCOMPARE(f.remembered(), seen);
    }

    void announcesNewsOnce()
    {
        Fixture f;
        f.publish(feed("2.0"));
        f.server.answers["/5"] = f.server.answers["/feed"];
        f.server.answers["/feed"] = redirect("/1");
        for (char i = '1'; i < '5'; ++i)
            f.server.answers[QByteArray("/") + i] = redirect(QByteArray("/") + char(i + 1));
        f.dependencies.checkInterval = 50ms;
        f.start(1ms);
        QTRY_VERIFY_WITH_TIMEOUT(shownWindow<UpdateWindow>(), patience);
        QCOMPARE(f.text(u"title"_s), u"A new version is available"_s);
        QVERIFY(shownWindow<UpdateWindow>()->testAttribute(Qt::WA_ShowWithoutActivating));
        QTest::keyClick(shownWindow<UpdateWindow>(), Qt::Key_Escape);
        QVERIFY(!shownWindow<UpdateWindow>());

        const qsizetype twice = f.server.requests.size() + 14; // redirections and signature
        QTRY_VERIFY_WITH_TIMEOUT(f.server.requests.size() >= twice, patience);
        QVERIFY(!shownWindow<UpdateWindow>());
        f.publish(feed("2.1"));
        QTRY_VERIFY_WITH_TIMEOUT(shownWindow<UpdateWindow>(), patience);
        QVERIFY(f.text(u"text"_s).contains(u"2.1"));
    }

    void checksOnceADay()
    {
        const QString now = u"2026-03-01T12:00:00Z"_s;
        for (const QString &lastCheck :
             { u"2026-02-28T12:00:10Z"_s, u"2026-02-28T12:00:00Z"_s,
               u"2027-01-01T00:00:00Z"_s }) { // by a clock that was ahead
            const bool isDue = lastCheck != u"2026-02-28T12:00:10Z";
            Fixture f;
            f.publish(feed("1.0"));
            f.remember(u"0.9"_s, lastCheck);
            bool hasLooked = false;
            f.dependencies.now = [&] {
                hasLooked = true;
                return QDateTime::fromString(now, Qt::ISODate);
            };
            f.start(1ms);
            QTRY_VERIFY_WITH_TIMEOUT(hasLooked, patience);
            // Written in the same turn in which it looked, before the helper starts.
            QCOMPARE(f.remembered(u"lastCheck"_s), isDue ? now : lastCheck);
            if (isDue)
                QTRY_COMPARE_WITH_TIMEOUT(f.remembered(), u"1.0"_s, patience);
            QVERIFY(!shownWindow<UpdateWindow>()); // no news
            QCOMPARE(f.log, QStringList());
            for (const QByteArray &request : std::as_const(f.server.requests)) {
                QVERIFY2(request.toLower().contains("user-agent: tessel\r\n"), request);
                QVERIFY2(!request.toLower().contains("cookie"), request);
            }
        }
    }

    void runsOneCheckAndShowsOneWindow()
    {
        Fixture f;
        f.publish(feed("1.0"));
        UpdaterController &controller = f.start();
        int opened = 0;
        controller.windowWillOpen = [&opened] { ++opened; };
        controller.checkForUpdates();
        const auto *window = shownWindow<UpdateWindow>();
        f.check();
        QCOMPARE(shownWindow<UpdateWindow>(), window);
        QCOMPARE(f.text(u"title"_s), u"You have the newest version"_s);
        QCOMPARE(f.server.requests.size(), 2);

        controller.checkForUpdates();
        QCOMPARE(opened, 1);
        QTest::keyClick(shownWindow<UpdateWindow>(), Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!shownWindow<UpdateWindow>());
        QTRY_COMPARE_WITH_TIMEOUT(f.server.disconnections, 4, patience);
        f.check();
    }

    void endsWithItsHelper()
    {
        Fixture f;
        f.server.answers["/feed"] = {};
        f.start().checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(f.server.requests.size(), 1, patience);
        QElapsedTimer timer;
        timer.start();
        f.controller.reset();
        QVERIFY2(timer.elapsed() < 5000, "it waited for the helper's own deadline");
        QVERIFY(!shownWindow<UpdateWindow>());
        QTRY_COMPARE_WITH_TIMEOUT(f.server.disconnections, 1, patience);
    }

    void showsHostileTextAsText()
    {
        Fixture f;
        f.publish(feed("2.0",
                       "<sparkle:shortVersionString>&lt;b>%1%2</sparkle:shortVersionString>"
                       "<description>&lt;img src='"
                           + f.dependencies.feed.toLatin1() + "'>&amp;lt;u&amp;gt;</description>"));
        f.start();
        f.check();
        auto *window = shownWindow<UpdateWindow>();
        QCOMPARE(f.text(u"text"_s), u"Tessel %1%2 is available. You have 1.0."_s);
        QCOMPARE(window->findChild<QPlainTextEdit *>()->toPlainText(), u"<u>"_s);
        for (const QLabel *label : window->findChildren<QLabel *>())
            QCOMPARE(label->textFormat(), Qt::PlainText);
        QCOMPARE(f.server.requests.size(), 2);
    }

    void makesNotesPlain()
    {
        const std::pair<QString, QString> rows[] {
            { u" a < b && c > d\r\n\r\n\r\n\r\nsecond  \nthird "_s,
              u"a < b && c > d\n\nsecond\nthird"_s },
            { u"<p>one\ntwo</p>\n<P class='x'>three<br/>four</P>"_s, u"one two\n\nthree\nfour"_s },
            { u"<h2>New</h2><script>x()</script><ul><li>A &amp; B</li></ul>"_s,
              u"New\n\n• A & B"_s },
            { u"<!-- <p> --><style>p { }</style><img src='https://spy/'><b>x</b>"_s, u"x"_s },
            { u"Fast &mdash; &#50;&#x78;&nbsp;&hellip; AT&T &bogus;"_s,
              u"Fast — 2x … AT&T &bogus;"_s },
            { u"<p>&lt;b&gt; &amp;lt;</p>"_s, u"<b> &lt;"_s },
            { u"a\u202eb\u0007c\u2066d\u009b&#x202e;&#27;e"_s, u"abcde"_s },
            { u"<table><tr><td rowspan=9999 colspan=99999>x</table>"_s, u"x"_s },
            { u"<ul><li><b>"_s, u"•"_s },
        };
        for (const auto &[notes, expected] : rows) {
            QCOMPARE(plainText(notes), expected);
            const qint64 start = cpuTime();
            QVERIFY(plainText(notes.repeated(30'000)).size() <= 20000);
            QVERIFY2(cpuTime() - start < 2000, qUtf8Printable(notes));
        }
    }

    void opensOnlyWebLinks()
    {
        FakePlatform platform;
        UpdateWindow window(platform.workspace());
        auto *button = window.findChild<QPushButton *>(u"link"_s);
        QStringList expected;
        for (const auto &[link, opened] :
             { std::pair(u"https://a.invalid/%20?b=%22#c"_s, u"https://a.invalid/%20?b=%22#c"_s),
               std::pair(u"HTTP://a.invalid/ü"_s, u"http://a.invalid/%C3%BC"_s) }) {
            window.setContent({ {}, {}, {}, link });
            button->click();
            expected += opened;
            QCOMPARE(platform.workspace().opened, expected);
        }
        for (const QString &link : { u"file:///etc/passwd"_s, u"file://a.invalid/x.desktop"_s,
                                     u"ftp://a.invalid/"_s, u"javascript:alert(1)"_s, u"--help"_s,
                                     u"https:///a"_s, u"https://a.invalid/ --help"_s, QString() }) {
            window.setContent({ {}, {}, {}, link });
            QVERIFY2(button->isHidden(), qUtf8Printable(link));
        }
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
