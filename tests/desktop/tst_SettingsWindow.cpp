// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

enum Column { enabled, icon, title, type, templateText };

/// An editor whose whole text is selected, and the settings window over it.
struct SettingsStage : Stage
{
    WindowInfo settings;

    [[nodiscard]] bool prepare(const QString &text = u"selected"_s)
    {
        if (!start() || !open(text))
            return false;
        const auto window = tessel.openSettings();
        settings = window.value_or(WindowInfo());
        return window.has_value();
    }

    void tap(quint32 keysym, int times = 1) const
    {
        for (int i = 0; i < times; ++i)
            user().tap(keysym);
    }

    void showActions() const
    {
        user().tap(XKB_KEY_Tab, { XKB_KEY_Control_L });
        QTest::qWait(200); // until it is drawn, for those who look
    }

    /// Middle of a cell of the actions' table in the window's smallest size.
    [[nodiscard]] QPoint cell(int row, Column column) const
    {
        constexpr int middles[] = { 44, 86, 150, 290, 480 };
        return settings.geometry.topLeft() + QPoint(middles[column], 152 + 30 * row);
    }

    [[nodiscard]] bool closeSettings() const
    {
        user().tap(XKB_KEY_w, { XKB_KEY_Control_L });
        return user().waitUntilGone(settings.id) && user().waitUntilUsable(editor->window().id);
    }

    [[nodiscard]] QJsonObject action(int row) const
    {
        return tessel.configuration().value(u"customActions"_s).toArray().at(row).toObject();
    }
};

/// A window of the program with this in its title.
std::optional<WindowInfo> dialog(const SettingsStage &stage, const QString &title)
{
    const auto window = stage.tessel.waitForWindow(title);
    return window && stage.user().waitUntilUsable(window->id) ? window : std::nullopt;
}

}

/// What a user does in the settings window, by mouse and keyboard, and what comes of it.
class tst_SettingsWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anotherTrigger()
    {
        SettingsStage stage;
        QVERIFY(stage.prepare());
        stage.tap(XKB_KEY_Tab, 4);
        QTest::qWait(300); // until it is drawn
        const QImage before = stage.user().screenshot(stage.settings.geometry);
        stage.tap(
            XKB_KEY_Tab); // to the recorder; asking before it has the keyboard would prevent it
        QTRY_VERIFY(stage.user().screenshot(stage.settings.geometry) != before);
        QTRY_VERIFY(stage.user().isKeyboardGrabbed());
        stage.user().tap(XKB_KEY_F4, { XKB_KEY_Alt_L }); // the window manager's key to close
        QTRY_COMPARE(stage.tessel.configuration().value(u"triggerKeyCode"_s), 118);
        QCOMPARE(stage.tessel.configuration().value(u"triggerModifiers"_s), 0x80000);
        stage.tap(XKB_KEY_Tab, 5); // again
        stage.user().tap(XKB_KEY_F6, { XKB_KEY_Control_L });
        QTRY_COMPARE(stage.tessel.configuration().value(u"triggerKeyCode"_s), 97);
        QVERIFY(stage.closeSettings());
        stage.tessel.awaitTrigger();
        stage.user().tap(XKB_KEY_F2);
        QTest::qWait(1000);
        QVERIFY(!stage.tessel.bar());
        stage.user().tap(XKB_KEY_F6, { XKB_KEY_Control_L });
        QVERIFY(stage.tessel.waitForBar());
    }

    void excludedEditor()
    {
        SettingsStage stage;
        QVERIFY(stage.prepare());
        stage.tap(XKB_KEY_Tab, 10); // to "+"
        stage.tap(XKB_KEY_space);
        QVERIFY(dialog(stage, u"Add App"_s));
        QVERIFY(stage.user().typeText(u"org.xfce.mousepad"_s));
        stage.tap(XKB_KEY_Return);
        QTRY_COMPARE(stage.tessel.configuration().value(u"excludedBundleIds"_s).toArray(),
                     QJsonArray { u"org.xfce.mousepad"_s });
        QVERIFY(stage.user().waitUntilUsable(stage.settings.id));
        QVERIFY(stage.closeSettings());
        stage.tessel.awaitTrigger();
        stage.user().tap(XKB_KEY_F2);
        const QRegularExpression line(u"DEBUG: App excluded: org\\.xfce\\.mousepad"_s);
        QVERIFY(stage.tessel.process().waitForOutput(line).hasMatch());
        QVERIFY(!stage.tessel.bar());
    }

    void scriptInSeveralLines()
    {
        SettingsStage stage;
        stage.tessel.actions = { TesselProgram::action(u"script"_s, u"shellScript"_s, u"true"_s) };
        QVERIFY(stage.prepare(u"it's here"_s));
        stage.showActions();
        const QRect below(stage.cell(1, enabled), QSize(500, 60));
        const QImage before = stage.user().screenshot(below);
        stage.user().click(stage.cell(0, templateText), 2);
        QTRY_VERIFY(stage.user().screenshot(below) != before); // the row has grown
        stage.user().tap(XKB_KEY_x, { XKB_KEY_Super_L }); // nothing is selected yet
        stage.user().tap(XKB_KEY_a, { XKB_KEY_Super_L });
        QVERIFY(stage.user().typeText(u"out=result"_s));
        stage.tap(XKB_KEY_Return);
        QVERIFY(stage.user().typeText(u"printf %s '{text}' > $out"_s));
        stage.user().tap(XKB_KEY_Return, { XKB_KEY_Control_L });
        QTRY_COMPARE(stage.action(0).value(u"template"_s),
                     u"out=result\nprintf %s '{text}' > $out"_s);
        QVERIFY(stage.closeSettings());

        QVERIFY(stage.editor->selectAll()); // selecting in the settings has undone it
        QVERIFY(stage.runAction());
        QTRY_COMPARE(stage.file(u"result"_s), QByteArray("it's here"));
    }

    void importedIcon()
    {
        SettingsStage stage;
        QVERIFY(stage.prepare());
        QImage square(300, 300, QImage::Format_ARGB32);
        square.fill(Qt::red);
        const QString path = stage.session.homePath() + u"/square.png"_s;
        QVERIFY(square.save(path));
        stage.showActions();
        stage.user().click(stage.cell(0, icon));
        const auto picker = stage.user().waitForWindow([](const WindowInfo &window) {
            return window.className == u"Tessel" && window.geometry.size() == QSize(300, 400);
        });
        QVERIFY(picker);
        QVERIFY(stage.user().typeText(u"bell"_s)); // the keyboard is in the search field
        stage.user().click(picker->geometry.topLeft() + QPoint(255, 25));
        QVERIFY(dialog(stage, u"Import"_s));
        QVERIFY(stage.user().typeText(path));
        stage.tap(XKB_KEY_Return);
        QTRY_VERIFY(stage.action(0).value(u"iconName"_s).toString().startsWith(u"custom:"));
    }

    void draggedRow()
    {
        SettingsStage stage;
        for (const char *name : { "one", "two", "three", "four", "five" })
            stage.tessel.actions.append(TesselProgram::urlAction(
                QString::fromLatin1(name), u"tessel-test://%1?{text}"_s.arg(QLatin1String(name))));
        QVERIFY(stage.prepare());
        stage.showActions();
        const QPoint from = stage.cell(3, title);
        const QPoint to = stage.cell(0, title) - QPoint(0, 12);
        stage.user().movePointer(from);
        stage.user().pressButton();
        for (int step = 1; step <= 10; ++step) {
            stage.user().movePointer(from + (to - from) * step / 10);
            QTest::qWait(30); // a hand is not faster
        }
        stage.user().releaseButton();
        QTRY_COMPARE(stage.action(0).value(u"id"_s), u"four"_s);
        QCOMPARE(stage.action(1).value(u"id"_s), u"one"_s);
    }
};

QTEST_GUILESS_MAIN(tst_SettingsWindow)
#include "tst_SettingsWindow.moc"
