// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/calendar/CalendarEntry.h"

#include "base/Identifier.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qsizetype maxLine = 75; // octets, RFC 5545 section 3.1
constexpr int secondsPerHour = 3600;

QString escaped(QString text)
{
    static const QRegularExpression lineBreak(u"\r\n|\r|\n"_s);
    static const QRegularExpression control(u"[\\x00-\\x08\\x0b-\\x1f\\x7f]"_s);
    text.replace(u'\\', u"\\\\"_s).replace(u';', u"\\;"_s).replace(u',', u"\\,"_s);
    return text.replace(lineBreak, u"\\n"_s).remove(control);
}

bool isContinuationByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Continuation lines start with a space, and no character is torn apart.
QByteArray folded(const QByteArray &line)
{
    QByteArray result;
    qsizetype room = maxLine;
    for (qsizetype from = 0; from < line.size();) {
        qsizetype to = std::min(from + room, line.size());
        while (to < line.size() && isContinuationByte(line.at(to)))
            --to;
        result += (from == 0 ? "" : "\r\n ") + line.sliced(from, to - from);
        from = to;
        room = maxLine - 1;
    }
    return result + "\r\n";
}

class Lines final
{
public:
    void add(const QString &line) { m_bytes += folded(line.toUtf8()); }
    void addText(const QString &name, const QString &text)
    {
        if (!text.isEmpty())
            add(name + u':' + escaped(text));
    }
    void addTime(const QString &name, const QDateTime &time)
    {
        add(name + time.toString(u"':'yyyyMMdd'T'HHmmss"));
    }
    void addDay(const QString &name, QDate day)
    {
        add(name + day.toString(u"';VALUE=DATE:'yyyyMMdd"));
    }
    [[nodiscard]] QByteArray bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

/// DTEND is the first day after the event.
QDate dayAfter(const QDateTime &start, const QDateTime &end)
{
    const bool endsAtMidnight = end.time().msecsSinceStartOfDay() == 0;
    const QDate day = endsAtMidnight ? end.date() : end.date().addDays(1);
    return std::max(day, start.date().addDays(1));
}

void addEventTimes(Lines &lines, const CalendarEntry &entry, const QDateTime &now)
{
    const QDateTime start = entry.start.value_or(now);
    const QDateTime end = entry.end.value_or(start);
    if (entry.isAllDay) {
        lines.addDay(u"DTSTART"_s, start.date());
        lines.addDay(u"DTEND"_s, dayAfter(start, end));
        return;
    }
    lines.addTime(u"DTSTART"_s, start);
    lines.addTime(u"DTEND"_s, end > start ? end : start.addSecs(secondsPerHour));
}

void addToDoTimes(Lines &lines, const CalendarEntry &entry)
{
    const auto add = [&](const QString &name, const std::optional<QDateTime> &time) {
        if (time && entry.isAllDay)
            lines.addDay(name, time->date());
        else if (time)
            lines.addTime(name, *time);
    };
    add(u"DTSTART"_s, entry.start);
    if (!entry.start || entry.end > entry.start) // section 3.8.2.3: due comes after the start
        add(u"DUE"_s, entry.end);
}

QString calendarFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir(runtime).isAbsolute() && QDir(runtime).exists())
        return runtime + u"/tessel"_s;
    return QDir::tempPath() + u"/tessel-"_s + QString::number(geteuid());
}

/// Makes it when it is missing. Somebody else can have been first in the temporary folder.
bool isPrivateFolder(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    mkdir(name.constData(), S_IRWXU);
    struct stat status = {};
    return lstat(name.constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

/// By then a calendar has read them.
void removeOldFiles(const QString &folder)
{
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    const QFileInfoList files = QDir(folder).entryInfoList({ u"entry-*.ics"_s }, QDir::Files);
    for (const QFileInfo &file : files) {
        if (file.lastModified() < yesterday)
            QFile::remove(file.filePath());
    }
}

}

QByteArray toICalendar(const CalendarEntry &entry, const QString &identifier, const QDateTime &now)
{
    const bool isEvent = entry.kind == CalendarEntry::Kind::event;
    const QString component = isEvent ? u"VEVENT"_s : u"VTODO"_s;
    Lines lines;
    lines.add(u"BEGIN:VCALENDAR"_s);
    lines.add(u"VERSION:2.0"_s);
    lines.add(u"PRODID:-//Tessel//Tessel//EN"_s);
    lines.add(u"BEGIN:"_s + component);
    lines.addText(u"UID"_s, identifier);
    lines.add(now.toUTC().toString(u"'DTSTAMP:'yyyyMMdd'T'HHmmss'Z'"));
    if (isEvent)
        addEventTimes(lines, entry, now);
    else
        addToDoTimes(lines, entry);
    lines.addText(u"SUMMARY"_s, entry.summary);
    lines.addText(u"DESCRIPTION"_s, entry.description);
    lines.addText(u"LOCATION"_s, entry.location);
    if (entry.priority > 0) // section 3.8.1.9
        lines.add(u"PRIORITY:"_s + QString::number(entry.priority));
    lines.add(u"END:"_s + component);
    lines.add(u"END:VCALENDAR"_s);
    return lines.bytes();
}

Result<QString> writeCalendarFile(const CalendarEntry &entry)
{
    const QString folder = calendarFolder();
    if (!isPrivateFolder(folder))
        return Failure { folder + u" is not a folder of this user alone."_s };
    removeOldFiles(folder);
    QTemporaryFile file(folder + u"/entry-XXXXXX.ics"_s); // created with O_EXCL and mode 0600
    file.setAutoRemove(false);
    const QByteArray bytes = toICalendar(entry, newIdentifier(), QDateTime::currentDateTime());
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        return Failure { file.errorString() };
    return file.fileName();
}

}
