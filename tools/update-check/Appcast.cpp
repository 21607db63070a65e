// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/Appcast.h"

#include "base/LocalizationManager.h"
#include "update-check/Version.h"

#include <QXmlStreamReader>

#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QStringView sparkle = u"http://www.andymatuschak.org/xml-namespaces/sparkle";
constexpr qsizetype maxDisplayVersion = 64; // characters, as the others
constexpr qsizetype maxLink = 2048;
constexpr qsizetype maxNotes = 65536;

struct Item
{
    QString version;
    QString shortVersion;
    QString title;
    QString link;
    QString description;
    QString releaseNotesLink;
    QString channel;
    QString system;
};

void setOnce(QString &field, const QString &value)
{
    if (field.isEmpty())
        field = value.trimmed();
}

QString *fieldFor(Item &item, QStringView name, QStringView space)
{
    const std::tuple<QStringView, QStringView, QString *> fields[] {
        { sparkle, u"version", &item.version },
        { sparkle, u"shortVersionString", &item.shortVersion },
        { sparkle, u"releaseNotesLink", &item.releaseNotesLink },
        { sparkle, u"channel", &item.channel },
        { {}, u"title", &item.title },
        { {}, u"link", &item.link },
        { {}, u"description", &item.description },
    };
    for (const auto &[fieldSpace, fieldName, field] : fields) {
        if (space == fieldSpace && name == fieldName)
            return field;
    }
    return nullptr;
}

Item readItem(QXmlStreamReader &xml)
{
    Item item;
    Item attributes; // elements win over them, wherever they stand
    while (xml.readNextStartElement()) {
        if (QString *field = fieldFor(item, xml.name(), xml.namespaceUri())) {
            setOnce(*field, xml.readElementText(QXmlStreamReader::SkipChildElements));
            continue;
        }
        if (xml.name() == u"enclosure" && xml.namespaceUri().isEmpty()) {
            const auto value = [all = xml.attributes()](QLatin1StringView name) {
                return all.value(sparkle.toString(), name).toString();
            };
            setOnce(attributes.version, value("version"_L1));
            setOnce(attributes.shortVersion, value("shortVersionString"_L1));
            setOnce(item.system, value("os"_L1));
        }
        xml.skipCurrentElement();
    }
    setOnce(item.version, attributes.version);
    setOnce(item.shortVersion, attributes.shortVersion);
    setOnce(item.version, item.shortVersion);
    return item;
}

bool isOffered(const Item &item)
{
    return isVersion(item.version) && item.channel.isEmpty()
        && (item.system.isEmpty() || item.system == u"linux");
}

Release releaseFrom(const Item &item)
{
    Release release { .version = item.version,
                      .displayVersion = item.shortVersion.simplified().left(maxDisplayVersion),
                      .link = item.link.isEmpty() ? item.releaseNotesLink : item.link,
                      .notes = item.description.left(maxNotes) };
    setOnce(release.displayVersion, item.version);
    if (release.link.size() > maxLink)
        release.link.clear();
    setOnce(release.notes, (item.title + u'\n' + item.releaseNotesLink).left(maxNotes));
    return release;
}

/// Goes to the root element. A document type before it, or another root than RSS, is an error.
void enterRoot(QXmlStreamReader &xml)
{
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::StartElement) {
        if (xml.isDTD())
            xml.raiseError(u"it has a document type"_s);
    }
    if (!xml.hasError() && xml.name() != u"rss")
        xml.raiseError(u"it is not RSS"_s);
}

}

Result<Release> parseAppcast(const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    std::optional<Item> newest;
    enterRoot(xml);
    while (xml.readNextStartElement()) {
        if (xml.name() == u"channel")
            continue; // its children are next
        if (xml.name() != u"item") {
            xml.skipCurrentElement();
            continue;
        }
        const Item item = readItem(xml);
        if (isOffered(item)
            && (!newest || std::is_gt(compareVersions(item.version, newest->version))))
            newest = item;
    }
    while (!xml.atEnd()) // what follows has to be well-formed, too
        xml.readNext();
    if (xml.hasError())
        return Failure { localized(u"The update feed is not valid: %1."_s).arg(xml.errorString()) };
    if (!newest)
        return Failure { localized(u"The update feed names no version."_s) };
    return releaseFrom(*newest);
}

}
