// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "icon-import/SvgImage.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int maxDepth = 200; ///< of elements in elements; drawing takes stack for each

/// An embedded image written anew, so that it is PNG or JPEG for every reader; else nothing.
QString embeddedImage(const QString &address)
{
    const QString mark = u"base64,"_s;
    const qsizetype at = address.lastIndexOf(mark);
    if (!address.startsWith(u"data:") || at < 0)
        return {};
    const QByteArray content = QByteArray::fromBase64(address.mid(at + mark.size()).toLatin1());
    const bool isImage = content.startsWith("\x89PNG") || content.startsWith("\xff\xd8\xff");
    return isImage ? u"data:image/png;base64,"_s + QString::fromLatin1(content.toBase64())
                   : QString();
}

/// References get the name that Qt 6.4 knows, whatever theirs is ("href" alone since SVG 2).
void copyElement(const QXmlStreamReader &reader, QXmlStreamWriter &writer, bool isRoot)
{
    const QString xlink = u"xmlns:xlink"_s;
    writer.writeStartElement(reader.qualifiedName().toString());
    if (isRoot)
        writer.writeAttribute(xlink, u"http://www.w3.org/1999/xlink"_s);
    QString target;
    for (const QXmlStreamAttribute &attribute : reader.attributes()) {
        const QString name = attribute.qualifiedName().toString();
        const QString value = attribute.value().toString();
        if (name == u"href" || name.endsWith(u":href"))
            target = value.startsWith(u'#') ? value : embeddedImage(value);
        else if (name != xlink)
            writer.writeAttribute(name, value);
    }
    if (!target.isEmpty())
        writer.writeAttribute(u"xlink:href"_s, target);
}

bool showsSomething(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                return true;
        }
    }
    return false;
}

}

QByteArray selfContainedSvg(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes); // which bounds what entities become
    reader.setNamespaceProcessing(false); // prefixes stay as they are
    QByteArray result;
    QXmlStreamWriter writer(&result);
    int depth = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (++depth > maxDepth)
                return {};
            copyElement(reader, writer, depth == 1);
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
            writer.writeEndElement();
        } else if (token == QXmlStreamReader::Characters) {
            writer.writeCharacters(reader.text().toString());
        }
    }
    return reader.hasError() ? QByteArray() : result;
}

QImage readSvg(const QByteArray &bytes, int side)
{
    const QByteArray document = selfContainedSvg(bytes);
    if (document.isEmpty())
        return {};
    qputenv("QT_QPA_PLATFORM", "offscreen"); // texts need fonts, and those an application
    int argc = 1;
    char name[] = "tessel-icon-import";
    char *argv[] = { name, nullptr };
    const QGuiApplication application(argc, argv);
    QSvgRenderer renderer;
    if (!renderer.load(document))
        return {};
    QSizeF size = renderer.defaultSize();
    if (size.isEmpty())
        size = { 1, 1 };
    const QSizeF scaled = size.scaled(side, side, Qt::KeepAspectRatio);
    QImage image(scaled.toSize().expandedTo({ 1, 1 }), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(), image.size()));
    painter.end();
    return showsSomething(image) ? image : QImage();
}

}
