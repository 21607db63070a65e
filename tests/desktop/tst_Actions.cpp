// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"
#include "support/RecordingService.h"

#include <QTest>

#include <csignal>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

/// Actions from the trigger in an editor to what they do.
class tst_Actions : public QObject
{
    Q_OBJECT

    static bool prepare(Stage &stage, const QString &type, const QString &templateText,
                        const QString &text = u"tesserae"_s)
    {
        stage.tessel.actions = { TesselProgram::action(u"action"_s, type, templateText) };
        return stage.start() && stage.open(text);
    }

private Q_SLOTS:
    void shellCommandGetsTheTextExactly()
    {
        Stage stage;
        const QString text = u"it's \"$HOME\" `id` \\ 100%\n한글 🙂 -n"_s;
        QVERIFY(prepare(stage, u"shellScript"_s,
                        u"printf %s '{text}' >\"$HOME/quoted\" && printf %s \"$TESSEL_TEXT\" "
                        "| tee \"$HOME/variable\" >\"$HOME/done\""_s,
                        text));
        QVERIFY(stage.runAction());
        QTRY_COMPARE(stage.file(u"done"_s), text.toUtf8());
        QCOMPARE(stage.file(u"quoted"_s), text.toUtf8());
        QCOMPARE(stage.file(u"variable"_s), text.toUtf8());
    }

    void failureIsReported()
    {
        Stage stage;
        QVERIFY(prepare(stage, u"shellScript"_s, u"echo 'it broke' >&2; exit 3"_s));
        QVERIFY(stage.runAction());
        auto panel = stage.tessel.waitForWindow(u"Command Failed"_s);
        QVERIFY(panel);
        const quint32 first = panel->id;
        // The newest replaces the one before.
        stage.user().activate(stage.editor->window().id);
        QVERIFY(stage.user().waitUntilUsable(stage.editor->window().id));
        QVERIFY(stage.runAction());
        QVERIFY(stage.user().waitUntilGone(first));
        panel = stage.tessel.waitForWindow(u"Command Failed"_s);
        QVERIFY(panel);
        QCOMPARE(panel->geometry.size(), QSize(340, 240));
        QVERIFY(stage.user().waitUntilUsable(panel->id));
        stage.user().tap(XKB_KEY_Return);
        QVERIFY(stage.user().waitUntilGone(panel->id));
        QVERIFY(stage.session.clipboard().waitForText(
            u"The command exited with status 3.\n\nError:\nit broke"_s));
    }

    void errorIsShownUnderXfwm()
    {
        Stage stage;
        stage.tessel.actions
            = { TesselProgram::action(u"action"_s, u"shellScript"_s, u"exit 3"_s) };
        DesktopOptions options;
        options.windowManager = false;
        QVERIFY(stage.session.start(options));
        stage.session.launch(u"xfwm4"_s, { u"--compositor=off"_s });
        QVERIFY(stage.tessel.start() && stage.open() && stage.runAction());
        const auto panel = stage.tessel.waitForWindow(u"Command Failed"_s);
        QVERIFY(panel && stage.user().waitUntilUsable(panel->id));
    }

    void addressThatNothingOpensIsTold()
    {
        Stage stage;
        stage.tessel.actions = { TesselProgram::urlAction(u"x"_s, u"nobody-knows://{text}"_s) };
        QVERIFY(stage.session.start());
        stage.session.setVariable(u"BROWSER"_s, u"/nowhere"_s);
        QVERIFY(stage.tessel.start() && stage.open());
        RecordingService server(stage.session, u"org.freedesktop.Notifications"_s);
        for (const uint replaced : { 0U, RecordingService::notificationId }) {
            server.calls.clear();
            QVERIFY(stage.runAction());
            QTRY_COMPARE_WITH_TIMEOUT(server.calls.size(), 1, 15000);
            const QVariantList call = server.calls.first();
            QCOMPARE(call[1].toUInt(), replaced);
            QCOMPARE(call[3].toString(), u"No application could open the address"_s);
            QCOMPARE(call[4].toString(), u"nobody-knows:…"_s);
        }
    }

    void mebibyte()
    {
        Stage stage;
        stage.tessel.actions = { TesselProgram::urlAction(u"url"_s, u"tessel-test://{text}"_s),
                                 TesselProgram::action(u"copy"_s, u"builtin"_s, u"COPY"_s) };
        QVERIFY(stage.start() && launchHostileOwner(stage.session, { u"incr"_s, u"1048576"_s }));
        QVERIFY(stage.runAction());
        const auto panel = stage.tessel.waitForWindow(u"The address is too long"_s);
        QVERIFY(panel && stage.user().waitUntilUsable(panel->id));
        stage.user().tap(XKB_KEY_Return);
        QVERIFY(stage.user().waitUntilGone(panel->id));
        QVERIFY(!stage.tessel.process().output().contains(u"Opened URL"_s));

        XClipboard &clipboard = stage.session.clipboard();
        QVERIFY(stage.tessel.summon());
        const QString text = clipboard.text().value_or(QString());
        const quint32 owner = clipboard.owner();
        stage.user().tap(XKB_KEY_2);
        QTRY_VERIFY(clipboard.owner() != owner);
        QCOMPARE(text.size(), 1 << 20);
        QCOMPARE(clipboard.text(), text);
    }

    void largeTypeClosesOnAHeldKey()
    {
        Stage stage;
        QVERIFY(prepare(stage, u"builtin"_s, u"LARGE_TYPE"_s));
        XUser &user = stage.user();
        const quint32 active = user.activeWindow();
        QVERIFY(stage.runAction());
        const auto veil = stage.tessel.waitForWindow(u"Tessel Large Type"_s);
        QVERIFY(veil);
        QCOMPARE(veil->geometry, QRect(QPoint(), user.screenshot().size()));
        QTRY_VERIFY(qGray(user.screenshot(QRect(5, 5, 1, 1)).pixel(0, 0)) < 60);
        user.press(XKB_KEY_x);
        QTest::qWait(900); // long enough for the key to repeat
        user.release(XKB_KEY_x);
        QVERIFY(user.waitUntilGone(veil->id));
        QCOMPARE(user.activeWindow(), active);
        QVERIFY(stage.editor->selectAll()); // the text is as it was
    }

    /// What the key repeats must not replace the selection in the application below.
    void heldKeyDoesNotReachTheEditor()
    {
        Stage stage;
        QVERIFY(prepare(stage, u"builtin"_s, u"COUNT"_s));
        QVERIFY(stage.tessel.summon());
        stage.user().press(XKB_KEY_1);
        QTest::qWait(1500); // long enough for the key to repeat
        stage.user().release(XKB_KEY_1);
        QVERIFY(stage.session.clipboard().waitForText(u"8"_s));
        QVERIFY(stage.editor->selectAll()); // the text is as it was
    }

    void copiedTextOutlivesTheProgram()
    {
        Stage stage;
        QVERIFY(prepare(stage, u"builtin"_s, u"COUNT"_s));
        stage.session.launchXfceSettings();
        const ChildProcess &manager = stage.session.launch(u"xfce4-clipman"_s);
        QVERIFY(stage.runAction());
        QVERIFY(stage.session.clipboard().waitForText(u"8"_s));
        const quint32 owner = stage.session.clipboard().owner();
        QVERIFY(manager.isRunning());
        ::kill(pid_t(stage.tessel.process().processId()), SIGTERM);
        QVERIFY(stage.tessel.process().waitForExit());
        QCOMPARE(stage.tessel.process().exitCode(), 0);
        QTRY_VERIFY(stage.session.clipboard().owner() != owner);
        QTRY_COMPARE(stage.session.clipboard().text(), u"8"_s);
    }
};

QTEST_GUILESS_MAIN(tst_Actions)
#include "tst_Actions.moc"
