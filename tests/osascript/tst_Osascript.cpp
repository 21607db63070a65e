// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/Cases.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20000; // ms

struct Outcome
{
    int status = -1;
    QString output;
    QStringList recorded;
    QString errors;
};

Outcome run(const Case &row, const QString &home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, home);
    environment.insert(u"XDG_CONFIG_HOME"_s, home + u"/.config"_s);
    environment.insert(u"XDG_RUNTIME_DIR"_s, home);
    environment.insert(u"TZ"_s, u"UTC"_s);
    environment.insert(u"OSASCRIPT_CLIPBOARD"_s, row.clipboard);
    environment.insert(u"OSASCRIPT_ANSWER"_s, row.answer);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProgram(QStringLiteral(OSASCRIPT));
    process.setArguments(QStringList { u"-s"_s, u"s"_s, u"-e"_s, row.script } + row.arguments);
    process.start();
    if (!process.waitForFinished(patience)) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    Outcome outcome { process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                      QString::fromUtf8(process.readAllStandardOutput()),
                      {},
                      {} };
    static const QRegularExpression calendarFile(u"~/tessel/entry-[A-Za-z]{6}\\.ics"_s);
    outcome.output.replace(u'\r', u"\\r"_s).replace(home, u"~"_s);
    for (QString line : QString::fromUtf8(process.readAllStandardError()).split(u'\n')) {
        line.replace(home, u"~"_s).replace(calendarFile, u"~/ICS"_s);
        if (line.contains(u" error: "_s))
            outcome.errors += line;
        else if (!line.isEmpty())
            outcome.recorded.append(line.startsWith(u"» "_s) ? line.mid(2) : line);
    }
    return outcome;
}

/// "0:5: execution error: Can’t … (-1728)" as "-1728 Can’t …".
QString brief(const QString &error)
{
    const qsizetype from = error.indexOf(u"error: "_s) + 7;
    const qsizetype to = error.lastIndexOf(u" ("_s);
    return error.mid(to + 2).chopped(1) + u' ' + error.mid(from, to - from);
}

}

class tst_Osascript : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cases_data()
    {
        QTest::addColumn<Case>("row");
        const QDir folder(QStringLiteral(OSASCRIPT_CASES));
        const QStringList files = folder.entryList({ u"*.txt"_s });
        QVERIFY(!files.isEmpty());
        for (const QString &file : files) {
            for (const Case &row : readCases(folder.filePath(file)))
                QTest::newRow(qPrintable(row.name)) << row;
        }
    }

    void cases()
    {
        QFETCH(const Case, row);
        const QTemporaryDir home;
        QVERIFY2(row.result.isEmpty() != row.error.isEmpty(),
                 "has no result and no error, or both");
        const Outcome outcome = run(row, home.path());
        QCOMPARE(outcome.recorded, row.recorded);
        if (row.error.isEmpty()) {
            QCOMPARE(outcome.errors, QString());
            QCOMPARE(outcome.output, row.result == u"nothing" ? QString() : row.result + u'\n');
            QCOMPARE(outcome.status, 0);
            return;
        }
        QCOMPARE(outcome.output, QString());
        QVERIFY2(brief(outcome.errors).startsWith(row.error), qPrintable(outcome.errors));
        QCOMPARE(outcome.status, 1);
    }
};

QTEST_GUILESS_MAIN(tst_Osascript)
#include "tst_Osascript.moc"
