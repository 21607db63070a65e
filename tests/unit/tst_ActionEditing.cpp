// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionEditing.h"
#include "settings/KeyNames.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

QList<ActionConfig> titled(const QString &titles)
{
    QList<ActionConfig> actions;
    for (const QChar title : titles) {
        actions.append(ActionConfig());
        actions.last().title = title;
    }
    return actions;
}

QString titles(const QList<ActionConfig> &actions)
{
    QString text;
    for (const ActionConfig &action : actions)
        text += action.title;
    return text;
}

}

Q_DECLARE_METATYPE(ActionType)

/// The rules behind the settings window.
class tst_ActionEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void move_data()
    {
        QTest::addColumn<qsizetype>("source");
        QTest::addColumn<qsizetype>("dropRow");
        QTest::addColumn<QString>("order"); // null: refused
        QTest::newRow("down") << qsizetype(0) << qsizetype(2) << u"bacd"_s;
        QTest::newRow("up") << qsizetype(3) << qsizetype(1) << u"adbc"_s;
        QTest::newRow("to the end") << qsizetype(0) << qsizetype(4) << u"bcda"_s;
        QTest::newRow("before itself") << qsizetype(2) << qsizetype(2) << u"abcd"_s;
        QTest::newRow("behind itself") << qsizetype(2) << qsizetype(3) << u"abcd"_s;
        QTest::newRow("no such source") << qsizetype(4) << qsizetype(0) << QString();
        QTest::newRow("negative source") << qsizetype(-1) << qsizetype(0) << QString();
        QTest::newRow("no such place") << qsizetype(0) << qsizetype(5) << QString();
    }

    void move()
    {
        QFETCH(qsizetype, source);
        QFETCH(qsizetype, dropRow);
        QFETCH(QString, order);
        QList<ActionConfig> actions = titled(u"abcd"_s);
        QCOMPARE(ActionEditing::move(actions, source, dropRow), !order.isNull());
        QCOMPARE(titles(actions), order.isNull() ? u"abcd"_s : order);
    }

    void draggedData()
    {
        QCOMPARE(ActionEditing::rowFromDragged(ActionEditing::draggedRow(12)), qsizetype(12));
        for (const char *rubbish : { "", "x", "1x", "99999999999999999999", "\xff" })
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
        QTest::newRow("to builtin")
            << u"https://a"_s << ActionType::builtin << u"COPY"_s << QString();
        QTest::newRow("empty to url") << QString() << ActionType::url << u"https://"_s << QString();
        QTest::newRow("text to url")
            << u"ls"_s << ActionType::url << u"ls"_s << u"Invalid URL scheme"_s;
        QTest::newRow("empty to shortcut")
            << QString() << ActionType::shortcut << QString() << u"Shortcut name required"_s;
        QTest::newRow("empty to script")
            << QString() << ActionType::appleScript << QString() << u"Script required"_s;
        QTest::newRow("url to script")
            << u"https://a"_s << ActionType::shellScript << u"https://a"_s << QString();
    }

    void changeOfType()
    {
        QFETCH(QString, before);
        QFETCH(ActionType, type);
        QFETCH(QString, after);
        QFETCH(QString, problem);
        ActionConfig action;
        action.templateText = before;
        action = ActionEditing::withType(action, type);
        QCOMPARE(action.templateText, after);
        QCOMPARE(ActionEditing::problem(action).value_or(QString()), problem);
    }

    void shortcutNames_data()
    {
        QTest::addColumn<qint64>("keyCode");
        QTest::addColumn<qint64>("modifiers");
        QTest::addColumn<QString>("shown");
        QTest::newRow("alone") << 120LL << 0LL << u"F2"_s;
        QTest::newRow("letter, two modifiers") << 0LL << 0x60000LL << u"⌃⇧A"_s;
        QTest::newRow("all modifiers, others dropped") << 49LL << 0x1F0101LL << u"⌃⌥⇧⌘Space"_s;
        QTest::newRow("keypad") << 87LL << 0LL << u"5"_s;
        QTest::newRow("forward delete") << 117LL << 0LL << u"Delete"_s;
        QTest::newRow("backslash") << 42LL << 0x80000LL << u"⌥\\"_s;
        QTest::newRow("ISO key") << 10LL << 0LL << u"Key 10"_s;
        QTest::newRow("no key") << 52LL << 0LL << u"Key 52"_s;
        QTest::newRow("out of range") << 4000LL << 0LL << u"Key 4000"_s;
    }

    void shortcutNames()
    {
        QFETCH(qint64, keyCode);
        QFETCH(qint64, modifiers);
        QTEST(shortcutText(keyCode, modifiers), "shown");
    }
};

QTEST_GUILESS_MAIN(tst_ActionEditing)
#include "tst_ActionEditing.moc"
