// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/DefaultActions.h"
#include "desktop/TesselProgram.h"
#include "support/Editors.h"
#include "support/TextFile.h"
#include "support/XClipboard.h"

#include <QDirIterator>
#include <QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

/// One of the actions that everybody has at first.
QJsonObject defaultAction(const QString &title)
{
    for (const ActionConfig &action : DefaultActions::all()) {
        if (action.title == title)
            return TesselProgram::action(title, infoOf(action.type).rawValue, action.templateText);
    }
    return {};
}

/// A desktop on which the program runs one action.
struct Stage
{
    DesktopSession session;
    TesselProgram tessel { session };

    [[nodiscard]] bool prepare(const QJsonObject &action)
    {
        tessel.actions = { action };
        return session.start() && tessel.start();
    }

    [[nodiscard]] bool runAction()
    {
        tessel.awaitTrigger();
        const bool isShown = tessel.summon().has_value();
        session.user().tap(XKB_KEY_1);
        return isShown && tessel.waitUntilBarGone();
    }

    [[nodiscard]] bool logs(const QString &pattern)
    {
        return tessel.process().waitForOutput(QRegularExpression(pattern)).hasMatch();
    }

    /// The content of the only file below a folder of the home; nothing when there is none.
    [[nodiscard]] std::optional<QString> onlyFile(const QString &folder) const
    {
        QDirIterator files(session.homePath() + u'/' + folder, QDir::Files);
        if (!files.hasNext())
            return {};
        QFile file(files.next());
        const bool isOpen = file.open(QIODevice::ReadOnly);
        return isOpen && !files.hasNext() ? std::optional(QString::fromUtf8(file.readAll()))
                                          : std::nullopt;
    }
};

}

/// The actions that run AppleScript, shortcuts and the helpers, from the trigger to what they do.
class tst_Scripts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uppercase_data()
    {
        QTest::addColumn<EditorKind>("kind");
        QTest::newRow("mousepad") << EditorKind::Mousepad;
        QTest::newRow("featherpad") << EditorKind::FeatherPad;
    }

    void uppercase()
    {
        QFETCH(EditorKind, kind);
        Stage stage;
        QVERIFY(stage.prepare(defaultAction(u"Uppercase"_s)));
        Editor editor(stage.session, kind);
        QVERIFY(editor.open(u"one é жук 한글 it's\n\"two\" \\"_s));
        QVERIFY(editor.selectAll());
        QVERIFY(stage.runAction());
        const QString upper = u"ONE É ЖУК 한글 IT'S\n\"TWO\" \\"_s;
        QVERIFY(stage.session.clipboard().waitForText(upper));
        QTRY_COMPARE(editor.content(), upper);
    }

    void note_data()
    {
        QTest::addColumn<QString>("text");
        const QString text = u"Title \"of\" it's%1a < b && <T> &amp; <b>bold</b>%1\\n 한글"_s;
        QTest::newRow("LF") << text.arg(u"\n"_s);
        QTest::newRow("CR") << text.arg(u"\r"_s);
        QTest::newRow("CRLF") << text.arg(u"\r\n"_s);
    }

    void note()
    {
        QFETCH(QString, text);
        Stage stage;
        QVERIFY(stage.prepare(defaultAction(u"Add to Notes"_s)));
        QVERIFY(launchHostileOwner(stage.session, { u"text"_s, text }));
        QVERIFY(stage.runAction());
        QTRY_VERIFY(stage.onlyFile(u"Documents/Notes"_s));
        const QString expected = u"Title \"of\" it's\na < b && <T> &amp; <b>bold</b>\n\\n 한글"_s;
        const QString noteText = *stage.onlyFile(u"Documents/Notes"_s);
        QVERIFY2(noteText.contains(expected), qPrintable(noteText));
    }

    void calendarEntry()
    {
        Stage stage;
        QVERIFY(stage.session.start());
        const QString calendar = stage.session.dataPath() + u"/applications/calendar.desktop"_s;
        const QString handler = stage.session.homePath() + u"/calendar"_s;
        QVERIFY(writeFile(handler, u"#!/bin/sh\ncp \"$1\" \"$HOME/got/entry.ics\"\n"_s));
        QVERIFY(QFile::setPermissions(handler, QFile::ReadOwner | QFile::ExeOwner));
        QVERIFY(QDir().mkpath(stage.session.homePath() + u"/got"_s));
        QVERIFY(writeFile(calendar,
                          u"[Desktop Entry]\nType=Application\nName=Calendar\nExec=%1 %f\n"
                          u"MimeType=text/calendar;\n"_s.arg(handler)));
        QFile defaults(stage.session.configPath() + u"/mimeapps.list"_s);
        QVERIFY(defaults.open(QIODevice::Append));
        defaults.write("\n[Default Applications]\ntext/calendar=calendar.desktop\n");
        defaults.close();
        stage.tessel.actions = { defaultAction(u"Add to Calendar"_s) };
        QVERIFY(stage.tessel.start());
        QVERIFY(launchHostileOwner(stage.session,
                                   { u"text"_s, u"치과 예약, 2031년 5월 6일 오후 3시 30분"_s }));
        QVERIFY(stage.runAction());
        QVERIFY(stage.logs(u"Action: Requesting shortcut '일정 추가'"_s));
        QTRY_VERIFY_WITH_TIMEOUT(stage.onlyFile(u"got"_s), 15000);
        const QString entry = *stage.onlyFile(u"got"_s);
        QVERIFY2(entry.contains(u"DTSTART:20310506T153000\r\n"), qPrintable(entry));
        QVERIFY2(entry.contains(u"치과 예약"), qPrintable(entry));
    }

    void scriptOfTheUser()
    {
        Stage stage;
        const QString text = u"\"quoted\" and 'so'\nsecond line\\"_s;
        QVERIFY(stage.prepare(TesselProgram::action(
            u"script"_s, u"appleScript"_s,
            u"set t to \"{text}\"\ndo shell script \"cat >copy <<'END'\" & linefeed & t & linefeed "
            u"& \"END\"\n"
            u"display dialog t with title \"Shown\" buttons {\"No\", \"Fine\"} default button 2"_s)));
        QVERIFY(launchHostileOwner(stage.session, { u"text"_s, text }));
        QVERIFY(stage.runAction());
        const auto dialog = stage.session.user().waitForWindow(
            [](const WindowInfo &window) { return window.title == u"Shown"; });
        QVERIFY(dialog && stage.session.user().waitUntilUsable(dialog->id));
        QFile copy(stage.session.homePath() + u"/copy"_s);
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(copy.readAll()), text + u'\n');
        stage.session.user().tap(XKB_KEY_Return);
        QVERIFY(stage.logs(u"AppleScript Output: button returned:Fine"_s));
    }

    void shortcuts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("logged");
        QTest::newRow("exact") << u"Größe 한글"_s
                               << u"Success: Ran 'Größe 한글' with Input: \\[it's\\]"_s;
        QTest::newRow("decomposed") << u"Größe 한글"_s.normalized(QString::NormalizationForm_D)
                                    << u"Success: Ran 'Größe 한글' with Input: \\[it's\\]"_s;
        QTest::newRow("part, other case")
            << u"GRÖ"_s << u"Success: Ran similar 'Größe 한글' with Input: \\[it's\\]"_s;
        QTest::newRow("part, decomposed")
            << u"öße 한"_s.normalized(QString::NormalizationForm_D)
            << u"Success: Ran similar 'Größe 한글' with Input: \\[it's\\]"_s;
        QTest::newRow("none") << u"Nobody's"_s << u"Error: Shortcut not found"_s;
    }

    void shortcuts()
    {
        QFETCH(QString, name);
        QFETCH(QString, logged);
        Stage stage;
        QVERIFY(stage.session.start());
        const QString file = stage.session.dataPath() + u"/tessel/shortcuts/Größe 한글.sh"_s;
        QVERIFY(writeFile(file, u"#!/bin/sh\ncat >\"$HOME/input\"\n"_s));
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner));
        stage.tessel.actions = { TesselProgram::action(u"s"_s, u"shortcut"_s, name) };
        QVERIFY(stage.tessel.start());
        QVERIFY(launchHostileOwner(stage.session, { u"text"_s, u"it's"_s }));
        QVERIFY(stage.runAction());
        QVERIFY(stage.logs(u"Shortcut Result: "_s + logged));
        const bool isRun = logged.startsWith(u"Success");
        QCOMPARE(QFile::exists(stage.session.homePath() + u"/input"_s), isRun);
    }
};

QTEST_GUILESS_MAIN(tst_Scripts)
#include "tst_Scripts.moc"
