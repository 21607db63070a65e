// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsModel.h"
#include "settings/ExcludedAppsModel.h"
#include "settings/GeneralSettingsViewController.h"
#include "settings/IconSelectionButton.h"
#include "settings/ShortcutRecorderControl.h"
#include "widget/SettingsFixture.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>

#include <linux/input-event-codes.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

void pressKey(QWidget *widget, int evdevCode, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, quint32(evdevCode + 8), 0, 0);
    QApplication::sendEvent(widget, &event);
}

QString shortcut(const ShortcutRecorderControl &recorder)
{
    return recorder.accessibleDescription().section(u". "_s, 0, 0);
}

}

/// The tab of what concerns the whole program.
class tst_GeneralSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Log::setSink([](QStringView) {});
    }
    void cleanup() { Log::setSink({}); }

    void languageShowsAtOnceAndIsKept()
    {
        SettingsFixture fixture;
        fixture.platform.eventMonitor().route = TriggerRoute::unbound;
        fixture.platform.eventMonitor().binding = u"bind = , F2, exec, tessel --trigger"_s;
        Q_EMIT fixture.platform.eventMonitor().triggerRouteChanged();
        auto *language = fixture.control<QComboBox>(u"Language"_s);
        QVERIFY(language);
        language->setFocus();
        QTest::keyClick(language, Qt::Key_Down); // 한국어
        const auto *tabs = fixture.window->findChild<QTabBar *>();
        QCOMPARE(tabs->tabText(0), u"일반"_s);
        QTRY_VERIFY(fixture.control<QComboBox>(u"언어"_s));
        QCOMPARE(fixture.saved().language, u"ko"_s);
        QTRY_COMPARE(fixture.window->findChildren<IconSelectionButton *>().size(), 3);
        QVERIFY(fixture.control<QComboBox>(u"언어"_s)->hasFocus());
        const auto isShown = [&fixture](QStringView start) {
            const auto labels = fixture.window->findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [start](const QLabel *label) {
                return label->isVisible() && label->text().startsWith(start);
            });
        };
        QVERIFY(isShown(u"이 데스크톱은") && isShown(u"bind = "));
        fixture.platform.eventMonitor().route = TriggerRoute::shared;
        Q_EMIT fixture.platform.eventMonitor().triggerRouteChanged();
        QVERIFY(isShown(u"다른 프로그램") && !isShown(u"bind = "));

        const auto header = [&fixture](int column) {
            return fixture.table().model()->headerData(column, Qt::Horizontal);
        };
        QCOMPARE(header(ActionsModel::titleColumn), u"이름"_s);
        QCOMPARE(header(ActionsModel::regexColumn), u"컨텍스트(정규식)"_s);
    }

    void excludedApplications()
    {
        SettingsFixture fixture;
        auto *model = fixture.window->findChild<ExcludedAppsModel *>();
        for (const QString &added : { u"org.a"_s, u"org.b"_s, u"org.a"_s })
            model->add(added);
        QCOMPARE(fixture.saved().excludedBundleIds, QStringList({ u"org.a"_s, u"org.b"_s }));

        auto *table = fixture.control<QAbstractItemView>(u"Excluded Apps"_s);
        auto *remove = fixture.control<QAbstractButton>(u"Remove"_s);
        table->clearSelection();
        table->setFocus(); // which makes an entry current, but selects none
        remove->click();
        QCOMPARE(fixture.saved().excludedBundleIds.size(), 2);
        table->setCurrentIndex(model->index(0));
        table->edit(table->currentIndex());
        auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        field->setText(u" as typed "_s);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(QApplication::focusWidget() != field);
        QCOMPARE(fixture.saved().excludedBundleIds, QStringList({ u" as typed "_s, u"org.b"_s }));
        remove->click();
        QCOMPARE(fixture.saved().excludedBundleIds, QStringList(u"org.b"_s));
        table->setCurrentIndex(model->index(0));
        table->edit(table->currentIndex());
        qobject_cast<QLineEdit *>(QApplication::focusWidget())->setText(u"half-typed"_s);
        fixture.window->close();
        QCOMPARE(fixture.saved().excludedBundleIds, QStringList(u"half-typed"_s));
    }

    void recorder()
    {
        SettingsFixture fixture;
        auto *recorder = fixture.control<ShortcutRecorderControl>(u"Trigger Shortcut"_s);
        QVERIFY(recorder);
        const auto record = [&](int evdevCode, Qt::Key key, Qt::KeyboardModifiers modifiers) {
            QTest::mouseClick(recorder, Qt::LeftButton);
            for (const int alone : { KEY_LEFTSHIFT, KEY_NUMLOCK, KEY_SCROLLLOCK })
                pressKey(recorder, alone, Qt::Key_unknown, {});
            if (recorder->accessibleDescription() != u"Type shortcut...")
                return u"does not record"_s;
            pressKey(recorder, evdevCode, key, modifiers);
            return recorder->hasFocus() ? u"goes on"_s : shortcut(*recorder);
        };
        const auto cyrillic = Qt::Key(0x424);
        QCOMPARE(record(KEY_A, cyrillic, Qt::ControlModifier | Qt::ShiftModifier),
                 u"Ctrl+Shift+A"_s);
        QCOMPARE(fixture.saved().triggerKeyCode, 0);
        QCOMPARE(fixture.saved().triggerModifiers, KeyCodes::control | KeyCodes::shift);
        QCOMPARE(record(KEY_KP5, Qt::Key_5, Qt::KeypadModifier), u"5"_s);
        QCOMPARE(record(KEY_TAB, Qt::Key_Tab, {}), u"Tab"_s);
        QCOMPARE(record(KEY_W, Qt::Key_W, Qt::ControlModifier), u"Ctrl+W"_s); // a key of the window
        QVERIFY(fixture.window->isVisible());
        QCOMPARE(record(KEY_ESC, Qt::Key_Escape, {}), u"Ctrl+W"_s);
        QCOMPARE(fixture.saved().triggerKeyCode, 13);
    }

    void recorderLetsGo()
    {
        SettingsFixture fixture;
        auto *recorder = fixture.control<ShortcutRecorderControl>(u"Trigger Shortcut"_s);
        QTest::mouseClick(recorder, Qt::LeftButton);
        QTest::mouseClick(recorder->parentWidget()->parentWidget()->parentWidget(), Qt::LeftButton,
                          {}, { 5, 5 });
        QCOMPARE(shortcut(*recorder), u"F2"_s);
        // A window that comes back to the front records nothing.
        recorder->setFocus(Qt::ActiveWindowFocusReason);
        QCOMPARE(shortcut(*recorder), u"F2"_s);
        QTest::keyClick(recorder, Qt::Key_Space); // unless it is told to
        QCOMPARE(recorder->accessibleDescription(), u"Type shortcut..."_s);
    }

    void switchesAndLogos()
    {
        SettingsFixture fixture;
        fixture.control<QAbstractButton>(u"Show Keyboard Shortcuts"_s)->click();
        fixture.control<QAbstractButton>(u"Show Tooltips"_s)->click();
        fixture.control<QAbstractButton>(u"Neon"_s)->click();
        fixture.control<QAbstractButton>(u"Keep Settings Window on Top"_s)->click();
        QVERIFY(!fixture.window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(fixture.window->isVisible());
        const AppConfig saved = fixture.saved();
        QVERIFY(!saved.showKeyboardShortcuts && !saved.showTooltips && !saved.alwaysOnTop);
        QCOMPARE(saved.appIcon, AppIconType::neon);
        auto *theme = fixture.control<QComboBox>(u"Theme"_s);
        theme->setFocus();
        QTest::keyClick(theme, Qt::Key_End);
        QCOMPARE(fixture.saved().themeMode, ThemeMode::dark);
    }
};

QTEST_MAIN(tst_GeneralSettings)
#include "tst_GeneralSettings.moc"
