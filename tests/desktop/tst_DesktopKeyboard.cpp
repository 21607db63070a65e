// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/HelperStage.h"
#include "lib/desktop/DesktopKeyboard.h"
#include "support/Editors.h"
#include "support/XClipboard.h"

#include <QElapsedTimer>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Osascript::Modifiers;

namespace {

/// An editor on a desktop with this keyboard layout, and the keyboard of scripts.
struct EditorStage
{
    Stage stage;
    std::unique_ptr<Editor> editor;
    std::unique_ptr<DesktopKeyboard> keyboard = std::make_unique<DesktopKeyboard>();

    [[nodiscard]] bool open(EditorKind kind, const QString &layout, const QString &text = {})
    {
        DesktopOptions options;
        options.keyboardLayout = layout;
        if (!stage.prepare(options))
            return false;
        stage.enter();
        editor = std::make_unique<Editor>(stage.session, kind);
        return editor->open(text);
    }

    /// Whether the editor comes to hold this text.
    [[nodiscard]] bool holds(const QString &expected) const
    {
        return QTest::qWaitFor([&] { return editor->content() == expected; },
                               static_cast<int>(defaultTimeout.count()));
    }
};

}

class tst_DesktopKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typesAnyText_data()
    {
        QTest::addColumn<EditorKind>("editor");
        QTest::addColumn<QString>("layout");
        QTest::addColumn<QString>("text");
        const QString mixed = u"Hé 한글 Ж\n\"a\\b\" €🙂 {Q}"_s;
        QString many; // more characters than there are spare keys
        for (char16_t c = u'가'; c < u'가' + 120; ++c)
            many += QChar(c);
        const auto row
            = [](const char *name, EditorKind kind, const QString &layout, const QString &typed) {
                  QTest::newRow(name) << kind << layout << typed;
              };
        row("GTK", EditorKind::Mousepad, u"us"_s, mixed);
        row("GTK, two groups", EditorKind::Mousepad, u"ru,us"_s, mixed);
        row("GTK, many", EditorKind::Mousepad, u"us"_s, many);
        row("Qt", EditorKind::FeatherPad, u"de"_s, mixed);
        row("Qt, many", EditorKind::FeatherPad, u"us"_s, many);
    }

    void typesAnyText()
    {
        QFETCH(EditorKind, editor);
        QFETCH(QString, layout);
        QFETCH(QString, text);
        EditorStage stage;
        QVERIFY2(stage.open(editor, layout), qPrintable(stage.stage.session.errorString()));
        QCOMPARE(reason(stage.keyboard->type(text, {})), QString());
        QVERIFY(stage.holds(text));
    }

    void layoutIsRestored()
    {
        EditorStage stage;
        QVERIFY(stage.open(EditorKind::Mousepad, u"us"_s));
        const auto layoutNow = [&stage] {
            ChildProcess &dump = stage.stage.session.launch(
                u"xkbcomp"_s, { u"-xkb"_s, stage.stage.session.display(), u"-"_s });
            return dump.waitForExit() ? dump.output() : QString();
        };
        QVERIFY(!layoutNow().contains(u"U1F642"_s));
        QCOMPARE(reason(stage.keyboard->type(u"🙂"_s, {})), QString());
        QVERIFY(!layoutNow().contains(u"U1F642"_s, Qt::CaseInsensitive));
        QVERIFY(stage.holds(u"🙂"_s));
    }

    void pastes_data()
    {
        QTest::addColumn<EditorKind>("editor");
        QTest::addColumn<QString>("layout");
        QTest::newRow("GTK, other place of v") << EditorKind::Mousepad << u"us(dvorak)"_s;
        QTest::newRow("GTK, no v") << EditorKind::Mousepad << u"ru"_s;
        QTest::newRow("Qt, no v") << EditorKind::FeatherPad << u"ru"_s;
        QTest::newRow("Qt, v in the other group") << EditorKind::FeatherPad << u"ru,us"_s;
    }

    void pastes()
    {
        QFETCH(EditorKind, editor);
        QFETCH(QString, layout);
        EditorStage stage;
        QVERIFY(stage.open(editor, layout));
        stage.stage.session.clipboard().setText(u"tesserae"_s);
        stage.stage.session.user().press(XKB_KEY_Shift_L); // as somebody slow would
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(reason(stage.keyboard->type(u"v"_s, { .command = true })), QString());
        QVERIFY(timer.elapsed() < 1500); // the editor's answer was awaited, not the time limit
        stage.stage.session.user().releaseAllKeys();
        QVERIFY(stage.holds(u"tesserae"_s));
        QCOMPARE(stage.stage.session.user().modifiers(), quint8(0));
    }

    /// GTK 3 handles further keys while it fetches the clipboard.
    void typesAndPressesAfterPasting()
    {
        EditorStage stage;
        QVERIFY(stage.open(EditorKind::Mousepad, u"us"_s));
        stage.stage.write(u"in"_s, "P1\nP2");
        QCOMPARE(stage.stage.run(u"pbcopy <in"_s), 0);
        QCOMPARE(reason(stage.keyboard->type(u"vv"_s, { .command = true })), QString());
        QCOMPARE(reason(stage.keyboard->press(36, {})), QString()); // Return
        QCOMPARE(reason(stage.keyboard->press(9, { .command = true })), QString()); // V
        QCOMPARE(reason(stage.keyboard->type(u"typed: é 한"_s, {})), QString());
        QCOMPARE(reason(stage.keyboard->press(123, { .shift = true })), QString()); // left
        QCOMPARE(reason(stage.keyboard->press(7, {})), QString()); // X
        QCOMPARE(reason(stage.keyboard->press(7, { .shift = true })), QString());
        QVERIFY(stage.holds(u"P1\nP2P1\nP2\nP1\nP2typed: é xX"_s));
        QVERIFY(!stage.keyboard->press(999, {}));
    }

    /// Ctrl+Shift+C is an interrupt there.
    void leavesXtermAlone()
    {
        EditorStage stage;
        QVERIFY(stage.open(EditorKind::XTerm, u"us"_s, u"text"_s));
        QVERIFY(!stage.keyboard->type(u"c"_s, { .command = true }));
        QCOMPARE(reason(stage.keyboard->type(u"c"_s, { .control = true })), QString());
        QTRY_COMPARE(stage.editor->interrupts(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_DesktopKeyboard)
#include "tst_DesktopKeyboard.moc"
