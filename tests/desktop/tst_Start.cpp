// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/TesselProgram.h"
#include "support/Editors.h"
#include "support/XClipboard.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

/// Starting under good and bad conditions.
class tst_Start : public QObject
{
    Q_OBJECT

    static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

private Q_SLOTS:
    void oneInstance()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        const QString lock = session.temporaryPath() + u"/com.tessel.app.lock"_s;
        QCOMPARE(content(lock), QByteArray::number(tessel.process().processId()));

        ChildProcess &second = session.launch(TesselProgram::path());
        QVERIFY(second.waitForExit());
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(second.output(),
                 u"App is already running (PID: %1). Terminating new instance.\n"_s.arg(
                     tessel.process().processId()));
        QVERIFY(tessel.process().isRunning());

        // After its end the lock file is left behind, and stale.
        tessel.process().end();
        QVERIFY(QFile::exists(lock));
        TesselProgram third(session);
        QVERIFY(third.start());
        QCOMPARE(content(lock), QByteArray::number(third.process().processId()));
    }

    void unusableConfigurationGivesTheDefaults_data()
    {
        QTest::addColumn<QByteArray>("config");
        QTest::newRow("half-written") << QByteArray("{\"excludedBundleIds\":[],\"customActi");
        QTest::newRow("binary") << QByteArray("\x00\xff\x7f"
                                              "ELF\x01",
                                              7);
        QTest::newRow("of another kind") << QByteArray("[1,2,3]");
        QTest::newRow("missing") << QByteArray();
    }

    void unusableConfigurationGivesTheDefaults()
    {
        QFETCH(QByteArray, config);
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        const QString path = session.configPath() + u"/GlintClone/config.json"_s;
        if (!config.isEmpty())
            write(path, config);
        ChildProcess &tessel = session.launch(TesselProgram::path());
        QVERIFY(tessel.waitForOutput(QRegularExpression(u"Tessel started"_s)).hasMatch());
        QCOMPARE(tessel.output().contains(u"ERROR: Failed to decode config: "), !config.isEmpty());
        const auto saved = QJsonDocument::fromJson(content(path)).object();
        QCOMPARE(saved.value(u"customActions"_s).toArray().size(), 9);
    }

    void withoutAPlaceForTheConfiguration()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        write(session.configPath() + u"/GlintClone"_s, "a file where the folder should be");
        ChildProcess &tessel = session.launch(TesselProgram::path());
        QVERIFY(tessel.waitForOutput(QRegularExpression(u"Tessel started"_s)).hasMatch());
        QVERIFY(tessel.output().contains(u"ERROR: Failed to save config: "));
        QCOMPARE(content(session.configPath() + u"/GlintClone"_s),
                 QByteArray("a file where the folder should be"));
    }

    void withoutDisplay_data()
    {
        QTest::addColumn<QString>("display");
        QTest::newRow("unset") << QString();
        QTest::newRow("nobody there") << u":4099"_s;
    }

    void withoutDisplay()
    {
        QFETCH(QString, display);
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

    void worksOnABareServer_data()
    {
        QTest::addColumn<bool>("windowManager");
        QTest::addColumn<bool>("bus");
        QTest::newRow("no window manager") << false << true;
        QTest::newRow("no session bus") << true << false;
    }

    void worksOnABareServer()
    {
        QFETCH(bool, windowManager);
        QFETCH(bool, bus);
        DesktopSession session;
        DesktopOptions options;
        options.windowManager = windowManager;
        options.sessionBus = bus;
        QVERIFY2(session.start(options), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        QVERIFY(launchHostileOwner(session, { u"text"_s, u"bare"_s }));
        QVERIFY(tessel.summon());
        session.user().tap(XKB_KEY_1);
        QCOMPARE(session.urlRecorder().waitForUrls(1),
                 QStringList { u"tessel-test://open?bare"_s });
    }

    void missingIconsLeaveTheButtons()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        for (const char *icon : { "custom:gone.png", "custom:", "no-such-symbol", "" }) {
            auto action = TesselProgram::urlAction(
                QString::fromLatin1(icon), u"tessel-test://%1?{text}"_s.arg(tessel.actions.size()));
            action.insert(u"iconName"_s, QString::fromLatin1(icon));
            tessel.actions.append(action);
        }
        QVERIFY(tessel.start());
        QVERIFY(launchHostileOwner(session, { u"text"_s, u"word"_s }));
        const auto bar = tessel.summon();
        QVERIFY(bar);
        QCOMPARE(bar->geometry.width(), 4 * 38 + 3 * 2 + 64);
        session.user().click(TesselProgram::button(*bar, 3));
        QCOMPARE(session.urlRecorder().waitForUrls(1), QStringList { u"tessel-test://3?word"_s });
    }
};

QTEST_GUILESS_MAIN(tst_Start)
#include "tst_Start.moc"
