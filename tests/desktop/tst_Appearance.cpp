// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

/// The desktop portal's settings, as far as they are asked for.
class Portal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Portal() = default;
    ~Portal() override { QDBusConnection::disconnectFromBus(u"portal"_s); }
    Q_DISABLE_COPY_MOVE(Portal)

    [[nodiscard]] bool offer(const QString &busAddress)
    {
        QDBusConnection bus = QDBusConnection::connectToBus(busAddress, u"portal"_s);
        return bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                                  QDBusConnection::ExportAllContents)
            && bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    void change(uint value)
    {
        scheme = value;
        QDBusMessage signal
            = QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                         u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal.setArguments({ u"org.freedesktop.appearance"_s, u"color-scheme"_s,
                              QVariant::fromValue(QDBusVariant(value)) });
        QDBusConnection(u"portal"_s).send(signal);
    }

    uint scheme = 0;

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        if (group != u"org.freedesktop.appearance" || key != u"color-scheme")
            sendErrorReply(u"org.freedesktop.portal.Error.NotFound"_s);
        // This method wraps the value twice.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
    }
};

/// Light and dark as the desktop says, at the start and while the bar is shown.
class tst_Appearance : public QObject
{
    Q_OBJECT

    static bool isDark(const Stage &stage, const WindowInfo &bar)
    {
        // A place where nothing stands on the ground.
        const QRect ground(bar.geometry.topLeft() + QPoint(28, 60), QSize(1, 1));
        return qGray(stage.user().screenshot(ground).pixel(0, 0)) < 100;
    }

private Q_SLOTS:
    void followsTheSystem_data()
    {
        QTest::addColumn<QString>("themeMode");
        QTest::addColumn<uint>("atStart");
        QTest::addColumn<bool>("isDarkAtStart");
        QTest::addColumn<uint>("then");
        QTest::addColumn<bool>("isDarkThen");
        QTest::newRow("to light") << u"system"_s << 1U << true << 2U << false;
        QTest::newRow("no preference, to dark") << u"system"_s << 0U << false << 1U << true;
        QTest::newRow("always light") << u"light"_s << 1U << false << 2U << false;
    }

    void followsTheSystem()
    {
        QFETCH(QString, themeMode);
        QFETCH(uint, atStart);
        QFETCH(bool, isDarkAtStart);
        QFETCH(uint, then);
        QFETCH(bool, isDarkThen);
        Stage stage;
        QVERIFY(stage.session.start());
        Portal portal;
        portal.scheme = atStart;
        QVERIFY(portal.offer(stage.session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s)));
        stage.tessel.settings.insert(u"themeMode"_s, themeMode);
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.offer(u"word"_s));
        stage.user().movePointer({ 640, 400 });
        const QImage before = stage.user().screenshot();
        const auto bar = stage.tessel.summon();
        QVERIFY(bar);
        QTRY_VERIFY(stage.user().screenshot(bar->geometry) != before.copy(bar->geometry));
        QTRY_COMPARE(isDark(stage, *bar), isDarkAtStart);
        portal.change(then);
        if (isDarkThen == isDarkAtStart)
            QTest::qWait(200);
        QTRY_COMPARE(isDark(stage, *bar), isDarkThen);
    }

    void followsTheDesktopWithoutAPortal_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("darkAndLarge");
        QTest::addColumn<QByteArray>("lightAndSmall");
        QTest::addColumn<QStringList>("announcement");
        // A second manager takes the place of the first.
        QTest::newRow("XSETTINGS")
            << u".xsettingsd"_s << "Net/ThemeName \"Arc-Dark\"\nGtk/FontName \"Sans 20\"\n"_ba
            << "Net/ThemeName \"Arc\"\nGtk/FontName \"Sans 10\"\n"_ba
            << QStringList { u"xsettingsd"_s };
        QTest::newRow("KDE") << u".config/kdeglobals"_s
                             << "[General]\nColorScheme=BreezeDark\nfont=Sans,20,-1\n"_ba
                             << "[General]\nColorScheme=Breeze\nfont=Sans,10,-1\n"_ba
                             << QStringList { u"dbus-send"_s, u"--type=signal"_s,
                                              u"/KGlobalSettings"_s,
                                              u"org.kde.KGlobalSettings.notifyChange"_s };
    }

    void followsTheDesktopWithoutAPortal()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, darkAndLarge);
        QFETCH(QByteArray, lightAndSmall);
        QFETCH(QStringList, announcement);
        Stage stage;
        QVERIFY(stage.session.start());
        const auto set = [&](const QByteArray &settings) {
            const bool isSet = writeFile(stage.session.homePath() + u'/' + file, settings);
            stage.session.launch(announcement[0], announcement.mid(1));
            return isSet;
        };
        QVERIFY(set(darkAndLarge));
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.offer(u"word"_s));
        stage.user().movePointer({ 640, 400 });
        const auto bar = stage.tessel.summon();
        QVERIFY(bar);
        const auto bubbleHeight = [&] {
            stage.user().movePointer({ 10, 10 });
            stage.user().movePointer(TesselProgram::button(*bar, 0));
            const auto bubble = stage.user().waitForWindow([&](const WindowInfo &window) {
                return window.className == u"Tessel" && window.overrideRedirect
                    && window.id != bar->id;
            });
            return bubble ? bubble->geometry.height() : 0;
        };
        QTRY_VERIFY(isDark(stage, *bar));
        const int large = bubbleHeight();
        QVERIFY(set(lightAndSmall));
        QTRY_VERIFY(!isDark(stage, *bar));
        QCOMPARE_GE(large, bubbleHeight() + 10); // 11 pixels became 22
    }
};

QTEST_GUILESS_MAIN(tst_Appearance)
#include "tst_Appearance.moc"
