// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/TesselProgram.h"
#include "support/Editors.h"
#include "support/XClipboard.h"

#include <QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

const QRegularExpression captured(u"SELECTED TEXT: ([^\n]{1,80})"_s);
const QRegularExpression failed(u"simulation failed or no text selected"_s);

}

/// What is captured from applications of all kinds, friendly and not.
class tst_Capture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLayout_data()
    {
        QTest::addColumn<QString>("layout");
        QTest::addColumn<EditorKind>("editor");
        for (const char *layout : { "us", "de", "fr", "us(dvorak)", "kr", "ru", "ru,us" }) {
            QTest::addRow("mousepad, %s", layout)
                << QString::fromLatin1(layout) << EditorKind::Mousepad;
            QTest::addRow("featherpad, %s", layout)
                << QString::fromLatin1(layout) << EditorKind::FeatherPad;
        }
    }

    void everyLayout()
    {
        QFETCH(QString, layout);
        QFETCH(EditorKind, editor);
        DesktopSession session;
        DesktopOptions options;
        options.keyboardLayout = layout;
        QVERIFY2(session.start(options), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        Editor window(session, editor);
        QVERIFY(window.open(u"tesserae"_s));
        QVERIFY(window.selectAll());
        QVERIFY(tessel.summon());
        QCOMPARE(tessel.process().waitForOutput(captured).captured(1), u"tesserae"_s);
    }

    /// The layout may change while the program runs, also by switching the group.
    void changedLayout()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        Editor editor(session, EditorKind::FeatherPad);
        QVERIFY(editor.open(u"tesserae"_s));
        for (const char *layout : { "us(dvorak)", "us", "fr" }) {
            QVERIFY(session.setKeyboardLayout(QString::fromLatin1(layout)));
            QVERIFY(editor.selectAll());
            tessel.awaitTrigger();
            QVERIFY2(tessel.summon(), layout);
            session.user().tap(XKB_KEY_Escape);
            QVERIFY(tessel.waitUntilBarGone());
        }
    }

    void heldModifiersNeitherJoinNorStick()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        tessel.settings = { { u"triggerKeyCode"_s, 49 }, { u"triggerModifiers"_s, 0x60000 } };
        QVERIFY(tessel.start());
        Editor editor(session, EditorKind::FeatherPad);
        QVERIFY(editor.open(u"tesserae"_s));
        QVERIFY(editor.selectAll());
        XUser &user = session.user();
        user.press(XKB_KEY_Control_L);
        user.press(XKB_KEY_Shift_R);
        user.press(XKB_KEY_space);
        QVERIFY(tessel.waitForBar());
        QCOMPARE(tessel.process().waitForOutput(captured).captured(1), u"tesserae"_s);
        user.release(XKB_KEY_space);
        user.release(XKB_KEY_Shift_R);
        user.release(XKB_KEY_Control_L);
        QTRY_COMPARE(user.modifiers(), quint8(0));
        QVERIFY(user.pressedKeycodes().isEmpty());
        user.tap(XKB_KEY_1);
        QCOMPARE(session.urlRecorder().waitForUrls(1),
                 QStringList { u"tessel-test://open?tesserae"_s });
    }

    void terminalProgramSurvives_data()
    {
        QTest::addColumn<bool>("hasSelection");
        QTest::newRow("text selected") << true;
        QTest::newRow("nothing selected") << false;
    }

    void terminalProgramSurvives()
    {
        QFETCH(bool, hasSelection);
        const QString text = u"output of a program"_s;
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        Editor terminal(session, EditorKind::XTerm);
        QVERIFY(terminal.open(text));
        if (hasSelection) {
            QVERIFY(terminal.selectAll());
            QVERIFY(tessel.summon());
            QCOMPARE(tessel.process().waitForOutput(captured).captured(1), text);
            QCOMPARE(session.clipboard().text(), text);
        } else {
            session.user().tap(XKB_KEY_F2);
            QVERIFY(tessel.process().waitForOutput(failed).hasMatch());
        }
        QCOMPARE(terminal.interrupts(), 0);
        // The program notices an interrupt that is meant for it.
        session.user().tap(XKB_KEY_Escape);
        QVERIFY(tessel.waitUntilBarGone());
        session.user().tap(XKB_KEY_c, { XKB_KEY_Control_L });
        QTRY_COMPARE(terminal.interrupts(), 1);
    }

    void hostileOwners_data()
    {
        QTest::addColumn<QStringList>("mode");
        QTest::addColumn<QString>("expected"); // null: nothing is captured; else its beginning
        QTest::addColumn<int>("within"); // milliseconds from the key press to the end

        const auto row = [](const QStringList &mode, const QString &expected, int within) {
            QTest::newRow(qPrintable(mode.join(u' '))) << mode << expected << within;
        };
        row({ u"never-answers"_s }, {}, 900);
        row({ u"stalls"_s }, {}, 900);
        row({ u"dies-while-sending"_s }, {}, 900);
        row({ u"image-only"_s }, {}, 900);
        row({ u"latin1-only"_s }, u"café"_s, 900);
        row({ u"changes-its-mind"_s }, u"second"_s, 900);
        row({ u"empty-first"_s }, u"late"_s, 900);
        row({ u"incr"_s, u"2000000"_s }, u"abcdefghijkl"_s, 2000);
        row({ u"incr"_s, u"16777216"_s }, u"abcdefghijkl"_s, 4000);
        row({ u"text"_s, u"plain"_s }, u"plain"_s, 900);
    }

    void hostileOwners()
    {
        QFETCH(QStringList, mode);
        QFETCH(QString, expected);
        QFETCH(int, within);
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        QVERIFY(launchHostileOwner(session, mode));

        QElapsedTimer timer;
        timer.start();
        session.user().tap(XKB_KEY_F2);
        if (expected.isNull()) {
            QVERIFY(tessel.process().waitForOutput(failed).hasMatch());
            QVERIFY(!tessel.bar());
        } else {
            QVERIFY(tessel.waitForBar());
        }
        const qint64 took = timer.elapsed();
        QVERIFY2(took < within, qPrintable(QString::number(took)));
        if (!expected.isNull()) {
            const auto match = tessel.process().waitForOutput(captured);
            QVERIFY2(match.captured(1).startsWith(expected),
                     qPrintable(match.captured(1).left(80)));
        }
        QVERIFY(tessel.process().isRunning());
    }
};

QTEST_GUILESS_MAIN(tst_Capture)
#include "tst_Capture.moc"
