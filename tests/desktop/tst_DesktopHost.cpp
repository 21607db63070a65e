// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/HelperStage.h"
#include "files/Files.h"
#include "lib/desktop/DesktopHost.h"
#include "support/Editors.h"
#include "support/RecordingService.h"
#include "support/XClipboard.h"

#include <QElapsedTimer>

#include <future>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace Tessel::Desktop;

namespace {

/// A desktop that the test has entered, and what scripts see of it.
struct HostStage
{
    Stage stage;
    std::unique_ptr<DesktopHost> owner;

    [[nodiscard]] bool prepare()
    {
        const bool isUp = stage.prepare();
        stage.enter();
        owner = std::make_unique<DesktopHost>(QStringLiteral(TESSEL_HELPERS));
        return isUp;
    }
    [[nodiscard]] Osascript::Host host() const { return owner->host(); }
};

/// Makes a blocking call while the test's own services answer.
template <typename Call> QString reasonOf(const Call &call)
{
    auto result = std::async(std::launch::async, call);
    const bool isDone = QTest::qWaitFor(
        [&result] { return result.wait_for(0s) == std::future_status::ready; }, 10000);
    return isDone ? reason(result.get()) : u"it does not return"_s;
}

}

class tst_DesktopHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clipboard()
    {
        HostStage stage;
        QVERIFY2(stage.prepare(), qPrintable(stage.stage.session.errorString()));
        QCOMPARE(stage.host().clipboard.text(), std::nullopt);
        const QString text = u"\ufeff한글 \"é\"\n\\"_s;
        QCOMPARE(reason(stage.host().clipboard.setText(text)), QString());
        QCOMPARE(stage.host().clipboard.text(), text);
        stage.owner.reset(); // it stays
        QCOMPARE(stage.stage.session.clipboard().text(), text);
    }

    void applications()
    {
        HostStage stage;
        QVERIFY(stage.prepare());
        Osascript::Desktop &desktop = stage.host().desktop;
        QVERIFY(desktop.isInstalled(u"mousepad"_s));
        QVERIFY(!desktop.isInstalled(u"Nobody's"_s));
        QVERIFY(!desktop.activate(u"Nobody's"_s));
        QVERIFY(!desktop.isRunning(u"Mousepad"_s));

        QCOMPARE(reason(desktop.activate(u"Mousepad"_s)), QString());
        Editor other(stage.stage.session, EditorKind::FeatherPad);
        QVERIFY(other.open(u"text"_s));
        auto processes = desktop.processes();
        QCOMPARE(processes.size(), 2);
        QCOMPARE(processes[0].identifier, u"featherpad"_s);
        QCOMPARE(processes[0].id, other.window().processId);
        QVERIFY(processes[0].isFrontmost && processes[0].isVisible);
        QCOMPARE(processes[1].identifier, u"org.xfce.mousepad"_s);
        QVERIFY(!processes[1].isFrontmost);

        QCOMPARE(reason(desktop.activate(u"Mousepad"_s)), QString());
        QVERIFY(stage.stage.session.user().activeWindow() != other.window().id);
        QVERIFY(desktop.processes()[0].name.contains(u"Mousepad"_s));
        QCOMPARE(reason(desktop.quit(u"Mousepad"_s)), QString());
        QTRY_VERIFY(!desktop.isRunning(u"Mousepad"_s));
        QVERIFY(desktop.isRunning(u"FeatherPad"_s));
    }

    void opens()
    {
        HostStage stage;
        QVERIFY(stage.prepare());
        Osascript::Desktop &desktop = stage.host().desktop;
        const UrlRecorder &urls = stage.stage.session.urlRecorder();
        QCOMPARE(reason(desktop.open(u"tessel-test://a?b=c%20d"_s, QString())), QString());
        QCOMPARE(urls.waitForUrls(1), QStringList { u"tessel-test://a?b=c%20d"_s });
        QVERIFY(!desktop.open(u"/no/such file"_s, QString()));
        QVERIFY(!desktop.open(u"--help"_s, QString()));
        qputenv("BROWSER", "/nowhere");
        QVERIFY(reason(desktop.open(u"nobody-knows:x"_s, {})).startsWith(u"No application opens"));

        QCOMPARE(stage.stage.run(u"open tessel-test:1 missing 2>err"_s), 1);
        QCOMPARE(urls.waitForUrls(2).value(1), u"tessel-test:1"_s);
        QVERIFY(stage.stage.file(u"err"_s).contains("missing does not exist"));
    }

    void openCommand_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("opened"); // what the application gets first
        QTest::addColumn<QByteArray>("error");
        const auto row = [](const char *name, const QString &arguments, const QString &opened,
                            const QByteArray &error = {}) {
            QTest::newRow(name) << arguments << opened << error;
        };
        row("joined options, a path", u"-gna 'url recorder' notes"_s, u"%1/notes"_s);
        row("identifier", u"-b url-recorder tessel-test:x"_s, u"tessel-test:x"_s);
        row("text", u"-t notes"_s, u"%1/notes"_s);
        row("a dash", u"-a url-recorder -- -a"_s, u"%1/-a"_s);
        row("arguments", u"-a url-recorder --args -a --args"_s, u"-a"_s);
        row("arguments for nobody", u"notes --args x"_s, {}, "Usage:");
        row("no handler", u"nobody-knows:x"_s, {}, "open: No application opens nobody-knows:x");
        row("unknown option", u"-z notes"_s, {}, "Usage:");
    }

    void openCommand()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, opened);
        QFETCH(QByteArray, error);
        HostStage stage;
        QVERIFY(stage.prepare());
        const Stage &files = stage.stage;
        QVERIFY(writeFile(files.session.configPath() + u"/mimeapps.list"_s,
                          u"[Default Applications]\ntext/plain=url-recorder.desktop\n"
                          "x-scheme-handler/tessel-test=url-recorder.desktop\n"_s));
        files.write(u"notes"_s, "x");
        files.write(u"-a"_s, "x");
        const int status = stage.stage.run(u"BROWSER=/nowhere open "_s + arguments + u" 2>err"_s);
        QVERIFY2(files.file(u"err"_s).startsWith(error), files.file(u"err"_s).constData());
        QCOMPARE(status, error.isEmpty() ? 0 : 1);
        if (!opened.isEmpty())
            QCOMPARE(files.session.urlRecorder().waitForUrls(1).value(0),
                     opened.contains(u'%') ? opened.arg(files.session.homePath()) : opened);
    }

    void dialogsWithoutDisplay()
    {
        HostStage stage;
        QVERIFY(stage.prepare());
        stage.stage.session.setVariable(u"DISPLAY"_s, u":987"_s);
        stage.stage.enter();
        QVERIFY(!stage.host().dialogs.ask({}));
        QVERIFY(!stage.host().dialogs.choose({}));
    }

    void notifications()
    {
        HostStage stage;
        QVERIFY(stage.prepare());
        Osascript::Dialogs &dialogs = stage.host().dialogs;
        QVERIFY(!dialogs.notify({ .text = u"text"_s })); // nobody shows any
        RecordingService server(stage.stage.session, u"org.freedesktop.Notifications"_s);
        const auto notify = [&dialogs](const DesktopNotification &notification) {
            return reasonOf([&] { return dialogs.notify(notification); });
        };
        DesktopNotification notification { .text = u"1 < 2 & \"3\""_s,
                                           .title = u"Title"_s,
                                           .subtitle = u"sub"_s,
                                           .topic = u"test"_s };
        for (const uint replaced : { 0U, RecordingService::notificationId }) {
            QCOMPARE(notify(notification), QString());
            QCOMPARE(server.calls.last()[1].toUInt(), replaced);
        }
        QCOMPARE(server.calls[0][3].toString(), u"Title"_s);
        QCOMPARE(server.calls[0][4].toString(), u"sub\n1 &lt; 2 &amp; &quot;3&quot;"_s);
        QVERIFY(server.calls[0][5].toStringList().isEmpty());

        QCOMPARE(notify({ .text = u"1 & 2"_s, .file = u"tessel-test:note"_s }), QString());
        QCOMPARE(server.calls.last()[1].toUInt(), 0U);
        QCOMPARE(server.calls.last()[3].toString(), u"1 & 2"_s);
        server.emitSignal(u"ActionInvoked"_s, { server.notificationId, u"open"_s });
        QCOMPARE(stage.stage.session.urlRecorder().waitForUrls(1),
                 QStringList { u"tessel-test:note"_s });
    }

    void reveals()
    {
        HostStage stage;
        QVERIFY(stage.prepare());
        const QString home = stage.stage.session.homePath();
        const QString file = home + u"/a, b%.txt"_s;
        QVERIFY(writeFile(file, u"x"_s));
        Osascript::Desktop &desktop = stage.host().desktop;
        RecordingService manager(stage.stage.session, u"org.freedesktop.FileManager1"_s);
        QCOMPARE(reasonOf([&] { return desktop.reveal(file); }), QString());
        QCOMPARE(manager.calls.value(0).value(0).toStringList(),
                 QStringList { u"file://"_s + home + u"/a%2C%20b%25.txt"_s });
        QVERIFY(!desktop.reveal(home + u"/missing"_s));
    }

    void shortcutsCommand()
    {
        Stage stage;
        QVERIFY(stage.prepare());
        stage.write(u"in"_s, "한글\n");
        QCOMPARE(stage.run(u"shortcuts list >list && shortcuts run 'Save as Text File' -i in -o out"
                           " && shortcuts run 'Save as Text File' <in >>out"_s),
                 0);
        QCOMPARE(stage.file(u"list"_s), "Append to Journal\nSave as Text File\n일정 추가\n");
        const QByteArray path = stage.file(u"out"_s).split('\n').first();
        QVERIFY(path.startsWith(stage.session.homePath().toUtf8() + "/Documents/Text "));
        QCOMPARE(stage.run(u"cmp in \""_s + QString::fromUtf8(path) + u'"'), 0);
        QCOMPARE(stage.run(u"shortcuts run None <in 2>err"_s), 1);
        QVERIFY(stage.file(u"err"_s).startsWith("shortcuts: There is no shortcut “None”"));
        QCOMPARE(stage.run(u"shortcuts run None -x 2>err"_s), 1);
        QVERIFY(stage.file(u"err"_s).startsWith("Usage:"));
        QCOMPARE(stage.run(u"shortcuts list >/dev/full 2>err"_s), 1);
        QVERIFY(stage.file(u"err"_s).startsWith("shortcuts: standard output: No space"));
    }

    void calendarShortcut()
    {
        HostStage stage;
        QVERIFY(stage.prepare());
        Stage &files = stage.stage;
        files.session.setVariable(u"XDG_DATA_DIRS"_s, u"/nowhere"_s);
        files.enter();
        RecordingService server(stage.stage.session, u"org.freedesktop.Notifications"_s);
        const auto addWith = [&](const QString &mimeType) {
            if (!writeFile(files.session.configPath() + u"/mimeapps.list"_s,
                           u"[Default Applications]\n%1=url-recorder.desktop\n"_s.arg(mimeType)))
                return u"no list"_s;
            return reasonOf([&]() -> Result<void> {
                const auto result = stage.host().shortcuts.run(
                    u"일정 추가"_s, u"2030년 5월 1일 오후 3시 회의\r\n둘째 줄"_s);
                return result ? Result<void>() : result.error();
            });
        };
        QVERIFY(!addWith(u"text/plain"_s).isEmpty());
        QCOMPARE(server.calls.last()[3].toString(), u"No calendar application"_s);
        QCOMPARE(addWith(u"text/calendar"_s), QString());
        QCOMPARE(server.calls.last()[3].toString(), u"2030년 5월 1일 오후 3시 회의"_s);
        QCOMPARE(server.calls.last()[4].toString(), u"The entry was handed to URL recorder."_s);
        QVERIFY(files.session.urlRecorder().waitForUrls(1).value(0).endsWith(u".ics"_s));

        const QString list = files.session.configPath() + u"/mimeapps.list"_s;
        QCOMPARE(files.run(u"rm '%1'; echo x | tessel-calendar-entry 2>err"_s.arg(list)), 1);
        QVERIFY(files.file(u"err"_s).startsWith("tessel-calendar-entry: No calendar application"));
        QCOMPARE(files.run(u"yes | tessel-calendar-entry 2>err"_s), 1);
        QVERIFY(files.file(u"err"_s).contains("more than 64 MiB"));
    }
};

QTEST_GUILESS_MAIN(tst_DesktopHost)
#include "tst_DesktopHost.moc"
