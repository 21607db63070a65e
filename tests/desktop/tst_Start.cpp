// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

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
        QVERIFY(first.isRunning());

        // After its end the lock file is left behind, and stale.
        stage.tessel.process().end();
        const QString lock = stage.session.temporaryPath() + u"/com.tessel.app.lock"_s;
        QVERIFY(QFile::exists(lock));
        QVERIFY(stage.tessel.start());
        QFile file(lock);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray::number(stage.tessel.process().processId()));
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

    void worksOnABareServer()
    {
        Stage stage;
        DesktopOptions options;
        options.windowManager = false;
        options.sessionBus = false;
        QVERIFY(stage.start(options));
        QVERIFY(stage.offer(u"bare"_s));
        QVERIFY(stage.runAction());
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?bare"_s });
    }
};

QTEST_GUILESS_MAIN(tst_Start)
#include "tst_Start.moc"
