// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/HelperStage.h"
#include "support/WaylandEditor.h"
#include "support/WaylandSession.h"

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Kind = WaylandEditorKind;
using WaylandHelpers = BasicHelperStage<WaylandSession>;

/// The command-line helpers on a wlroots compositor without an X server, as a shell finds them.
class tst_WaylandHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clipboard_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray every;
        for (int i = 0; i < 256; ++i)
            every += static_cast<char>(i);
        QTest::newRow("text") << QByteArray("caf\xc3\xa9 \xed\x95\x9c\n");
        QTest::newRow("nothing") << QByteArray("");
        QTest::newRow("8 MiB of every byte") << every.repeated(32 << 10);
    }

    void clipboard()
    {
        QFETCH(QByteArray, bytes);
        WaylandHelpers stage;
        QVERIFY2(stage.prepare(), qPrintable(stage.session.errorString()));
        stage.write(u"in"_s, bytes);
        // Command substitution waits until nobody has its pipe any more.
        QCOMPARE(stage.run(u"x=$(pbcopy <in 2>&1 3>&1); pbpaste >out"_s), 0);
        QVERIFY(stage.file(u"out"_s) == bytes);
        QVERIFY(stage.isServing());
        QCOMPARE(stage.run(u"wl-paste --no-newline >out; wl-copy other; pbpaste >later"_s), 0);
        QVERIFY(stage.file(u"out"_s) == bytes);
        QCOMPARE(stage.file(u"later"_s), "other");
        QTRY_VERIFY(!stage.isServing());
    }

    void typesAnyText_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("layout");
        QTest::newRow("GTK, ru") << Kind::Mousepad << u"ru"_s;
        QTest::newRow("Qt, de") << Kind::FeatherPad << u"de"_s;
        QTest::newRow("Qt on X, kr") << Kind::FeatherPadOnX << u"kr"_s;
    }

    void typesAnyText()
    {
        QFETCH(Kind, kind);
        QFETCH(QString, layout);
        WaylandHelpers stage;
        QVERIFY(stage.prepare(
            WaylandOptions { .keyboardLayout = layout, .x11 = kind == Kind::FeatherPadOnX }));
        WaylandEditor editor(stage.session, kind);
        QVERIFY(editor.open(u"."_s) && editor.selectAll());
        QCOMPARE(stage.run(u"osascript -e 'tell application \"System Events\" to keystroke "
                           "\"Hé 한글 Ж\" & return & \"a€🙂 {Q}\"'"_s),
                 0);
        QVERIFY(editor.holds(u"Hé 한글 Ж\na€🙂 {Q}"_s));
    }

    void applications()
    {
        WaylandHelpers stage;
        QVERIFY(stage.prepare());
        WaylandEditor editor(stage.session, Kind::FeatherPad);
        QVERIFY(editor.open(u"text"_s));
        QCOMPARE(stage.run(u"osascript -e 'tell application \"Mousepad\" to activate'"_s), 0);
        QVERIFY(stage.session.waitForFocus(u"mousepad"_s));
        QCOMPARE(stage.run(u"osascript -e 'tell application \"System Events\" to get name of "
                           "every process' >all"_s),
                 0);
        QVERIFY2(stage.file(u"all"_s).contains("Mousepad"), stage.file(u"all"_s).constData());
        QVERIFY(stage.file(u"all"_s).contains("FeatherPad"));
        QCOMPARE(stage.run(u"osascript -e 'tell application \"FeatherPad\" to activate'"_s), 0);
        QVERIFY(stage.session.waitForFocus(u"featherpad"_s));
        QCOMPARE(stage.run(u"osascript -e 'tell application \"System Events\" to get name of "
                           "first process whose frontmost is true' >front"_s),
                 0);
        QCOMPARE(stage.file(u"front"_s), "FeatherPad\n");
        QCOMPARE(stage.run(u"osascript -e 'tell application \"FeatherPad\" to quit'"_s), 0);
        QTRY_VERIFY(!editor.isOpen());
    }

    void opens()
    {
        WaylandHelpers stage;
        QVERIFY(stage.prepare());
        QCOMPARE(stage.run(u"open tessel-test:1"_s), 0);
        QCOMPARE(stage.session.urlRecorder().waitForUrls(1), QStringList { u"tessel-test:1"_s });
    }

    void withoutCompositor()
    {
        WaylandHelpers stage;
        QVERIFY(stage.prepare());
        stage.session.setVariable(u"WAYLAND_DISPLAY"_s, u"/nowhere"_s);
        for (const QString &command :
             { u"pbcopy </dev/null"_s, u"pbpaste"_s,
               u"osascript -e 'tell application \"System Events\" to keystroke \"x\"'"_s }) {
            QCOMPARE(stage.run(command + u" 2>err"_s), 1);
            QCOMPARE(stage.file(u"err"_s).count('\n'), 1);
        }
    }
};

QTEST_GUILESS_MAIN(tst_WaylandHelpers)
#include "tst_WaylandHelpers.moc"
