// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"
#include "support/DisplayConnection.h"

#include <QTest>

#include <xcb/xcb.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

/// A window that tells which keys it gets.
struct KeyStage : Stage
{
    ChildProcess *application = nullptr;

    [[nodiscard]] bool open(const QStringList &mode)
    {
        application = launchHostileOwner(session, mode);
        return application;
    }

    /// The keys that the window got, but for modifiers and the copy shortcut: "symbol state".
    [[nodiscard]] QStringList keys() const
    {
        QStringList keys;
        static const QRegularExpression line(u"^key (?!ffe|ff63)(.*)$"_s,
                                             QRegularExpression::MultilineOption);
        for (const auto &match : line.globalMatch(application->output()))
            keys += match.captured(1);
        return keys;
    }
};

}
Q_DECLARE_METATYPE(QList<quint32>)

/// Which keys are ours, and which are the application's.
class tst_Keys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applicationGetsTheTriggerOnlyWithoutText_data()
    {
        QTest::addColumn<QList<quint32>>("held");
        QTest::addColumn<quint32>("key");
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("asSeen");
        QTest::newRow("F2") << QList<quint32>() << quint32(XKB_KEY_F2) << 120 << 0 << u"ffbf 0"_s;
        QTest::newRow("Super+T") << QList<quint32> { XKB_KEY_Super_L } << quint32(XKB_KEY_t) << 17
                                 << 0x100000 << u"74 40"_s;
        QTest::newRow("Ctrl+Shift+Space") << QList<quint32> { XKB_KEY_Control_L, XKB_KEY_Shift_L }
                                          << quint32(XKB_KEY_space) << 49 << 0x60000 << u"20 5"_s;
    }

    void applicationGetsTheTriggerOnlyWithoutText()
    {
        QFETCH(QList<quint32>, held);
        QFETCH(quint32, key);
        QFETCH(int, keyCode);
        QFETCH(int, modifiers);
        QFETCH(QString, asSeen);
        for (const bool hasText : { true, false }) {
            KeyStage stage;
            stage.tessel.settings
                = { { u"triggerKeyCode"_s, keyCode }, { u"triggerModifiers"_s, modifiers } };
            QVERIFY(stage.start());
            QVERIFY(stage.open(hasText ? QStringList { u"text"_s, u"word"_s }
                                       : QStringList { u"nothing"_s }));
            for (const quint32 modifier : held)
                stage.user().press(modifier);
            stage.user().press(key);
            if (hasText) {
                QVERIFY(stage.tessel.waitForBar());
                QCOMPARE(stage.keys(), QStringList());
            } else {
                QTRY_COMPARE(stage.keys(), QStringList { asSeen });
            }
            QTest::qWait(800); // long enough for the key to repeat
            stage.user().releaseAllKeys();
            QCOMPARE(stage.keys().size(), hasText ? 0 : 1);
            QTRY_COMPARE(stage.user().modifiers(), quint8(0));
            QVERIFY(stage.user().pressedKeycodes().isEmpty());
        }
    }

    void locksDoNotCount()
    {
        KeyStage stage;
        QVERIFY(stage.start());
        stage.user().tap(XKB_KEY_Num_Lock);
        QVERIFY(stage.open({ u"text"_s, u"word"_s }));
        QVERIFY(stage.tessel.summon());
        stage.tessel.awaitTrigger();
        stage.user().tap(XKB_KEY_Scroll_Lock); // hides nothing
        stage.user().tap(XKB_KEY_XF86AudioRaiseVolume);
        stage.user().tap(XKB_KEY_Caps_Lock);
        QCOMPARE(stage.user().modifiers(), quint8(0x12));
        QTest::qWait(100);
        stage.user().tap(XKB_KEY_1);
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?word"_s });
        QCOMPARE(stage.keys(), QStringList({ u"ff14 10"_s, u"1008ff13 10"_s }));
    }

    void otherKeysGoToTheApplication()
    {
        KeyStage stage;
        QVERIFY(stage.start());
        QVERIFY(stage.open({ u"text"_s, u"word"_s }));
        for (const auto &[key, held, asSeen] :
             { std::tuple(XKB_KEY_h, QList<quint32>(), u"68 0"_s),
               std::tuple(XKB_KEY_2, QList<quint32>(), u"32 0"_s), // there is no second button
               std::tuple(XKB_KEY_1, QList<quint32> { XKB_KEY_Alt_L }, u"31 8"_s) }) {
            QVERIFY(stage.tessel.summon());
            stage.tessel.awaitTrigger();
            stage.user().tap(quint32(key), held);
            QVERIFY(stage.tessel.waitUntilBarGone());
            QTRY_COMPARE(stage.keys().value(stage.keys().size() - 1), asSeen);
        }
        QVERIFY(stage.session.urlRecorder().urls().isEmpty());
    }

    void anotherProgramHasTheTrigger()
    {
        for (const bool first : { true, false }) {
            KeyStage stage;
            QVERIFY(stage.session.start());
            const auto other = connectionTo(stage.session.display().toLatin1());
            const auto grab = [&other] {
                xcb_grab_key(other->xcb(), 0, other->root(), XCB_MOD_MASK_ANY, 68,
                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
                xcb_flush(other->xcb());
            };
            if (first)
                grab();
            QVERIFY(stage.tessel.start());
            if (!first)
                grab();
            QVERIFY(stage.open({ u"text"_s, u"word"_s }));
            stage.user().press(XKB_KEY_F2);
            QTest::qWait(80); // until then the other one has the whole keyboard
            stage.user().release(XKB_KEY_F2);
            QVERIFY(stage.tessel.waitForBar());
            QVERIFY(XcbPtr<xcb_generic_event_t>(xcb_poll_for_event(other->xcb())));
        }
    }

    /// Its key is observed then, and the word is still marked.
    void lockedScreenShowsNothing()
    {
        Stage stage;
        QVERIFY(stage.session.start());
        const auto other = connectionTo(stage.session.display().toLatin1());
        xcb_grab_key(other->xcb(), 1, other->root(), XCB_MOD_MASK_ANY, 68, XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_ASYNC);
        xcb_flush(other->xcb());
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.open(u"word"_s, EditorKind::XTerm));
        stage.session.launch(u"i3lock"_s, { u"-n"_s });
        QTRY_VERIFY(stage.user().isKeyboardGrabbed());
        stage.user().tap(XKB_KEY_F2);
        QVERIFY(stage.logs(u"Hotkey pressed"_s));
        QTest::qWait(700);
        QVERIFY(!stage.tessel.bar());
    }

    void screensCanBeLocked()
    {
        KeyStage stage;
        QVERIFY(stage.start());
        QVERIFY(stage.open({ u"text"_s, u"word"_s }));
        QVERIFY(stage.tessel.summon());
        stage.tessel.awaitTrigger();
        const ChildProcess &locker = stage.session.launch(u"i3lock"_s, { u"-n"_s });
        QTRY_VERIFY(stage.user().isKeyboardGrabbed());
        stage.user().tap(XKB_KEY_F2); // not for us
        stage.user().tap(XKB_KEY_1);
        QTest::qWait(300);
        QVERIFY(locker.isRunning());
        QVERIFY(stage.session.urlRecorder().urls().isEmpty());
    }

    void largeTypeGivesTheKeyboardBack_data()
    {
        QTest::addColumn<QStringList>("command"); // empty: another window is activated
        QTest::newRow("screen saver") << QStringList { u"xset"_s, u"s"_s, u"activate"_s };
        QTest::newRow("locked session")
            << QStringList { u"dbus-send"_s,
                             u"--session"_s,
                             u"--type=signal"_s,
                             u"/"_s,
                             u"org.freedesktop.ScreenSaver.ActiveChanged"_s,
                             u"boolean:true"_s };
        QTest::newRow("another window") << QStringList();
    }

    void largeTypeGivesTheKeyboardBack()
    {
        QFETCH(QStringList, command);
        KeyStage stage;
        stage.tessel.actions
            = { TesselProgram::action(u"action"_s, u"builtin"_s, u"LARGE_TYPE"_s) };
        QVERIFY(stage.start());
        QVERIFY(stage.open({ u"nothing"_s }));
        const quint32 other = stage.user().activeWindow();
        QVERIFY(stage.open({ u"text"_s, u"word"_s }));
        QVERIFY(stage.runAction());
        const auto veil = stage.tessel.waitForWindow(u"Tessel Large Type"_s);
        QVERIFY(veil);
        QTRY_VERIFY(stage.user().isKeyboardGrabbed());
        if (command.isEmpty())
            stage.user().activate(other);
        else
            stage.session.launch(command.first(), command.mid(1));
        QTRY_VERIFY(!stage.user().isKeyboardGrabbed());
        if (command.isEmpty())
            stage.user().tap(XKB_KEY_h); // goes there, and the text goes with it
        QVERIFY(stage.user().waitUntilGone(veil->id));
    }
};

QTEST_GUILESS_MAIN(tst_Keys)
#include "tst_Keys.moc"
