// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/DesktopNotification.h"

#include "base/TextRules.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int maxTitle = 80; ///< characters

constexpr std::pair<QStringView, QString DesktopNotification::*> fields[] = {
    { u"text", &DesktopNotification::text },
    { u"title", &DesktopNotification::title },
    { u"subtitle", &DesktopNotification::subtitle },
    { u"file", &DesktopNotification::file },
    { u"topic", &DesktopNotification::topic },
    { u"preferences", &DesktopNotification::preferences },
};

}

CommandRequest notificationCommand(const DesktopNotification &notification, const QString &folder)
{
    QJsonObject json;
    for (const auto &[name, member] : fields)
        json.insert(name.toString(), notification.*member);
    return { .program = folder + u"/tessel-notify"_s,
             .input = QJsonDocument(json).toJson(QJsonDocument::Compact) };
}

DesktopNotification notificationFrom(const QByteArray &input)
{
    const QJsonObject json = QJsonDocument::fromJson(input).object();
    DesktopNotification notification;
    for (const auto &[name, member] : fields)
        notification.*member = json.value(name).toString();
    return notification;
}

QString notificationTitle(const QString &text)
{
    constexpr qsizetype maxSearched = 4000; // code units
    const QString start = withNormalizedLineEnds(text.left(maxSearched)).trimmed();
    const QString line = start.section(u'\n', 0, 0).simplified();
    const QList<TextRange> characters = characterRanges(line);
    return characters.size() <= maxTitle ? line : line.left(characters[maxTitle - 1].start) + u'…';
}

}
