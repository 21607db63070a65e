// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

const QString noText = u"simulation failed or no text selected"_s;

/// The beginning of what the program says that it has captured.
QString captured(Stage &stage)
{
    const QRegularExpression line(u"SELECTED TEXT: ([^\n]{1,80})"_s);
    return stage.tessel.process().waitForOutput(line).captured(1);
}

}

/// What is captured from applications of all kinds, friendly and not.
class tst_Capture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLayout_data()
    {
        QTest::addColumn<QString>("layout");
        QTest::addColumn<quint32>("one"); // what the key of the digit gives
        QTest::addColumn<EditorKind>("editor");
        const auto row = [](const char *layout, quint32 one, EditorKind editor) {
            QTest::newRow(layout) << QString::fromLatin1(layout) << one << editor;
        };
        row("fr", XKB_KEY_ampersand, EditorKind::Mousepad);
        row("us(dvorak)", XKB_KEY_1, EditorKind::Mousepad);
        row("ru", XKB_KEY_1, EditorKind::FeatherPad);
        row("ru,us", XKB_KEY_1, EditorKind::FeatherPad);
    }

    /// The layout may change while the program runs.
    void everyLayout()
    {
        QFETCH(QString, layout);
        QFETCH(quint32, one);
        QFETCH(EditorKind, editor);
        Stage stage;
        QVERIFY(stage.start());
        QVERIFY(stage.open(u"tesserae"_s, editor));
        QVERIFY(stage.tessel.summon());
        QVERIFY(stage.session.setKeyboardLayout(layout));
        QVERIFY(stage.tessel.summon());
        stage.user().tap(one);
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?tesserae"_s });
    }

    void heldModifiersNeitherJoinNorStick()
    {
        Stage stage;
        stage.tessel.settings = { { u"triggerKeyCode"_s, 49 }, { u"triggerModifiers"_s, 0x60000 } };
        QVERIFY(stage.start());
        QVERIFY(stage.open(u"tesserae"_s, EditorKind::FeatherPad));
        XUser &user = stage.user();
        user.press(XKB_KEY_Control_L);
        user.press(XKB_KEY_Shift_R);
        user.press(XKB_KEY_space);
        QVERIFY(stage.tessel.waitForBar());
        QCOMPARE(captured(stage), u"tesserae"_s);
        user.release(XKB_KEY_space);
        user.release(XKB_KEY_Shift_R);
        user.release(XKB_KEY_Control_L);
        QTRY_COMPARE(user.modifiers(), quint8(0));
        QVERIFY(user.pressedKeycodes().isEmpty());
        user.tap(XKB_KEY_1);
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?tesserae"_s });
    }

    void selectionIsKept_data()
    {
        QTest::addColumn<EditorKind>("kind");
        QTest::newRow("mousepad") << EditorKind::Mousepad;
        QTest::newRow("featherpad") << EditorKind::FeatherPad;
        QTest::newRow("Tk") << EditorKind::Tk;
        QTest::newRow("gvim") << EditorKind::Gvim;
    }

    void selectionIsKept()
    {
        QFETCH(EditorKind, kind);
        Stage stage;
        QVERIFY(stage.start());
        QVERIFY(stage.open(u"tesserae"_s, kind));
        QVERIFY(stage.tessel.summon());
        QCOMPARE(captured(stage), u"tesserae"_s);
        stage.user().tap(XKB_KEY_Escape);
        QVERIFY(stage.tessel.waitUntilBarGone());
        QVERIFY(stage.runAction());
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?tesserae"_s });
    }

    /// Any key may be a command there: none is sent.
    void modalEditorIsLeftAlone()
    {
        Stage stage;
        QVERIFY(stage.start());
        QVERIFY(stage.editor.emplace(stage.session, EditorKind::Gvim).open(u"tesserae"_s));
        stage.user().tap(XKB_KEY_F2);
        QVERIFY(stage.logs(noText));
        QVERIFY(stage.editor->selectAll()); // the text is as it was
    }

    void terminalProgramSurvives_data()
    {
        QTest::addColumn<EditorKind>("kind");
        QTest::addColumn<bool>("hasSelection");
        for (const bool hasSelection : { true, false }) {
            const char *selected = hasSelection ? "text" : "nothing";
            QTest::addRow("xterm, %s selected", selected) << EditorKind::XTerm << hasSelection;
            QTest::addRow("sakura, %s selected", selected) << EditorKind::Sakura << hasSelection;
        }
    }

    void terminalProgramSurvives()
    {
        QFETCH(EditorKind, kind);
        QFETCH(bool, hasSelection);
        const QString text = u"output of a program"_s;
        Stage stage;
        QVERIFY(stage.start());
        Editor &terminal = stage.editor.emplace(stage.session, kind);
        QVERIFY(terminal.open(text));
        if (hasSelection) {
            QVERIFY(terminal.selectAll());
            QVERIFY(stage.tessel.summon());
            QCOMPARE(captured(stage), text);
            XClipboard &clipboard = stage.session.clipboard();
            QCOMPARE(clipboard.text(), clipboard.text(XClipboard::Selection::Primary));
        } else {
            stage.user().tap(XKB_KEY_F2);
            QVERIFY(stage.logs(noText));
            QCOMPARE(stage.session.clipboard().owner(), quint32(0));
        }
        QCOMPARE(terminal.interrupts(), 0);
        // The program notices an interrupt that is meant for it.
        stage.user().tap(XKB_KEY_Escape);
        QVERIFY(stage.tessel.waitUntilBarGone());
        stage.user().tap(XKB_KEY_c, { XKB_KEY_Control_L });
        QTRY_COMPARE(terminal.interrupts(), 1);
    }

    void hostileOwners_data()
    {
        QTest::addColumn<QStringList>("mode");
        QTest::addColumn<QString>("expected"); // null: nothing is captured; else its beginning

        const auto row = [](const QStringList &mode, const QString &expected) {
            QTest::newRow(qPrintable(mode.join(u' '))) << mode << expected;
        };
        row({ u"never-answers"_s }, {});
        row({ u"dies-while-sending"_s }, {});
        row({ u"latin1-only"_s }, u"café"_s);
        row({ u"files"_s }, {});
        row({ u"secret"_s }, {});
        row({ u"empty-first"_s }, u"\ufefflate"_s);
        row({ u"incr"_s, u"16777216"_s }, u"abcdefghijkl"_s);
    }

    void hostileOwners()
    {
        QFETCH(QStringList, mode);
        QFETCH(QString, expected);
        Stage stage;
        QVERIFY(stage.start());
        QVERIFY(launchHostileOwner(stage.session, mode));
        stage.user().tap(XKB_KEY_F2);
        if (expected.isNull()) {
            QVERIFY(stage.logs(noText));
            QVERIFY(!stage.tessel.bar());
        } else {
            QVERIFY(stage.tessel.waitForBar());
            const QString text = captured(stage);
            QVERIFY2(text.startsWith(expected), qPrintable(text));
        }
        QVERIFY(stage.tessel.process().isRunning());
    }
};

QTEST_GUILESS_MAIN(tst_Capture)
#include "tst_Capture.moc"
