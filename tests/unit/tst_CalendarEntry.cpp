// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/calendar/CalendarEntry.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

const QDateTime morning(QDate(2026, 11, 21), QTime(9, 30));
const QDateTime stamp(QDate(2026, 11, 20), QTime(8, 0), QTimeZone::utc());

}

class tst_CalendarEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesProperties()
    {
        using enum CalendarEntry::Kind;
        const std::pair<CalendarEntry, QStringList> rows[] {
            { { .summary = u"Tea"_s, .start = morning },
              { u"BEGIN:VEVENT"_s, u"UID:id"_s, u"DTSTAMP:20261120T080000Z"_s,
                u"DTSTART:20261121T093000"_s, u"DTEND:20261121T103000"_s, u"SUMMARY:Tea"_s } },
            { { .location = u"Room 1, left"_s, .start = morning, .end = morning.addSecs(60) },
              { u"DTEND:20261121T093100"_s, u"LOCATION:Room 1\\, left"_s } },
            { { .start = morning, .isAllDay = true },
              { u"DTSTART;VALUE=DATE:20261121"_s, u"DTEND;VALUE=DATE:20261122"_s } },
            { { .start = morning, .end = QDate(2026, 11, 23).startOfDay(), .isAllDay = true },
              { u"DTEND;VALUE=DATE:20261123"_s } },
            { { .description = u"a;b\\c\r\nd\re\nf\u0007"_s, .start = morning },
              { u"DESCRIPTION:a\\;b\\\\c\\nd\\ne\\nf"_s } },
            { { .kind = toDo, .summary = u"Buy"_s, .end = morning },
              { u"BEGIN:VTODO"_s, u"DUE:20261121T093000"_s, u"END:VTODO"_s } },
        };
        for (const auto &[entry, expected] : rows) {
            const QString text = QString::fromUtf8(toICalendar(entry, u"id"_s, stamp));
            QVERIFY(text.startsWith(u"BEGIN:VCALENDAR\r\nVERSION:2.0\r\n"_s));
            QVERIFY(text.endsWith(u"\r\nEND:VCALENDAR\r\n"_s));
            for (const QString &line : expected)
                QVERIFY2(text.split(u"\r\n"_s).contains(line), qPrintable(line));
        }
    }

    void foldsLongLines()
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

    void writesPrivateFile()
    {
        const QTemporaryDir root;
        qunsetenv("XDG_RUNTIME_DIR"); // which would be safe; the temporary folder needs care
        qputenv("TMPDIR", QFile::encodeName(root.path()));
        const auto write
            = [] { return writeCalendarFile({ .summary = u"Tea"_s, .start = morning }); };
        const Result<QString> old = write();
        QVERIFY(old && old->startsWith(root.path() + u"/tessel"_s));
        QFile file(*old);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.readAll().contains("SUMMARY:Tea\r\n"));
        const QString folder = QFileInfo(*old).path();
        for (const QString &path : { *old, folder })
            QCOMPARE(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther),
                     QFile::Permissions());

        const Result<QString> recent = write();
        QVERIFY(file.exists());
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(-2),
                                 QFile::FileModificationTime));
        QVERIFY(write());
        QVERIFY(!file.exists());
        QVERIFY(recent && QFile::exists(*recent));

        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
        QVERIFY(!write());
    }
};

QTEST_GUILESS_MAIN(tst_CalendarEntry)
#include "tst_CalendarEntry.moc"
