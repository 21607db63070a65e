// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/MenuBarManager.h"
#include "base/FileLogger.h"
#include "base/Log.h"
#include "files/Files.h"
#include "settings/SettingsWindowController.h"
#include "widget/CpuTime.h"
#include "widget/PanelFixture.h"
#include "windows/ErrorPanel.h"
#include "windows/LargeTypeWindow.h"
#include "windows/Theme.h"

#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

struct MenuFixture : PanelFixture
{
    LocalizationManager texts { QStringLiteral(TESSEL_BUNDLE "/Localizations") };
    MenuBarManager manager { { config, texts, notifications, bundle, platform } };
    QStringList lines;

    MenuFixture()
    {
        Log::setSink([this](QStringView line) { lines += line.toString(); });
    }
    ~MenuFixture() { Log::setSink({}); }
    Q_DISABLE_COPY_MOVE(MenuFixture)

    [[nodiscard]] static QMenu *menu()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *menu = qobject_cast<QMenu *>(widget))
                return menu;
        }
        return nullptr;
    }

    [[nodiscard]] static QStringList entries()
    {
        QStringList titles;
        for (const QAction *action : menu()->actions())
            titles += action->isSeparator() ? u"-"_s : action->text();
        return titles;
    }
};

}

class tst_MenuBarManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuFollowsTheLanguage()
    {
        MenuFixture fixture;
        QCOMPARE(fixture.entries().first(), u"About Tessel"_s);
        fixture.texts.currentLanguage = u"ko"_s;
        Q_EMIT fixture.notifications.languageDidChange();
        QCOMPARE(fixture.entries(),
                 QStringList({ u"Tessel 정보"_s, u"업데이트 확인..."_s, u"-"_s, u"환경설정..."_s,
                               u"-"_s, u"종료"_s }));
    }

    void trayItemWaitsForTheBar()
    {
        MenuFixture fixture;
        auto &tray = fixture.platform.statusArea();
        fixture.setActions({ { u"a"_s, {} } });
        QVERIFY(fixture.show(u"text"_s));
        tray.isThere = true;
        tray.ask();
        QTRY_VERIFY(tray.asked > 3); // again and again: no item yet
        tray.isThere = false;
    }

    void settingsWindowLivesOnce()
    {
        MenuFixture fixture;
        QMenu *menu = fixture.menu();
        menu->popup({});
        QTest::keyClick(menu, Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(!menu->isVisible());
        auto *window = shownWindow<SettingsWindowController>();
        QVERIFY(window);
        QVERIFY(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        fixture.manager.openSettings();
        QCOMPARE(shownWindow<SettingsWindowController>(), window);
        fixture.lines.clear();
        window->close();
        QCOMPARE(fixture.lines,
                 QStringList({ u"DEBUG: windowWillClose - starting cleanup"_s,
                               u"DEBUG: clearIconCache called - clearing 3 icon buttons"_s,
                               u"DEBUG: windowWillClose - cleanup complete, calling onClose"_s,
                               u"DEBUG: Settings window closing - performing cleanup"_s,
                               u"DEBUG: SettingsWindowController reference set to nil"_s }));
    }

    void errorPanelShowsAnything()
    {
        MenuFixture fixture;
        for (const QString &message :
             { QString(1'000'000, u'm'), u"line of a log\n"_s.repeated(70'000),
               u"a\x01\x1b[31m\x7f\r\tb"_s + QChar(0) }) {
            const qint64 start = cpuTime();
            fixture.manager.showError(u"Command Failed"_s, u"first"_s);
            const QPointer<ErrorPanel> first = shownWindow<ErrorPanel>();
            fixture.manager.showError(u"Command Failed"_s, message);
            QTRY_VERIFY(!first); // one at a time
            auto *panel = shownWindow<ErrorPanel>();
            QVERIFY(panel);
            panel->grab();
            QVERIFY2(cpuTime() - start < 2000, qPrintable(QString::number(cpuTime() - start)));
            const QString text = panel->findChild<QPlainTextEdit *>()->toPlainText();
            QCOMPARE(QString(text).remove(u'\n').size(), QString(message).remove(u'\n').size());
            QVERIFY(!text.contains(QChar(0x1b)));
            QTest::keyClick(panel, Qt::Key_Return);
            QCOMPARE(fixture.platform.pasteboard().text, message);
            QVERIFY(!shownWindow<ErrorPanel>());
        }
    }

    void largeTypeOpensAnyTextAtOnce()
    {
        PanelFixture fixture;
        auto &host = fixture.platform.popupHost();
        const Theme &theme = themeFor(ThemeMode::system, false);
        for (const QString &text : { QString(1'000'000, u'w'), QString(1'000'000, u'\n'),
                                     QString(1'000'000, QChar(0x301)) }) { // combining marks
            const qint64 start = cpuTime();
            LargeTypeWindow::show(host, u"before"_s, theme);
            QTRY_VERIFY(shownWindow<LargeTypeWindow>());
            const QPointer<LargeTypeWindow> before = shownWindow<LargeTypeWindow>();
            LargeTypeWindow::show(host, text, theme);
            QTRY_VERIFY(!before); // one at a time
            auto *window = shownWindow<LargeTypeWindow>();
            QVERIFY(window);
            QCOMPARE(window->geometry(), *host.location.screen);
            window->grab();
            QVERIFY2(cpuTime() - start < 1500, qPrintable(QString::number(cpuTime() - start)));
            QTest::mouseRelease(window, Qt::LeftButton); // of the click that picked the action
            QVERIFY(window->isVisible());
            if (text.front() == u'w')
                Q_EMIT window->screen()->geometryChanged({});
            else if (text.front() == u'\n')
                QTest::mouseClick(window, Qt::LeftButton, {}, { 30, 400 });
            else
                QTest::keyClick(window, Qt::Key_Shift);
            QTRY_VERIFY(!shownWindow<LargeTypeWindow>());
            QVERIFY(!host.keyboard);
        }
    }

    void largeTypeIsCutOffBelow()
    {
        PanelFixture fixture;
        LargeTypeWindow::show(fixture.platform.popupHost(), u"i\n"_s.repeated(100),
                              themeFor(ThemeMode::system, false));
        QTRY_VERIFY(shownWindow<LargeTypeWindow>());
        const QImage picture = shownWindow<LargeTypeWindow>()->grab().toImage();
        const QImage besideTheLines = picture.copy(0, 0, picture.width() / 3, picture.height());
        QCOMPARE(besideTheLines, besideTheLines.copy(0, 0, 1, 1).scaled(besideTheLines.size()));
        LargeTypeWindow::closeShown();
    }

    void debugLogAppends()
    {
        MenuFixture fixture;
        const QString path = fixture.folder.filePath(u"debug.log"_s);
        FileLogger::log(u"first"_s, path);
        FileLogger::log(u"two\nlines"_s, path);
        const QRegularExpression lines(
            u"^(\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\dZ): first\\n(?1): two\\nlines\\n$"_s);
        QVERIFY(lines.match(QString::fromUtf8(readFile(path))).hasMatch());
        QCOMPARE(fixture.lines, QStringList({ u"first"_s, u"two\nlines"_s }));
        FileLogger::log(u"nowhere"_s, u"/nonexistent/debug.log"_s);
        QCOMPARE(fixture.lines.last(), u"nowhere"_s);
    }
};

QTEST_MAIN(tst_MenuBarManager)
#include "tst_MenuBarManager.moc"
