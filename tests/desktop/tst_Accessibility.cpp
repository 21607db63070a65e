// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

using Reference = std::pair<QString, QDBusObjectPath>; ///< name on the bus and path
using Relation = std::pair<uint, QList<Reference>>;

const QString atSpi = u"org.a11y.atspi."_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;
const Reference desktop { atSpi + u"Registry"_s,
                          QDBusObjectPath(u"/org/a11y/atspi/accessible/root"_s) };
const Reference registry { desktop.first, QDBusObjectPath(u"/org/a11y/atspi/registry"_s) };
const Reference launcher { u"org.a11y.Bus"_s, QDBusObjectPath(u"/org/a11y/bus"_s) };

// Numbers of atspi-constants.h.
enum State { checked = 1 << 4, focusable = 1 << 11, selected = 1 << 23, showing = 1 << 25 };
const QHash<uint, QString> roles {
    { 0, u"vague"_s },  { 2, u"alert"_s },      { 11, u"combo box"_s },
    { 20, u"vague"_s }, { 32, u"list item"_s }, { 37, u"tab"_s },
    { 38, u"tabs"_s },  { 43, u"button"_s },    { 44, u"radio button"_s },
    { 56, u"cell"_s },  { 67, u"vague"_s },     { 101, u"notification"_s },
};
constexpr uint labelledBy = 2;

}

/// What a screen reader learns over the bus of the accessibility service.
class tst_Accessibility : public QObject
{
    Q_OBJECT

    QDBusConnection m_bus { QString() };
    Reference m_focus = desktop;
    QStringList m_changes; ///< of what has had the focus

    QVariant ask(const Reference &object, const QString &method, const QVariantList &arguments = {},
                 const QString &interface = atSpi + u"Accessible"_s) const
    {
        auto call
            = QDBusMessage::createMethodCall(object.first, object.second.path(), interface, method);
        call.setArguments(arguments);
        const QDBusMessage answer = m_bus.call(call);
        return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0)
                                                           : QVariant();
    }

    [[nodiscard]] bool startReading(Desktop::DesktopSession &session)
    {
        session.launch(u"/usr/libexec/at-spi-bus-launcher"_s);
        m_bus = QDBusConnection::connectToBus(
            session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), u"session"_s);
        QString address;
        const bool isUp = QTest::qWaitFor([&] {
            address = ask(launcher, u"GetAddress"_s, {}, launcher.first).toString();
            return !address.isEmpty();
        });
        ask(launcher, u"Set"_s,
            { u"org.a11y.Status"_s, u"IsEnabled"_s, QVariant::fromValue(QDBusVariant(true)) },
            properties);
        m_bus = QDBusConnection::connectToBus(address, u"accessibility"_s);
        ask(registry, u"RegisterEvent"_s, { u"object:"_s, QStringList(), QString() },
            registry.first);
        const auto listen = [this](const QString &signal) {
            return m_bus.connect({}, {}, atSpi + u"Event.Object"_s, signal, this,
                                 SLOT(hear(QDBusMessage)));
        };
        return isUp && listen(u"StateChanged"_s) && listen(u"PropertyChange"_s);
    }

    [[nodiscard]] QString text(const Reference &object, const QString &property) const
    {
        const auto value = ask(object, u"Get"_s, { atSpi + u"Accessible"_s, property }, properties);
        return value.value<QDBusVariant>().variant().toString();
    }
    [[nodiscard]] bool has(State state, const Reference &object) const
    {
        return qdbus_cast<QList<uint>>(ask(object, u"GetState"_s)).value(0) & state;
    }

    /// Label, role, name, description and states.
    [[nodiscard]] QString spoken(const Reference &object) const
    {
        QString label;
        for (const auto &[type, labels] :
             qdbus_cast<QList<Relation>>(ask(object, u"GetRelationSet"_s)))
            label += type == labelledBy ? text(labels.value(0), u"Name"_s) : QString();
        const QString role = roles.value(ask(object, u"GetRole"_s).toUInt());
        const QString states = (has(checked, object) ? u"checked "_s : QString())
            + (has(selected, object) ? u"selected"_s : QString());
        return QStringList { label, role, text(object, u"Name"_s), text(object, u"Description"_s),
                             states }
            .join(u' ')
            .simplified();
    }

    /// What is on the screen; mute is what can be used, but of which nothing can be said.
    void read(const Reference &object, QStringList &all) const
    {
        const QString role = roles.value(ask(object, u"GetRole"_s).toUInt());
        const bool isUsed = role == u"button" || has(focusable, object);
        const bool isMute = isUsed && (role == u"vague" || text(object, u"Name"_s).isEmpty());
        if (has(showing, object))
            all += (isMute ? u"mute: "_s : QString()) + spoken(object);
        for (const auto &child : qdbus_cast<QList<Reference>>(ask(object, u"GetChildren"_s)))
            read(child, all);
    }

    /// Whether this comes to be shown, with nothing mute beside it.
    [[nodiscard]] bool isShown(const QString &wanted) const
    {
        QStringList all;
        const bool isThere = QTest::qWaitFor([&] {
            all.clear();
            read(desktop, all);
            return all.contains(wanted);
        });
        const QStringList mute = all.filter(u"mute: "_s);
        if (!isThere || !mute.isEmpty())
            qInfo() << (isThere ? mute : all);
        return isThere && mute.isEmpty();
    }

public Q_SLOTS:
    void hear(const QDBusMessage &signal)
    {
        const QVariantList arguments = signal.arguments();
        if (arguments.value(0) == u"focused"_s && arguments.value(1) == 1)
            m_focus = { signal.service(), QDBusObjectPath(signal.path()) };
        if (signal.path() == m_focus.second.path())
            m_changes += arguments.value(0).toString();
    }

private Q_SLOTS:
    void everythingIsSpoken()
    {
        Stage stage;
        QVERIFY(stage.session.start());
        QVERIFY(startReading(stage.session));
        stage.tessel.actions
            = { TesselProgram::urlAction(u"open"_s, u"tessel-test://open?{text}"_s),
                TesselProgram::action(u"large"_s, u"builtin"_s, u"LARGE_TYPE"_s),
                TesselProgram::action(u"broken"_s, u"shellScript"_s, u"exit 3"_s) };
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.offer(u"word"_s));
        QVERIFY(stage.tessel.summon());
        QVERIFY(isShown(u"notification Tessel open 1, large 2, broken 3"_s));
        QVERIFY(isShown(u"button open 1"_s));
        stage.user().tap(XKB_KEY_2);
        QVERIFY(isShown(u"notification word"_s));
        stage.user().tap(XKB_KEY_Escape);
        QVERIFY(stage.tessel.summon());
        stage.user().tap(XKB_KEY_3);
        QVERIFY(isShown(u"alert Command Failed The command exited with status 3. Error:"_s));
        stage.user().tap(XKB_KEY_Escape);
        QVERIFY(stage.tessel.openSettings());
        QVERIFY(isShown(u"tab General selected"_s));

        const auto press = [&](quint32 key) {
            m_changes.clear();
            stage.user().tap(key);
        };
        for (const QString &control :
             { u"tabs General"_s, u"Language: combo box English"_s, u"Theme: combo box System"_s,
               u"radio button Default App Icon checked"_s,
               u"Trigger Shortcut: button Trigger Shortcut Type shortcut..."_s }) {
            press(XKB_KEY_Tab);
            QTRY_COMPARE(spoken(m_focus), control);
        }
        press(XKB_KEY_F6);
        QTRY_VERIFY(m_changes.contains(u"accessible-description"_s));
        QVERIFY(spoken(m_focus).contains(u"Trigger Shortcut F6. "));

        stage.user().tap(XKB_KEY_Tab, { XKB_KEY_Control_L });
        QVERIFY(isShown(u"tab Actions selected"_s));
        press(XKB_KEY_Tab);
        press(XKB_KEY_Tab);
        QTRY_COMPARE(spoken(m_focus), u"cell open, Enabled: On checked"_s);
        press(XKB_KEY_space);
        QTRY_COMPARE(spoken(m_focus), u"cell open, Enabled: Off"_s);
        QTRY_VERIFY(m_changes.contains(u"checked"_s));
        press(XKB_KEY_Right);
        QTRY_COMPARE(spoken(m_focus), u"cell open, Icon: star selected"_s);
        press(XKB_KEY_space); // opens the grid of icons
        QTRY_VERIFY(spoken(m_focus).contains(u" icons..."));
        QVERIFY(stage.user().typeText(u"magnifying-glass-"_s));
        press(XKB_KEY_Tab);
        QTRY_COMPARE(spoken(m_focus), u"list item magnifying glass minus"_s);
        press(XKB_KEY_Right);
        QTRY_COMPARE(spoken(m_focus), u"list item magnifying glass plus selected"_s);
        press(XKB_KEY_space);
        QVERIFY(isShown(u"cell open, Icon: magnifying glass plus selected"_s));
    }
};

QTEST_GUILESS_MAIN(tst_Accessibility)
#include "tst_Accessibility.moc"
