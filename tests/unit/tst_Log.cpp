// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/Log.h"

#include <QScopeGuard>
#include <QTemporaryFile>
#include <QTest>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_Log : public QObject
{
    Q_OBJECT

    /// Prints while standard output goes to the file descriptor.
    static void printTo(int descriptor, QStringView line)
    {
        std::fflush(stdout);
        const int standardOutput = dup(STDOUT_FILENO);
        const auto restore = qScopeGuard([standardOutput] {
            dup2(standardOutput, STDOUT_FILENO);
            close(standardOutput);
            std::clearerr(stdout);
        });
        dup2(descriptor, STDOUT_FILENO);
        Log::print(line);
    }

private Q_SLOTS:
    void writesAtOnceUnlessTaken()
    {
        QStringList taken;
        Log::setSink([&taken](QStringView line) { taken.append(line.toString()); });
        Log::print(u"a");
        Log::setSink({});
        QCOMPARE(taken, QStringList(u"a"_s));
        QTemporaryFile file;
        QVERIFY(file.open());
        printTo(file.handle(), u"DEBUG: 일정 😀");
        printTo(file.handle(), u"two\nlines");
        QVERIFY(file.seek(0));
        QCOMPARE(QString::fromUtf8(file.readAll()), u"DEBUG: 일정 😀\ntwo\nlines\n"_s);
    }

    void survivesThatNobodyReads()
    {
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        close(ends[0]);
        printTo(ends[1], u"lost");
        close(ends[1]);
    }

    void dropsWhatAStoppedReaderLeaves()
    {
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        const int size = fcntl(ends[1], F_GETPIPE_SZ);
        printTo(ends[1], QString(size, u'a')); // all of it would wait for ever
        printTo(ends[1], u"lost");
        QCOMPARE(read(ends[0], QByteArray(size, 0).data(), size_t(size)), size);
        printTo(ends[1], u"line");
        char line[6];
        QCOMPARE(read(ends[0], line, sizeof line), ssize_t(sizeof line));
        QCOMPARE(QByteArray(line, sizeof line), "\nline\n");
        QVERIFY(!(fcntl(ends[1], F_GETFL) & O_NONBLOCK)); // others have it too
        close(ends[0]);
        close(ends[1]);
    }
};

QTEST_APPLESS_MAIN(tst_Log)
#include "tst_Log.moc"
