// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/calendar/CalendarEntry.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_CalendarEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data();
    void lines();
    void foldsLongLines();
    void writesPrivateFile_data();
    void writesPrivateFile();
};

namespace {

const QDateTime morning(QDate(2026, 11, 21), QTime(9, 30));
const QDateTime stamp(QDate(2026, 11, 20), QTime(8, 0), QTimeZone::utc());

}

void tst_CalendarEntry::lines_data()
{
    using enum CalendarEntry::Kind;
    QTest::addColumn<CalendarEntry>("entry");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("event of an hour") << CalendarEntry { .summary = u"Tea"_s, .start = morning }
                                      << QStringList { u"BEGIN:VEVENT"_s,
                                                       u"UID:id"_s,
                                                       u"DTSTAMP:20261120T080000Z"_s,
                                                       u"DTSTART:20261121T093000"_s,
                                                       u"DTEND:20261121T103000"_s,
                                                       u"SUMMARY:Tea"_s };
    QTest::newRow("end and place") << CalendarEntry {
        .location = u"Room 1, left"_s, .start = morning, .end = morning.addSecs(60)
    } << QStringList { u"DTEND:20261121T093100"_s, u"LOCATION:Room 1\\, left"_s };
    QTest::newRow("all day") << CalendarEntry { .start = morning, .isAllDay = true }
                             << QStringList { u"DTSTART;VALUE=DATE:20261121"_s,
                                              u"DTEND;VALUE=DATE:20261122"_s };
    QTest::newRow("two days, to midnight") << CalendarEntry {
        .start = morning, .end = QDate(2026, 11, 23).startOfDay(), .isAllDay = true
    } << QStringList { u"DTEND;VALUE=DATE:20261123"_s };
    QTest::newRow("characters of the format")
        << CalendarEntry { .description = u"a;b\\c\r\nd\re\nf\u0007"_s, .start = morning }
        << QStringList { u"DESCRIPTION:a\\;b\\\\c\\nd\\ne\\nf"_s };
    QTest::newRow("to-do") << CalendarEntry { .kind = toDo, .summary = u"Buy"_s, .end = morning }
                           << QStringList { u"BEGIN:VTODO"_s, u"DUE:20261121T093000"_s,
                                            u"END:VTODO"_s };
}

void tst_CalendarEntry::lines()
{
    QFETCH(const CalendarEntry, entry);
    QFETCH(const QStringList, expected);
    const QString text = QString::fromUtf8(toICalendar(entry, u"id"_s, stamp));
    const QStringList lines = text.split(u"\r\n"_s);
    QVERIFY(text.startsWith(u"BEGIN:VCALENDAR\r\nVERSION:2.0\r\n"_s));
    QVERIFY(text.endsWith(u"\r\nEND:VCALENDAR\r\n"_s));
    for (const QString &line : expected)
        QVERIFY2(lines.contains(line), qPrintable(line + u" is not in\n"_s + text));
}

void tst_CalendarEntry::foldsLongLines()
{
    const QString summary = u"회의 \U0001F600"_s.repeated(40);
    const QByteArray bytes = toICalendar({ .summary = summary, .start = morning }, {}, stamp);
    for (const QByteArray &line : QByteArray(bytes).replace("\r\n", "\n").split('\n')) {
        QVERIFY(line.size() <= 75);
        QCOMPARE(QString::fromUtf8(line).toUtf8(), line); // no torn character
    }
    const QByteArray unfolded = QByteArray(bytes).replace("\r\n ", "");
    QVERIFY(unfolded.contains("\r\nSUMMARY:" + summary.toUtf8() + "\r\n"));
}

void tst_CalendarEntry::writesPrivateFile_data()
{
    QTest::addColumn<QByteArray>("variable"); // the other one of the two is not set
    QTest::newRow("runtime folder") << QByteArray("XDG_RUNTIME_DIR");
    QTest::newRow("temporary folder") << QByteArray("TMPDIR");
}

void tst_CalendarEntry::writesPrivateFile()
{
    QFETCH(QByteArray, variable);
    const QTemporaryDir root;
    qunsetenv("XDG_RUNTIME_DIR");
    qputenv(variable.constData(), QFile::encodeName(root.path()));
    const auto write = [] { return writeCalendarFile({ .summary = u"Tea"_s, .start = morning }); };
    const CalendarFile old = write();
    QCOMPARE(old.error, QString());
    QVERIFY(old.path.startsWith(root.path() + u"/tessel"_s));
    QFile file(old.path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.readAll().contains("SUMMARY:Tea\r\n"));
    const QString folder = QFileInfo(old.path).path();
    for (const QString &path : { old.path, folder })
        QCOMPARE(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther),
                 QFile::Permissions());

    const CalendarFile recent = write();
    QVERIFY(file.exists());
    QVERIFY(
        file.setFileTime(QDateTime::currentDateTime().addDays(-2), QFile::FileModificationTime));
    QVERIFY(!write().path.isEmpty());
    QVERIFY(!file.exists());
    QVERIFY(QFile::exists(recent.path));

    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
    QVERIFY(!write().error.isEmpty());
}

QTEST_GUILESS_MAIN(tst_CalendarEntry)
#include "tst_CalendarEntry.moc"
