// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "icon-import/WebpImage.h"

#include <algorithm>
#include <memory>

#include <webp/decode.h>
#include <webp/demux.h>

namespace Tessel {

namespace {

struct DemuxerDeleter
{
    void operator()(WebPDemuxer *demuxer) const { WebPDemuxDelete(demuxer); }
};

QImage decoded(const WebPIterator &frame, int maxSide)
{
    QSize size(frame.width, frame.height);
    WebPDecoderConfig config;
    if (size.isEmpty() || !WebPInitDecoderConfig(&config))
        return {};
    if (std::max(size.width(), size.height()) > maxSide) {
        size = size.scaled(maxSide, maxSide, Qt::KeepAspectRatio).expandedTo({ 1, 1 });
        config.options.use_scaling = 1;
        config.options.scaled_width = size.width();
        config.options.scaled_height = size.height();
    }
    QImage image(size, QImage::Format_RGBA8888_Premultiplied);
    config.output.colorspace = MODE_rgbA;
    config.output.is_external_memory = 1;
    config.output.u.RGBA = { image.bits(), static_cast<int>(image.bytesPerLine()),
                             static_cast<size_t>(image.sizeInBytes()) };
    const auto status = WebPDecode(frame.fragment.bytes, frame.fragment.size, &config);
    return status == VP8_STATUS_OK ? image : QImage();
}

}

QImage readWebp(const QByteArray &bytes, int maxSide)
{
    const WebPData data { reinterpret_cast<const uint8_t *>(bytes.constData()),
                          static_cast<size_t>(bytes.size()) };
    const std::unique_ptr<WebPDemuxer, DemuxerDeleter> demuxer(WebPDemux(&data));
    WebPIterator frame;
    if (!demuxer || !WebPDemuxGetFrame(demuxer.get(), 1, &frame))
        return {};
    QImage image = decoded(frame, maxSide);
    WebPDemuxReleaseIterator(&frame);
    return image;
}

}
