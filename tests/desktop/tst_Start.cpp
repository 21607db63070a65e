// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"
#include "files/Files.h"
#include "support/RecordingService.h"

#include <QDBusVariant>
#include <QTest>

#include <algorithm>
#include <optional>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

/// A server that never looks at who comes.
int listenAt(const QByteArray &path)
{
    const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    std::copy(path.cbegin(), path.cend(), name.sun_path);
    if (::bind(server, reinterpret_cast<const sockaddr *>(&name), sizeof name) != 0
        || ::listen(server, 10) != 0)
        qFatal("cannot listen at %s", path.constData());
    return server;
}

}

/// Starting under good and bad conditions.
class tst_Start : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneInstance()
    {
        Stage stage;
        QVERIFY(stage.start());
        const ChildProcess &first = stage.tessel.process();
        ChildProcess &second = stage.session.launch(TesselProgram::path());
        QVERIFY(second.waitForExit());
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(second.output(),
                 u"App is already running (PID: %1). Terminating new instance.\n"_s.arg(
                     first.processId()));
        QVERIFY(stage.tessel.waitForWindow(u"Tessel Preferences"_s)); // of the first
        QVERIFY(first.isRunning());

        const auto trigger = [&stage] {
            ChildProcess &asking = stage.session.launch(TesselProgram::path(), { u"--trigger"_s });
            return asking.waitForExit() ? asking.exitCode() : -1;
        };
        QCOMPARE(trigger(), 0);
        QVERIFY(stage.logs(u"checkSelection"_s));

        // After its end the lock file is left behind, and stale.
        stage.tessel.process().end();
        const QString lock = stage.session.temporaryPath() + u"/com.tessel.app.lock"_s;
        QVERIFY(QFile::exists(lock));
        QCOMPARE(trigger(), 1);
        QVERIFY(stage.tessel.start());
        QCOMPARE(readFile(lock), QByteArray::number(stage.tessel.process().processId()));

        // The number of a stale one is given again.
        stage.tessel.process().end();
        RecordingService server(stage.session, u"org.freedesktop.Notifications"_s);
        const ChildProcess &other = stage.session.launch(u"sleep"_s, { u"60"_s });
        QVERIFY(writeFile(lock, QString::number(other.processId())));
        QVERIFY(stage.session.launch(TesselProgram::path()).waitForExit());
        QTRY_COMPARE_WITH_TIMEOUT(server.calls.size(), 1, 15000);
        QVERIFY(server.calls.first()[4].toString().contains(lock));
        QCOMPARE(trigger(), 1);
        QVERIFY(other.isRunning());
    }

    void servesTheBus()
    {
        Stage stage;
        QVERIFY(stage.start());
        const auto bus = QDBusConnection::connectToBus(
            stage.session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), u"user"_s);
        const auto name = u"com.tessel.app"_s;
        const auto call = [&](const QString &method, const QVariantList &arguments = {},
                              const QString &interface = u"com.tessel.app"_s) {
            auto message
                = QDBusMessage::createMethodCall(name, u"/com/tessel/app"_s, interface, method);
            message.setArguments(arguments);
            return bus.call(message);
        };
        const auto state = [&] {
            const QDBusMessage answer
                = call(u"Get"_s, { name, u"State"_s }, u"org.freedesktop.DBus.Properties"_s);
            return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
        };
        QTRY_COMPARE(state(), u"ready"_s);

        // What is installed describes what there is.
        const auto members = [](const QString &description) {
            static const QRegularExpression member(u"(method|property) name=\"\\w+\""_s);
            QStringList names;
            auto found = member.globalMatch(
                description.section(uR"(<interface name="com.tessel.app">)"_s, 1)
                    .section(u"</interface>"_s, 0, 0));
            while (found.hasNext())
                names += found.next().captured();
            names.sort();
            return names;
        };
        const QDBusMessage exported
            = call(u"Introspect"_s, {}, u"org.freedesktop.DBus.Introspectable"_s);
        QCOMPARE(members(exported.arguments().value(0).toString()),
                 members(QString::fromUtf8(readFile(u"" TESSEL_BUS_DESCRIPTION ""_s))));

        QCOMPARE(call(u"RunAction"_s, { u"nobody"_s, u"text"_s }).errorName(),
                 u"com.tessel.app.Error.UnknownAction"_s);
        QCOMPARE(call(u"RunAction"_s, { u"open"_s, QString() }).errorName(),
                 u"com.tessel.app.Error.NotApplicable"_s);
        QCOMPARE(call(u"RunAction"_s, { u"open"_s, u"a b"_s }).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?a%20b"_s });

        QVERIFY(stage.open());
        stage.tessel.awaitTrigger();
        QCOMPARE(call(u"Trigger"_s).type(), QDBusMessage::ReplyMessage);
        QVERIFY(stage.tessel.waitForBar());
        QCOMPARE(state(), u"shown"_s);
        QCOMPARE(call(u"ShowPreferences"_s).type(), QDBusMessage::ReplyMessage);
        QVERIFY(stage.tessel.waitForWindow(u"Tessel Preferences"_s));
        QCOMPARE(call(u"Quit"_s).type(), QDBusMessage::ReplyMessage);
        QVERIFY(stage.tessel.process().waitForExit());
        QCOMPARE(stage.tessel.process().exitCode(), 0);
    }

    void tellsNewcomers()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        session.setVariable(u"LANG"_s, u"de_DE.UTF-8"_s);
        RecordingService server(session, u"org.freedesktop.Notifications"_s);
        session.launch(TesselProgram::path());
        QTRY_COMPARE_WITH_TIMEOUT(server.calls.size(), 1, 15000);
        const QString text = server.calls.first()[4].toString();
        QVERIFY2(text.contains(u"F2 drücken"_s) && text.contains(u"Benachrichtigungsbereich"_s),
                 qPrintable(text));
        QVERIFY(server.calls.first()[5].toStringList().contains(u"Einstellungen"_s));
        server.emitSignal(u"ActionInvoked"_s, { RecordingService::notificationId, u"default"_s });
        QVERIFY(TesselProgram(session).waitForWindow(u"Tessel-Einstellungen"_s));
    }

    void withoutDisplay()
    {
        for (const QString &display : { QString(), u":4099"_s }) { // unset, and nobody there
            DesktopSession session;
            QVERIFY2(session.start(), qPrintable(session.errorString()));
            QProcessEnvironment environment = session.environment();
            environment.remove(u"DISPLAY"_s);
            if (!display.isNull())
                environment.insert(u"DISPLAY"_s, display);
            ChildProcess &tessel = session.launch(TesselProgram::path(), {}, environment);
            QVERIFY(tessel.waitForExit());
            QCOMPARE(tessel.exitCode(), 1);
            QVERIFY2(tessel.output().startsWith(u"ERROR: "), qPrintable(tessel.output()));
        }
    }

    void saysWhatIsMissing()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        QProcessEnvironment environment = session.environment();
        environment.insert(u"TESSEL_PLATFORM"_s, u"none"_s);
        ChildProcess &tessel = session.launch(TesselProgram::path(), {}, environment);
        const auto window = session.user().waitForWindow(
            [](const WindowInfo &info) { return info.className == u"Tessel"; });
        QVERIFY(window);
        QVERIFY(tessel.waitForOutput(QRegularExpression(u"Tessel started"_s)).hasMatch());
        tessel.end();
        QCOMPARE(tessel.exitCode(), 0);
    }

    void worksWithout_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("window manager and bus") << u"bus"_s;
        QTest::newRow("a bus that answers") << u"answer"_s;
        QTest::newRow("a tray that answers") << u"tray"_s;
        QTest::newRow("the plugin that Qt was to take") << u"plugin"_s;
    }

    void worksWithout()
    {
        QFETCH(QString, what);
        Stage stage;
        DesktopOptions options;
        options.windowManager = options.sessionBus = what == u"tray";
        QVERIFY(stage.session.start(options));
        const QString socket = stage.session.runtimePath() + u"/stopped"_s;
        const int stopped = listenAt(QFile::encodeName(socket));
        std::optional<RecordingService> tray;
        if (what == u"answer")
            stage.session.setVariable(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + socket);
        if (what == u"tray") {
            tray.emplace(stage.session, u"org.kde.StatusNotifierWatcher"_s);
            tray->isSilent = true;
        }
        stage.tessel.actions = { TesselProgram::action(
            u"a"_s, u"shellScript"_s, u"printf %s \"{text}$QT_QPA_PLATFORM\" >\"$HOME/done\""_s) };
        if (what == u"plugin")
            stage.session.setVariable(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.offer(u"text"_s));
        QVERIFY(stage.runAction());
        QTRY_COMPARE(stage.file(u"done"_s), what == u"plugin" ? "textwayland" : "text");
        QVERIFY(!tray || !tray->calls.isEmpty());
        ::close(stopped);
    }

    void occupiesClosedStreams()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        const ChildProcess &tessel
            = session.launch(u"sh"_s, { u"-c"_s, u"exec \"$0\" >&-"_s, TesselProgram::path() });
        const QString stream = u"/proc/%1/fd/1"_s.arg(tessel.processId());
        QTRY_COMPARE(QFile::symLinkTarget(stream), u"/dev/null"_s);
    }
};

QTEST_GUILESS_MAIN(tst_Start)
#include "tst_Start.moc"
