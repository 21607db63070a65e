// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"
#include "support/DisplayConnection.h"

#include <QDir>
#include <QTest>

#include <xcb/xcb.h>

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

    static QRect placeOfItem(DesktopSession &session)
    {
        const int right = session.user().screenshot().width();
        return QRect(QPoint(right - itemSize.width() - 1, 2), itemSize);
    }

    static QSet<QRgb> colorsOfItem(DesktopSession &session)
    {
        const QImage picture = session.user().screenshot(placeOfItem(session));
        QSet<QRgb> colors;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                colors.insert(picture.pixel(x, y));
        }
        return colors;
    }

    /// Where the item is, or nothing when there is none.
    static std::optional<QPoint> item(DesktopSession &session)
    {
        // The tray is plain: more than a few colours are a picture.
        return colorsOfItem(session).size() > 4 ? std::optional(placeOfItem(session).center())
                                                : std::nullopt;
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
        const auto x = connectionTo(session.display().toLatin1());
        QVERIFY(x);
        for (int i = 0; i < 2; ++i) {
            ChildProcess &tray = startTray(session);
            QTRY_VERIFY(item(session));
            // What it says of the colour of its items: error, warning and success come after red.
            const quint32 colors[12] = { 0xffff };
            xcb_change_property(
                x->xcb(), XCB_PROP_MODE_REPLACE, x->selectionOwner(x->atom("_NET_SYSTEM_TRAY_S0")),
                x->atom("_NET_SYSTEM_TRAY_COLORS"), XCB_ATOM_CARDINAL, 32, 12, colors);
            xcb_flush(x->xcb());
            QTRY_VERIFY(colorsOfItem(session).contains(0xffff0000));
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
        const QString icons = session.dataPath() + u"/icons/hicolor/symbolic/apps"_s;
        QVERIFY(QDir().mkpath(icons));
        QVERIFY(
            QFile::copy(QStringLiteral(TESSEL_SYMBOLIC_ICON), icons + u"/tessel-symbolic.svg"_s));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        const auto property = [&session](const QString &service, const QString &path,
                                         const QString &interface, const QString &name) {
            ChildProcess &query = session.launch(u"dbus-send"_s,
                                                 { u"--print-reply"_s, u"--dest="_s + service, path,
                                                   u"org.freedesktop.DBus.Properties.Get"_s,
                                                   u"string:"_s + interface, u"string:"_s + name });
            return query.waitForExit() ? query.output() : QString();
        };
        for (int i = 0; i < 2; ++i) {
            ChildProcess &host = session.launch(u"xfce4-panel"_s);
            const auto items = [&property] {
                const QString watcher = u"org.kde.StatusNotifierWatcher"_s;
                return property(watcher, u"/StatusNotifierWatcher"_s, watcher,
                                u"RegisteredStatusNotifierItems"_s);
            };
            QTRY_VERIFY_WITH_TIMEOUT(items().contains(u"/StatusNotifierItem\""), 15000);
            // Panels colour an image of that name to suit their ground.
            const QString service = items().section(u'"', 1, 1).section(u'/', 0, 0);
            QVERIFY(property(service, u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s,
                             u"IconName"_s)
                        .contains(u"\"tessel-symbolic\""));
            host.end();
            QTRY_VERIFY(items().isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(tst_Tray)
#include "tst_Tray.moc"
