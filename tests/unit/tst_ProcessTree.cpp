// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/ProcessTree.h"

#include <QProcess>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_ProcessTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kinships()
    {
        // A shell that tells its child's number, as a terminal has a shell and that an editor.
        QProcess shell;
        shell.start(u"/bin/sh"_s, { u"-c"_s, u"sleep 20 & echo $!; read end; kill $!"_s });
        QVERIFY(shell.waitForReadyRead());
        const qint64 grandchild = shell.readLine().toLongLong();
        const qint64 self = QCoreApplication::applicationPid();
        QCOMPARE(kinship(self, self), Kinship::same);
        QCOMPARE(kinship(self, grandchild), Kinship::relative);
        QCOMPARE(kinship(grandchild, self), Kinship::relative);
        QProcess sibling;
        sibling.start(u"sleep"_s, { u"20"_s });
        QVERIFY(sibling.waitForStarted());
        QCOMPARE(kinship(sibling.processId(), grandchild), Kinship::none);
        QCOMPARE(kinship(0, 0), Kinship::none); // not known
        QCOMPARE(kinship(self, 1), Kinship::none); // everybody's ancestor
        sibling.kill();
        sibling.waitForFinished();
        shell.closeWriteChannel();
        QVERIFY(shell.waitForFinished());
    }
};

QTEST_GUILESS_MAIN(tst_ProcessTree)
#include "tst_ProcessTree.moc"
