// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

/// The desktop portal's settings, as far as they are asked for.
class Portal : public QObject
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
        const bool isKnown = group == u"org.freedesktop.appearance" && key == u"color-scheme";
        // This method wraps the value twice.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(isKnown ? scheme : 99U)));
    }
};

/// Light and dark as the desktop says, at the start and while the bar is shown.
class tst_Appearance : public QObject
{
    Q_OBJECT

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
        // A place in the bar where nothing stands on the ground.
        const QPoint ground(bar->geometry.x() + 28, bar->geometry.y() + 60);
        const auto isDark = [&] {
            return qGray(stage.user().screenshot(QRect(ground, QSize(1, 1))).pixel(0, 0)) < 100;
        };
        QTRY_VERIFY(stage.user().screenshot(bar->geometry) != before.copy(bar->geometry));
        QTRY_COMPARE(isDark(), isDarkAtStart);
        portal.change(then);
        if (isDarkThen == isDarkAtStart)
            QTest::qWait(200);
        QTRY_COMPARE(isDark(), isDarkThen);
    }
};

QTEST_GUILESS_MAIN(tst_Appearance)
#include "tst_Appearance.moc"
