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
    void move_data()
    {
        QTest::addColumn<int>("source");
        QTest::addColumn<int>("dropRow");
        QTest::addColumn<QString>("order"); // null: refused
        QTest::newRow("down") << 0 << 2 << u"bacd"_s;
        QTest::newRow("up") << 3 << 1 << u"adbc"_s;
        QTest::newRow("to the end") << 0 << 4 << u"bcda"_s;
        QTest::newRow("behind itself") << 2 << 3 << u"abcd"_s;
        QTest::newRow("no such source") << 4 << 0 << QString();
        QTest::newRow("negative source") << -1 << 0 << QString();
        QTest::newRow("no such place") << 0 << 5 << QString();
    }

    void move()
    {
        QFETCH(int, source);
        QFETCH(int, dropRow);
        QFETCH(QString, order);
        QList<ActionConfig> actions;
        for (const QString &title : { u"a"_s, u"b"_s, u"c"_s, u"d"_s })
            actions.append({ {}, title, {}, ActionType::url, {} });
        QCOMPARE(ActionEditing::move(actions, source, dropRow), !order.isNull());
        QString titles;
        for (const ActionConfig &action : actions)
            titles += action.title;
        QCOMPARE(titles, order.isNull() ? u"abcd"_s : order);
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

    void changeOfType_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<ActionType>("type");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("problem");
        const auto row = [](const char *name, const QString &before, ActionType type,
                            const QString &after, const QString &problem = {}) {
            QTest::newRow(name) << before << type << after << problem;
        };
        row("to builtin", u"https://a"_s, ActionType::builtin, u"COPY"_s);
        row("empty to url", {}, ActionType::url, u"https://"_s);
        row("text to url", u"ls"_s, ActionType::url, u"ls"_s, u"Invalid URL scheme"_s);
        row("empty to shortcut", {}, ActionType::shortcut, {}, u"Shortcut name required"_s);
        row("empty to script", {}, ActionType::appleScript, {}, u"Script required"_s);
        row("url to script", u"https://a"_s, ActionType::shellScript, u"https://a"_s);
    }

    void changeOfType()
    {
        QFETCH(QString, before);
        QFETCH(ActionType, type);
        QFETCH(QString, problem);
        const ActionConfig action = ActionEditing::withType({ {}, {}, {}, ActionType::url, before }, type);
        QTEST(action.templateText, "after");
        const Result<void> valid = ActionEditing::validate(action);
        QCOMPARE(valid ? QString() : valid.error().reason, problem);
    }

    void shortcutNames()
    {
        QCOMPARE(shortcutText(120, 0), u"F2"_s);
        QCOMPARE(shortcutText(0, 0x60000), u"⌃⇧A"_s);
        QCOMPARE(shortcutText(49, 0x1F0101), u"⌃⌥⇧⌘Space"_s); // no names for the other bits
        QCOMPARE(shortcutText(87, 0), u"5"_s);
        QCOMPARE(shortcutText(4000, 0), u"Key 4000"_s);
    }
};

QTEST_APPLESS_MAIN(tst_ActionEditing)
#include "tst_ActionEditing.moc"
