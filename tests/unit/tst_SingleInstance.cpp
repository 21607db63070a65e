// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/SingleInstance.h"

#include "files/Files.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>

#include <sys/stat.h>
#include <unistd.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_SingleInstance : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"lock"_s);

private Q_SLOTS:
    void init() { QFile::remove(m_path); }

    void parsesProcessIds()
    {
        for (const auto &[text, expected] : { std::pair { "+17", 17 },
                                              { "-17", -17 },
                                              { "2147483647", 2147483647 },
                                              { "2147483648", 0 },
                                              { "4321\n", 0 },
                                              { " 4321", 0 },
                                              { "+-1", 0 },
                                              { "-", 0 },
                                              { "0x10", 0 },
                                              { "", 0 } })
            QCOMPARE(SingleInstance::parseProcessId(text).value_or(0), expected);
    }

    void takesFreeAndStaleLocks()
    {
        const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
        for (const char *stale : { "", "rubbish", "999999999", "1\n" }) {
            if (*stale)
                QVERIFY(writeFile(m_path, QByteArray(stale)));
            QCOMPARE(SingleInstance::liveOwnerElseTakeLock(m_path), std::nullopt);
            QCOMPARE(readFile(m_path), own);
        }
    }

    void replacesWhatOthersPutThere()
    {
        const QByteArray live = QByteArray::number(::getppid());
        const QString victim = m_folder.filePath(u"victim"_s);
        const std::function<void()> plants[] = {
            [&] { QVERIFY(QFile::link(victim, m_path)); },
            [&] { QCOMPARE(::mkfifo(QFile::encodeName(m_path).constData(), 0600), 0); },
            [&] { QVERIFY(writeFile(m_path, live.rightJustified(33, '0'))); },
        };
        for (const auto &plant : plants) {
            init();
            QVERIFY(writeFile(victim, live));
            plant();
            QCOMPARE(SingleInstance::liveOwnerElseTakeLock(m_path), std::nullopt);
            QCOMPARE(readFile(m_path), QByteArray::number(QCoreApplication::applicationPid()));
            QVERIFY(!QFileInfo(m_path).isSymLink());
            QCOMPARE(readFile(victim), live);
        }
    }

    void leavesAnUnreadableFileAlone()
    {
        const QByteArray notUtf8("\xff\xfe\x01", 3);
        QVERIFY(writeFile(m_path, notUtf8));
        QCOMPARE(SingleInstance::liveOwnerElseTakeLock(m_path), std::nullopt);
        QCOMPARE(readFile(m_path), notUtf8);
        const QString nowhere = m_folder.filePath(u"missing/lock"_s);
        QCOMPARE(SingleInstance::liveOwnerElseTakeLock(nowhere), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(tst_SingleInstance)
#include "tst_SingleInstance.moc"
