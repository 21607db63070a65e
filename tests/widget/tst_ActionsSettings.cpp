// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/Memory.h"
#include "settings/ActionsModel.h"
#include "settings/ExcludedAppsModel.h"
#include "settings/SaveNotice.h"
#include "widget/CpuTime.h"
#include "widget/SettingsFixture.h"
#include "windows/EditingKeys.h"
#include "windows/WindowStyle.h"

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// Memory that is this process's own, in KiB.
int privateDirty()
{
    const QRegularExpression line(u"Private_Dirty:\\s+(\\d+)"_s);
    const auto found = line.match(QString::fromLatin1(readFile(u"/proc/self/smaps_rollup"_s)));
    return found.captured(1).toInt();
}

}

/// The table of actions, and what the window costs.
class tst_ActionsSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(new WindowStyle);
        installEditingKeys();
    }

    void init()
    {
        Log::setSink([](QStringView) {});
    }
    void cleanup() { Log::setSink({}); }

    void singleLineFields()
    {
        SettingsFixture fixture;
        fixture.openWith(ActionType::url, { u"a://one"_s, u"a://two"_s });
        fixture.type(1, ActionsModel::titleColumn, u"  renamed\t"_s);
        QCOMPARE(fixture.saved(1).title, u"renamed"_s);
        fixture.type(1, ActionsModel::regexColumn, u" \\d+ "_s);
        QCOMPARE(fixture.saved(1).regex, u"\\d+"_s);
        fixture.type(1, ActionsModel::regexColumn, u"  "_s);
        QVERIFY(!fixture.saved(1).regex);
        fixture.type(1, ActionsModel::templateColumn, u" no scheme "_s);
        QCOMPARE(fixture.saved(1).templateText, u"no scheme"_s);
        const QModelIndex field = fixture.table().model()->index(1, ActionsModel::templateColumn);
        QCOMPARE(field.data(Qt::ToolTipRole), u"Invalid URL scheme"_s);
        QCOMPARE(field.data(ActionsModel::remarkRole), int(Remark::Kind::wrong));
        fixture.click(1, ActionsModel::enabledColumn); // what is off need not be valid
        QVERIFY(!fixture.saved(1).isEnabled);
        QVERIFY(!field.data(ActionsModel::remarkRole).isValid());
        QCOMPARE(fixture.saved(0).title, u"a://one"_s);
    }

    /// No key of the text moves the table on, and what is wrong shows at once.
    void keysInAField()
    {
        SettingsFixture fixture;
        fixture.openWith(ActionType::url, { u"a://one"_s, u"a://two"_s });
        fixture.doubleClick(0, ActionsModel::regexColumn);
        auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(field);
        const auto color = [field] { return field->palette().color(QPalette::Text); };
        const QColor valid = color();
        QTest::keyClicks(field, u"(b"_s);
        QCOMPARE(field->toolTip(), u"Invalid regular expression"_s);
        QVERIFY(color() != valid);
        QTest::keyClicks(field, u")"_s);
        QVERIFY(field->toolTip().isEmpty() && color() == valid);
        for (const Qt::Key key : { Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Home })
            QTest::keyClick(field, key, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_B, Qt::MetaModifier); // types nothing
        QTest::keyClicks(field, u"a"_s);
        QTest::keyClick(field, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_PageUp);
        QTest::keyClicks(field, u"c"_s);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(fixture.saved(0).regex, u"a(b)c"_s);
    }

    void typesAndBuiltins()
    {
        SettingsFixture fixture;
        fixture.openWith(ActionType::url, { u"a://one"_s });
        fixture.click(0, ActionsModel::typeColumn);
        fixture.pick(u"builtin"_s);
        QCOMPARE(fixture.saved(0).templateText, u"COPY"_s);
        fixture.click(0, ActionsModel::templateColumn);
        fixture.pick(u"LARGE_TYPE"_s);
        fixture.table().setCurrentIndex(
            fixture.table().model()->index(0, ActionsModel::typeColumn));
        QTest::keyClick(&fixture.table(), Qt::Key_Space);
        fixture.pick(u"builtin"_s); // as it is already
        QCOMPARE(fixture.saved(0).templateText, u"LARGE_TYPE"_s);
    }

    void scriptEditor_data()
    {
        QTest::addColumn<QString>("end");
        for (const char *end :
             { "Ctrl+Return", "Escape", "click", "right click", "tab bar", "close" })
            QTest::newRow(end) << QString::fromLatin1(end);
    }

    void scriptEditor()
    {
        QFETCH(QString, end);
        SettingsFixture fixture;
        fixture.openWith(ActionType::shellScript, { u"echo "_s, u"two"_s });
        RowTextView *editor = fixture.editScript(0);
        QVERIFY(editor);
        QCOMPARE(fixture.table().rowHeight(0), 100);
        QCOMPARE(editor->textCursor().position(), 0);
        QTest::keyClicks(editor, u"  ls"_s);
        QTest::keyClick(editor, Qt::Key_Return);
        QTest::mouseClick(editor->viewport(), Qt::LeftButton, {}, { 5, 5 });
        QTest::keyClick(editor, Qt::Key_Down, Qt::AltModifier); // not a key of the table's
        QTest::keyClick(editor, Qt::Key_F2);
        QCOMPARE(fixture.scriptEditor(), editor);
        QCOMPARE(fixture.config.customActions[1].title, u"two"_s);
        if (end == u"Ctrl+Return")
            QTest::keyClick(editor, Qt::Key_Return, Qt::ControlModifier);
        else if (end == u"Escape")
            QTest::keyClick(editor, Qt::Key_Escape);
        else if (end == u"click")
            fixture.click(1, ActionsModel::enabledColumn); // which is still where it was
        else if (end == u"right click")
            QTest::mouseClick(fixture.table().viewport(), Qt::RightButton, {},
                              fixture.cell(1, ActionsModel::regexColumn));
        else if (end == u"tab bar")
            fixture.window->findChild<QTabBar *>()->setCurrentIndex(0);
        else
            fixture.window->close();
        QCOMPARE(fixture.saved(0).templateText, u"  ls\necho "_s);
        QCOMPARE(fixture.saved(1).isEnabled, end != u"click");
        if (end != u"close") {
            QTRY_VERIFY(!fixture.scriptEditor());
            QCOMPARE(fixture.table().rowHeight(0), 30);
        }
    }

    void scriptStaysAsItIs()
    {
        SettingsFixture fixture;
        const QString text = u"a\u00a0b\r\nc\u2028d"_s;
        fixture.openWith(ActionType::appleScript, { text });
        fixture.editScript(0)->endEditing();
        QCOMPARE(fixture.saved(0).templateText, text);
        QTRY_VERIFY(!fixture.scriptEditor());
        QTest::keyClicks(fixture.editScript(0), u"x"_s);
        fixture.scriptEditor()->endEditing();
        QCOMPARE(fixture.saved(0).templateText, u"xa\u00a0b\nc\nd"_s);
    }

    void addRemoveReset()
    {
        SettingsFixture fixture;
        fixture.openWith(ActionType::shortcut, { u"one"_s });
        fixture.control<QPushButton>(u"Add Action"_s)->click();
        QCOMPARE(fixture.saved().customActions.size(), 2);
        QCOMPARE(fixture.saved(1).title, u"New Action"_s);
        QCOMPARE(fixture.saved(1).templateText, u"https://"_s);
        QVERIFY(!fixture.saved(1).id.isEmpty());
        QCOMPARE(fixture.table().currentIndex().row(), 1);
        auto *remove = fixture.control<QPushButton>(u"Remove Action"_s);
        remove->click();
        QCOMPARE(fixture.saved().customActions.size(), 1);
        fixture.table().clearSelection();
        fixture.table().setFocus(); // which makes an action current, but selects none
        remove->click();
        QCOMPARE(fixture.saved().customActions.size(), 1);
        fixture.config.excludedBundleIds = { u"org.test.Editor"_s };
        fixture.config.save();
        const auto *excluded = fixture.window->findChild<ExcludedAppsModel *>();
        QCOMPARE(excluded->rowCount(), 1);
        for (auto *button : fixture.window->findChildren<QPushButton *>()) {
            if (button->text() == u"Reset Defaults")
                button->click();
        }
        QCOMPARE(excluded->rowCount(), 0);
        QCOMPARE(fixture.saved().customActions.size(), 9);

        fixture.control<QPushButton>(u"Add Action"_s)->click();
        fixture.doubleClick(8, ActionsModel::titleColumn); // a field has the key for itself
        QTest::keyClicks(QApplication::focusWidget(), u"x"_s);
        const auto undo
            = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier); };
        undo();
        QCOMPARE(fixture.config.customActions.size(), 10);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(QApplication::focusWidget(), &fixture.table());
        undo(); // the reset, but not what was added since
        QCOMPARE(fixture.saved().customActions.size(), 2);
        QCOMPARE(excluded->rowCount(), 1);
        fixture.type(0, ActionsModel::titleColumn, u"later"_s);
        undo(); // the removal, not what was edited since
        QCOMPARE(fixture.saved(0).title, u"later"_s);
        QCOMPARE(fixture.saved(1).title, u"New Action"_s);
        QCOMPARE(fixture.table().currentIndex().row(), 1);
        undo(); // nothing is left
        QCOMPARE(fixture.saved().customActions.size(), 3);
    }

    void saysThatNothingIsSaved()
    {
        SettingsFixture fixture;
        fixture.showActions();
        const auto *notice = fixture.window->findChild<SaveNotice *>();
        QVERIFY(!notice->isVisible());
        const QString file = fixture.folder.filePath(u"GlintClone/config.json"_s);
        QVERIFY(QFile::remove(file) && QDir().mkdir(file));
        fixture.click(0, ActionsModel::enabledColumn);
        QVERIFY(notice->isVisible());
        QCOMPARE(notice->text(), u"Changes are not being saved: Is a directory"_s);
        QVERIFY(QDir().rmdir(file));
        fixture.click(0, ActionsModel::enabledColumn);
        QVERIFY(!notice->isVisible());
    }

    /// A drop that no drag of the table stands behind.
    void foreignDropIsRefused()
    {
        SettingsFixture fixture;
        fixture.showActions();
        const auto before = fixture.config.customActions;
        for (const char *type : { "text/plain", "application/x-tessel-action-row" }) {
            QMimeData data;
            data.setData(QString::fromLatin1(type), "0");
            QDragEnterEvent enter(fixture.cell(3, 0), Qt::MoveAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(fixture.table().viewport(), &enter);
            QVERIFY(!enter.isAccepted());
            QDropEvent drop(fixture.cell(3, 0), Qt::MoveAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(fixture.table().viewport(), &drop);
            QVERIFY(!drop.isAccepted());
        }
        QCOMPARE(fixture.config.customActions, before);
        fixture.table().selectRow(0);
        QTest::keyClick(&fixture.table(), Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(fixture.saved(1), before[0]);
        QTest::keyClick(&fixture.table(), Qt::Key_Up, Qt::AltModifier);
        QTest::keyClick(&fixture.table(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(fixture.saved().customActions, before);
    }

    /// The offscreen desktop has 800 by 800 pixels; a tiling one gives what it likes.
    void smallWindow()
    {
        SettingsFixture fixture;
        fixture.showActions();
        QCOMPARE(fixture.window->width(), 784);
        QCOMPARE(fixture.window->findChild<QStackedWidget *>()->height(), 450);
        fixture.window->setMinimumSize(1, 1);
        fixture.window->resize(680, 450);
        QTRY_COMPARE(fixture.table().horizontalHeader()->length(),
                     fixture.table().viewport()->width());
        fixture.window->resize(300, 200);
        QTRY_VERIFY(fixture.table().horizontalScrollBar()->maximum() > 0);
        QCOMPARE(fixture.table().height(), fixture.table().minimumHeight()); // the page scrolls
    }

    void aThousandActions()
    {
        SettingsFixture fixture;
        QStringList many;
        for (int i = 0; i < 1000; ++i)
            many.append(u"a://%1"_s.arg(i));
        const qint64 start = cpuTime();
        fixture.openWith(ActionType::url, many);
        fixture.window->grab();
        const qint64 opened = cpuTime() - start;
        fixture.click(3, ActionsModel::enabledColumn);
        const qint64 edited = cpuTime() - start - opened;
        QVERIFY(!fixture.saved(3).isEnabled);
        qInfo("opened in %lld ms, edited in %lld ms", opened, edited);
        QVERIFY(opened < 1000 && edited < 200); // sanitizers are slower
    }

    void openingAndClosingLeavesNothing()
    {
        SettingsFixture fixture;
        const auto openAndClose = [&fixture](int times) {
            for (int i = 0; i < times; ++i) {
                fixture.open();
                fixture.showActions();
                fixture.window->grab();
                fixture.click(0, ActionsModel::iconColumn);
                fixture.window->close();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                fixture.window.reset();
            }
        };
        openAndClose(20);
        releaseUnusedMemory();
        const int before = privateDirty();
        openAndClose(100);
        releaseUnusedMemory();
        const int growth = privateDirty() - before;
        qInfo("grown by %d KiB", growth);
#ifndef __SANITIZE_ADDRESS__
        QVERIFY2(growth <= 1024, qPrintable(QString::number(growth)));
#endif
    }
};

QTEST_MAIN(tst_ActionsSettings)
#include "tst_ActionsSettings.moc"
