// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/TesselProgram.h"
#include "support/Editors.h"
#include "support/XClipboard.h"

#include <QFile>
#include <QTest>

#include <csignal>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

constexpr auto firstKey = XKB_KEY_1;

/// A desktop with an editor whose whole text is selected, and the program with one action.
struct Stage
{
    DesktopSession session;
    TesselProgram tessel { session };
    Editor editor { session, EditorKind::Mousepad };

    [[nodiscard]] bool prepare(const QJsonObject &action, const QString &text)
    {
        tessel.actions = { action };
        return session.start() && tessel.start() && editor.open(text) && editor.selectAll();
    }

    [[nodiscard]] bool runAction()
    {
        tessel.awaitTrigger();
        const bool isShown = tessel.summon().has_value();
        session.user().tap(firstKey);
        return isShown && tessel.waitUntilBarGone();
    }

    [[nodiscard]] QByteArray file(const QString &name) const
    {
        QFile file(session.homePath() + u'/' + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

}

/// Actions from the trigger in an editor to what they do.
class tst_Actions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shellCommandGetsTheTextExactly()
    {
        Stage stage;
        const QString text = u"it's \"$HOME\" `id` \\ 100%\n한글 🙂 -n"_s;
        QVERIFY(
            stage.prepare(TesselProgram::action(
                              u"shell"_s, u"shellScript"_s,
                              u"printf %s '{text}' >\"$HOME/quoted\" && printf %s \"$TESSEL_TEXT\" "
                              "| tee \"$HOME/variable\" >\"$HOME/done\""_s),
                          text));
        QVERIFY(stage.runAction());
        QTRY_COMPARE(stage.file(u"done"_s), text.toUtf8());
        QCOMPARE(stage.file(u"quoted"_s), text.toUtf8());
        QCOMPARE(stage.file(u"variable"_s), text.toUtf8());
    }

    void failureIsReported_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<bool>("isCopied");
        QTest::newRow("Return copies") << quint32(XKB_KEY_Return) << true;
        QTest::newRow("Escape does not") << quint32(XKB_KEY_Escape) << false;
    }

    void failureIsReported()
    {
        QFETCH(quint32, key);
        QFETCH(bool, isCopied);
        Stage stage;
        QVERIFY(stage.prepare(
            TesselProgram::action(u"shell"_s, u"shellScript"_s, u"echo 'it broke' >&2; exit 3"_s),
            u"word"_s));
        QVERIFY(stage.runAction());
        auto panel = stage.tessel.waitForWindow(u"Command Failed"_s);
        QVERIFY(panel);
        const quint32 first = panel->id;
        // The newest replaces the one before.
        stage.session.user().activate(stage.editor.window().id);
        QVERIFY(stage.session.user().waitUntilUsable(stage.editor.window().id));
        QVERIFY(stage.runAction());
        QVERIFY(stage.session.user().waitUntilGone(first));
        panel = stage.tessel.waitForWindow(u"Command Failed"_s);
        QVERIFY(panel);
        QCOMPARE(panel->geometry.size(), QSize(340, 240));
        QVERIFY(stage.session.user().waitUntilUsable(panel->id));
        stage.session.user().tap(key);
        QVERIFY(stage.session.user().waitUntilGone(panel->id));
        const QString message = u"The command exited with status 3.\n\nError:\nit broke"_s;
        QCOMPARE(stage.session.clipboard().text() == message, isCopied);
    }

    void largeTypeClosesOnAnything_data()
    {
        QTest::addColumn<quint32>("key"); // 0: a click
        QTest::newRow("letter") << quint32(XKB_KEY_x);
        QTest::newRow("Escape") << quint32(XKB_KEY_Escape);
        QTest::newRow("modifier") << quint32(XKB_KEY_Shift_L);
        QTest::newRow("click") << 0U;
    }

    void largeTypeClosesOnAnything()
    {
        QFETCH(quint32, key);
        Stage stage;
        QVERIFY(stage.prepare(TesselProgram::action(u"largetype"_s, u"builtin"_s, u"LARGE_TYPE"_s),
                              u"tesserae"_s));
        XUser &user = stage.session.user();
        const quint32 active = user.activeWindow();
        QVERIFY(stage.runAction());
        const auto veil = stage.tessel.waitForWindow(u"Tessel Large Type"_s);
        QVERIFY(veil);
        QCOMPARE(veil->geometry, QRect(QPoint(), user.screenshot().size()));
        QTRY_VERIFY(qGray(user.screenshot(QRect(5, 5, 1, 1)).pixel(0, 0)) < 60);
        if (key == 0) {
            user.click(QPoint(30, 700));
        } else {
            user.press(key);
            QTest::qWait(900); // long enough for the key to repeat
            user.release(key);
        }
        QVERIFY(user.waitUntilGone(veil->id));
        QCOMPARE(user.activeWindow(), active);
        QVERIFY(stage.editor.selectAll()); // the text is as it was
    }

    /// What the key repeats must not replace the selection in the application below.
    void heldKeyDoesNotReachTheEditor()
    {
        Stage stage;
        QVERIFY(stage.prepare(TesselProgram::action(u"count"_s, u"builtin"_s, u"COUNT"_s),
                              u"tesserae"_s));
        QVERIFY(stage.tessel.summon());
        stage.session.user().press(firstKey);
        QTest::qWait(1500); // long enough for the key to repeat
        stage.session.user().release(firstKey);
        QVERIFY(stage.session.clipboard().waitForText(u"8"_s));
        QVERIFY(stage.editor.selectAll()); // the text is as it was
    }

    void copiedTextOutlivesTheProgram()
    {
        Stage stage;
        QVERIFY(stage.prepare(TesselProgram::action(u"count"_s, u"builtin"_s, u"COUNT"_s),
                              u"tesserae"_s));
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
