// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionEditing.h"
#include "settings/KeyNames.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

/// The rules behind the settings window.
class tst_ActionEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void moves()
    {
        const auto moved = [](qsizetype source, qsizetype dropRow) {
            QList<ActionConfig> actions(4);
            for (qsizetype i = 0; i < 4; ++i)
                actions[i].title = QChar(u'a' + int(i));
            QString titles = ActionEditing::move(actions, source, dropRow) ? u""_s : u"refused: "_s;
            for (const ActionConfig &action : actions)
                titles += action.title;
            return titles;
        };
        QCOMPARE(moved(0, 2), u"bacd"_s);
        QCOMPARE(moved(3, 1), u"adbc"_s);
        QCOMPARE(moved(0, 4), u"bcda"_s);
        QCOMPARE(moved(2, 3), u"abcd"_s);
        QCOMPARE(moved(4, 0), u"refused: abcd"_s);
        QCOMPARE(moved(-1, 0), u"refused: abcd"_s);
        QCOMPARE(moved(0, 5), u"refused: abcd"_s);
    }

    void draggedData()
    {
        QCOMPARE(ActionEditing::rowFromDragged(ActionEditing::draggedRow(12)), qsizetype(12));
        for (const char *rubbish : { "", "1x", "99999999999999999999", "\xff" })
            QVERIFY2(!ActionEditing::rowFromDragged(rubbish), rubbish);
        QCOMPARE(ActionEditing::dropRow(5, 2, 30), qsizetype(5));
        QVERIFY(!ActionEditing::dropRow(5, 15, 30)); // onto the row
        QCOMPARE(ActionEditing::dropRow(5, 28, 30), qsizetype(6));
    }

    void changesOfType()
    {
        const QString doubt
            = u"The shell would interpret the text here: write \"$TESSEL_TEXT\" or '{text}'"_s;
        for (const auto &[before, type, after, problem] : {
                 std::tuple { u"a://b"_s, ActionType::builtin, u"COPY"_s, u""_s },
                 { u""_s, ActionType::url, u"https://"_s, u""_s },
                 { u"ls"_s, ActionType::url, u"ls"_s, u"Invalid URL scheme"_s },
                 { u""_s, ActionType::shortcut, u""_s, u"Shortcut name required"_s },
                 { u""_s, ActionType::appleScript, u""_s, u"Script required"_s },
                 { u"a://b"_s, ActionType::shellScript, u"a://b"_s, u""_s },
                 { u"ls {text}"_s, ActionType::shellScript, u"ls {text}"_s, doubt },
                 { u"\"{text}\""_s, ActionType::appleScript, u"\"{text}\""_s, u""_s },
             }) {
            ActionConfig action;
            action.templateText = before;
            action = ActionEditing::withType(action, type);
            QCOMPARE(action.templateText, after);
            const auto remark = ActionEditing::templateRemark(action);
            QCOMPARE(remark ? remark->reason : QString(), problem);
            QCOMPARE(remark && remark->kind == Remark::Kind::doubtful, problem == doubt);
            action.isEnabled = false;
            QVERIFY(!ActionEditing::templateRemark(action));
        }
    }

    void shortcutNames()
    {
        QCOMPARE(shortcutText(120, 0), u"F2"_s);
        QCOMPARE(shortcutText(49, 0x1F0101), u"⌃⌥⇧⌘Space"_s); // no names for the other bits
        QCOMPARE(spelledShortcut(49, 0x1F0101), u"Ctrl+Alt+Shift+Super+Space"_s);
        QCOMPARE(shortcutText(87, 0), u"5"_s);
        QCOMPARE(shortcutText(4000, 0), u"Key 4000"_s);
    }
};

QTEST_GUILESS_MAIN(tst_ActionEditing)
#include "tst_ActionEditing.moc"
