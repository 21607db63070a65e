// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandTextSource.h"

#include "platform/freedesktop/SelectionText.h"
#include "platform/wayland/PipeWriter.h"

#include <algorithm>
#include <csignal>
#include <wlr-data-control-client.h>

namespace Tessel {

namespace {

constexpr std::size_t maxWriters = 64;

}

struct WaylandTextSource::Listeners
{
    static WaylandTextSource &self(void *data) { return *static_cast<WaylandTextSource *>(data); }

    static constexpr zwlr_data_control_source_v1_listener source = {
        [](void *data, zwlr_data_control_source_v1 *, const char *mimeType, int pipe) {
            self(data).send(mimeType, Descriptor(pipe));
        },
        [](void *data, zwlr_data_control_source_v1 *) { self(data).cancel(); },
    };
};

WaylandTextSource::WaylandTextSource(WaylandDataControl &dataControl)
    : m_dataControl(dataControl)
    , m_source(nullptr, zwlr_data_control_source_v1_destroy)
{
    [[maybe_unused]] static const auto previous = std::signal(SIGPIPE, SIG_IGN);
}

WaylandTextSource::~WaylandTextSource() = default;

void WaylandTextSource::setText(const QByteArray &utf8)
{
    auto source = m_dataControl.createSource();
    if (!source)
        return;
    zwlr_data_control_source_v1_add_listener(source.get(), &Listeners::source, this);
    m_contents.clear();
    for (const TextFormat &format : textFormats) {
        const auto bytes = format.charset == TextFormat::Charset::latin1 ? toLatin1(utf8) : utf8;
        if (!bytes)
            continue;
        m_contents[format.name] = *bytes;
        zwlr_data_control_source_v1_offer(source.get(), format.name);
    }
    m_dataControl.setClipboard(source.get());
    m_source = std::move(source); // the one before goes when its place is taken
}

bool WaylandTextSource::isInUse() const
{
    return m_source || !m_writers.empty();
}

void WaylandTextSource::send(const QByteArray &mimeType, Descriptor pipe)
{
    if (m_writers.size() == maxWriters)
        m_writers.erase(m_writers.begin());
    auto writer = std::make_unique<PipeWriter>(std::move(pipe), m_contents.value(mimeType));
    connect(writer.get(), &PipeWriter::finished, this,
            [this, done = writer.get()] { remove(done); });
    m_writers.push_back(std::move(writer));
}

void WaylandTextSource::cancel()
{
    m_source.reset();
    m_contents.clear();
    if (!isInUse())
        Q_EMIT released();
}

void WaylandTextSource::remove(const PipeWriter *writer)
{
    const auto entry
        = std::find_if(m_writers.begin(), m_writers.end(),
                       [writer](const auto &candidate) { return candidate.get() == writer; });
    entry->release()->deleteLater();
    m_writers.erase(entry);
    if (!isInUse())
        Q_EMIT released();
}

}
