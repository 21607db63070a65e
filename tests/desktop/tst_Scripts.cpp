// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"
#include "files/Files.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

/// The actions that run AppleScript, shortcuts and the helpers, from the trigger to what they do.
class tst_Scripts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uppercase()
    {
        for (const EditorKind kind : { EditorKind::Mousepad, EditorKind::FeatherPad }) {
            Stage stage;
            stage.tessel.actions = { TesselProcess::defaultAction(u"Uppercase"_s) };
            QVERIFY(stage.start());
            QVERIFY(stage.open(u"one é жук 한글 it's\n\"two\" \\"_s, kind));
            QVERIFY(stage.runAction());
            const QString upper = u"ONE É ЖУК 한글 IT'S\n\"TWO\" \\"_s;
            QVERIFY(stage.session.clipboard().waitForText(upper));
            // Looking at the content selects it anew, which must not come before the paste.
            const quint32 editor = stage.editor->window().id;
            QTRY_VERIFY_WITH_TIMEOUT(stage.user().window(editor)->title.contains(u'*'), 15000);
            QTRY_COMPARE_WITH_TIMEOUT(stage.editor->content(), upper, 15000);
        }
    }

    void note()
    {
        Stage stage;
        stage.tessel.actions = { TesselProcess::defaultAction(u"Add to Notes"_s) };
        QVERIFY(stage.start());
        QVERIFY(
            stage.offer(u"Title \"of\" it's\r\na < b && <T> &amp; <b>bold</b>\r\\n 한글\nend"_s));
        QVERIFY(stage.runAction());
        QTRY_VERIFY(stage.onlyFile(u"Documents/Notes"_s));
        const QString noteText = *stage.onlyFile(u"Documents/Notes"_s);
        QVERIFY2(noteText.contains(
                     u"Title \"of\" it's\na < b && <T> &amp; <b>bold</b>\n\\n 한글\nend"_s),
                 qPrintable(noteText));
    }

    void calendarEntry()
    {
        Stage stage;
        QVERIFY(stage.session.start() && stage.installCalendar());
        stage.tessel.actions = { TesselProcess::defaultAction(u"Add to Calendar"_s) };
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.offer(u"치과 예약, 2031년 5월 6일 오후 3시 30분"_s));
        QVERIFY(stage.runAction());
        QVERIFY(stage.logs(u"Action: Requesting shortcut '일정 추가'"_s));
        QTRY_VERIFY_WITH_TIMEOUT(stage.onlyFile(u"got"_s), 15000);
        const QString entry = *stage.onlyFile(u"got"_s);
        QVERIFY2(entry.contains(u"DTSTART:20310506T153000\r\n"), qPrintable(entry));
        QVERIFY2(entry.contains(u"DESCRIPTION:치과 예약\\, 2031년"), qPrintable(entry));
    }

    void scriptOfTheUser()
    {
        Stage stage;
        const QString text = u"\"quoted\" and 'so'\nsecond line\\"_s;
        stage.tessel.actions = { TesselProgram::action(
            u"script"_s, u"appleScript"_s,
            u"set t to \"{text}\"\ndo shell script \"cat >copy <<'END'\" & linefeed & t & linefeed "
            u"& \"END\"\n"
            u"display dialog t default answer \"é\" with title \"Shown\" "
            "buttons {\"No\", \"Fine\"} default button 2"_s) };
        QVERIFY(stage.start());
        QVERIFY(stage.offer(text));
        QVERIFY(stage.runAction());
        const auto dialog = stage.user().waitForWindow(
            [](const WindowInfo &window) { return window.title == u"Shown"; });
        QVERIFY(dialog && stage.user().waitUntilUsable(dialog->id));
        QCOMPARE(stage.file(u"copy"_s), (text + u'\n').toUtf8());
        for (const quint32 key : { XKB_KEY_End, XKB_KEY_x, XKB_KEY_Return })
            stage.user().tap(key);
        QVERIFY(stage.logs(u"AppleScript Output: button returned:Fine, text returned:éx"_s));
    }

    void shortcuts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("logged");
        const auto decomposed = QString::NormalizationForm_D;
        QTest::newRow("decomposed") << u"Größe 한글"_s.normalized(decomposed)
                                    << u"Success: Ran 'Größe 한글' with Input: \\[it's\\]"_s;
        QTest::newRow("part, other case, decomposed")
            << u"RÖßE 한"_s.normalized(decomposed)
            << u"Success: Ran similar 'Größe 한글' with Input: \\[it's\\]"_s;
        QTest::newRow("none") << u"Nobody's"_s << u"Error: Shortcut not found"_s;
    }

    void shortcuts()
    {
        QFETCH(QString, name);
        QFETCH(QString, logged);
        Stage stage;
        QVERIFY(stage.session.start());
        QVERIFY(writeProgram(stage.session.dataPath() + u"/tessel/shortcuts/Größe 한글.sh"_s,
                             u"cat >\"$HOME/input\"\n"_s));
        stage.tessel.actions = { TesselProgram::action(u"s"_s, u"shortcut"_s, name) };
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.offer(u"it's"_s));
        QVERIFY(stage.runAction());
        QVERIFY(stage.logs(u"Shortcut Result: "_s + logged));
        QCOMPARE(stage.file(u"input"_s), QByteArray(logged.startsWith(u"Success") ? "it's" : ""));
    }
};

QTEST_GUILESS_MAIN(tst_Scripts)
#include "tst_Scripts.moc"
