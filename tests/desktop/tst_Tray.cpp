// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

const QSize itemSize(24, 24);

/// A tray that embeds windows, at the upper right corner of the screen.
ChildProcess &startTray(DesktopSession &session)
{
    return session.launch(u"trayer"_s,
                          { u"--edge"_s, u"top"_s, u"--align"_s, u"right"_s, u"--widthtype"_s,
                            u"request"_s, u"--heighttype"_s, u"pixel"_s, u"--height"_s, u"28"_s });
}

}

/// The item in the tray, its menu, and what the menu opens.
class tst_Tray : public QObject
{
    Q_OBJECT

    /// Where the item is, or nothing when there is none.
    static std::optional<QPoint> item(DesktopSession &session)
    {
        const int right = session.user().screenshot().width();
        const QRect place(QPoint(right - itemSize.width() - 1, 2), itemSize);
        const QImage picture = session.user().screenshot(place);
        // The tray is plain: more than a few colours are a picture.
        QSet<QRgb> colours;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                colours.insert(picture.pixel(x, y));
        }
        return colours.size() > 4 ? std::optional(place.center()) : std::nullopt;
    }

    /// The open menu.
    static std::optional<WindowInfo> menu(DesktopSession &session)
    {
        return session.user().waitForWindow([](const WindowInfo &window) {
            return window.overrideRedirect && window.className == u"Tessel"
                && window.geometry.width() > 80;
        });
    }

    /// Opens the menu by a right click and picks the entry of that number by the keyboard.
    static bool choose(DesktopSession &session, int entry)
    {
        const auto place = item(session);
        if (!place)
            return false;
        QTest::qWait(500); // else it would be a double click with the one before
        session.user().click(*place, 1, 3);
        const auto opened = menu(session);
        if (!opened)
            return false;
        for (int i = 0; i <= entry; ++i)
            session.user().tap(XKB_KEY_Down);
        session.user().tap(XKB_KEY_Return);
        return session.user().waitUntilGone(opened->id);
    }

private Q_SLOTS:
    void comesAndComesBackWithTheTray()
    {
        Stage stage;
        DesktopSession &session = stage.session;
        QVERIFY(stage.start());
        for (int i = 0; i < 2; ++i) {
            ChildProcess &tray = startTray(session);
            QTRY_VERIFY(item(session));
            tray.end();
            QTRY_VERIFY(!item(session));
        }
    }

    void entriesDoWhatTheySay()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        startTray(session);
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        QTRY_VERIFY(item(session));

        QVERIFY(choose(session, 2));
        const auto settings = tessel.waitForWindow(u"Tessel Preferences"_s);
        QVERIFY(settings);
        QVERIFY(session.user().waitUntilUsable(settings->id));
        // From another virtual desktop: the same window comes over.
        session.user().tap(XKB_KEY_Right, { XKB_KEY_Control_L, XKB_KEY_Alt_L });
        QTRY_VERIFY(!session.user().isUsable(settings->id));
        QVERIFY(choose(session, 2));
        QVERIFY(session.user().waitUntilUsable(settings->id));
        session.user().tap(XKB_KEY_w, { XKB_KEY_Control_L });
        QVERIFY(session.user().waitUntilGone(settings->id));
        QVERIFY(choose(session, 2)); // a new one
        QVERIFY(tessel.waitForWindow(u"Tessel Preferences"_s));

        QVERIFY(choose(session, 0));
        const auto about = tessel.waitForWindow(u"About Tessel"_s);
        QVERIFY(about);
        QVERIFY(session.user().waitUntilUsable(about->id));
        session.user().tap(XKB_KEY_Escape);
        QVERIFY(session.user().waitUntilGone(about->id));

        QVERIFY(choose(session, 3));
        QVERIFY(tessel.process().waitForExit());
        QCOMPARE(tessel.process().exitCode(), 0);
        QCOMPARE(tessel.process().errorOutput(), QString());
    }

    /// A StatusNotifierItem host: a desktop's panel, also one that starts again.
    void isKnownToAPanel()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        session.launchXfceSettings();
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        for (int i = 0; i < 2; ++i) {
            ChildProcess &host = session.launch(u"xfce4-panel"_s);
            const auto items = [&session] {
                ChildProcess &query = session.launch(
                    u"dbus-send"_s,
                    { u"--session"_s, u"--print-reply"_s, u"--dest=org.kde.StatusNotifierWatcher"_s,
                      u"/StatusNotifierWatcher"_s, u"org.freedesktop.DBus.Properties.Get"_s,
                      u"string:org.kde.StatusNotifierWatcher"_s,
                      u"string:RegisteredStatusNotifierItems"_s });
                return query.waitForExit() ? query.output() : QString();
            };
            QTRY_VERIFY_WITH_TIMEOUT(items().contains(u"StatusNotifierItem\""), 15000);
            host.end();
            QTRY_VERIFY(items().isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(tst_Tray)
#include "tst_Tray.moc"
