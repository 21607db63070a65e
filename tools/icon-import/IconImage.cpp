// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "icon-import/IconImage.h"

#include "icon-import/SvgImage.h"
#include "icon-import/WebpImage.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <cstring>
#include <memory>

#include <tiffio.h>

namespace Tessel {

namespace {

constexpr quint32 maxTiffSide = 16'384; ///< pixels; four bytes each, within the memory limit

/// What Qt reads itself, by how it begins. Named to it, or it would try its plugins, of which the
/// one for SVG reads what a document refers to.
constexpr std::pair<QByteArrayView, const char *> qtFormats[] = {
    { "\x89PNG\r\n\x1a\n", "png" }, { "\xff\xd8\xff", "jpeg" }, { "GIF8", "gif" }, { "BM", "bmp" }
};

/// libtiff reads the bytes through these.
struct Source
{
    const QByteArray &bytes;
    toff_t position = 0;
};

Source &source(thandle_t handle)
{
    return *static_cast<Source *>(handle);
}

tmsize_t read(thandle_t handle, void *target, tmsize_t size)
{
    Source &from = source(handle);
    const auto end = static_cast<toff_t>(from.bytes.size());
    const auto count = std::min(static_cast<toff_t>(size), end - std::min(end, from.position));
    std::memcpy(target, from.bytes.constData() + from.position, count);
    from.position += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t write(thandle_t, void *, tmsize_t)
{
    return 0;
}

toff_t seek(thandle_t handle, toff_t offset, int whence)
{
    Source &from = source(handle);
    const toff_t base = whence == SEEK_CUR ? from.position
        : whence == SEEK_END               ? static_cast<toff_t>(from.bytes.size())
                                           : 0;
    return from.position = base + offset;
}

int close(thandle_t)
{
    return 0;
}

toff_t size(thandle_t handle)
{
    return static_cast<toff_t>(source(handle).bytes.size());
}

struct TiffCloser
{
    void operator()(TIFF *tiff) const { TIFFClose(tiff); }
};

QImage readTiff(const QByteArray &bytes)
{
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    Source from { bytes };
    const std::unique_ptr<TIFF, TiffCloser> tiff(
        TIFFClientOpen("icon", "rm", &from, read, write, seek, close, size, nullptr, nullptr));
    quint32 width = 0;
    quint32 height = 0;
    if (!tiff || !TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width)
        || !TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height) || width > maxTiffSide
        || height > maxTiffSide)
        return {};
    QImage image(int(width), int(height), QImage::Format_RGBA8888_Premultiplied);
    if (image.isNull()
        || !TIFFReadRGBAImageOriented(tiff.get(), width, height,
                                      reinterpret_cast<quint32 *>(image.bits()),
                                      ORIENTATION_TOPLEFT, 1))
        return {};
    return image;
}

QImage readByQt(QByteArray bytes)
{
    for (const auto &[start, format] : qtFormats) {
        if (!bytes.startsWith(start))
            continue;
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, format);
        reader.setAutoDetectImageFormat(false);
        reader.setAutoTransform(true);
        return reader.read();
    }
    return {};
}

}

QByteArray largestPngOfIcns(const QByteArray &bytes)
{
    constexpr qsizetype headerSize = 8;
    constexpr qsizetype pngWidthAt = 16; // RFC 2083, section 4.1.1
    QByteArray largest;
    quint32 largestWidth = 0;
    for (qsizetype at = headerSize; at + headerSize <= bytes.size();) {
        const qsizetype length = qFromBigEndian<quint32>(bytes.constData() + at + 4);
        if (length < headerSize || length > bytes.size() - at)
            break;
        const QByteArray content = bytes.mid(at + headerSize, length - headerSize);
        at += length;
        if (!content.startsWith("\x89PNG\r\n\x1a\n") || content.size() < pngWidthAt + 4)
            continue;
        const auto width = qFromBigEndian<quint32>(content.constData() + pngWidthAt);
        if (width > largestWidth) {
            largestWidth = width;
            largest = content;
        }
    }
    return largest;
}

QImage readIconImage(const QByteArray &bytes, int side)
{
    if (bytes.startsWith("II*") || bytes.startsWith(QByteArray("MM\0*", 4)))
        return readTiff(bytes);
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return readWebp(bytes, side);
    if (bytes.startsWith("icns"))
        return readByQt(largestPngOfIcns(bytes));
    const QImage image = readByQt(bytes);
    return image.isNull() && bytes.contains("<") ? readSvg(bytes, side) : image;
}

}
