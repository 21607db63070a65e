// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandDataControl.h"

#include <array>
#include <utility>
#include <wayland-client.h>
#include <wlr-data-control-client.h>

#include <fcntl.h>
#include <unistd.h>

namespace Tessel {

namespace {

constexpr qsizetype maxMimeTypes = 1 << 10;

/// ext-data-control-v1 is version 2 of wlr-data-control-unstable-v1 under other names.
const wl_interface &extManagerInterface()
{
    static const wl_interface interface = [] {
        wl_interface copy = zwlr_data_control_manager_v1_interface;
        copy.name = "ext_data_control_manager_v1";
        copy.version = 1;
        return copy;
    }();
    return interface;
}

zwlr_data_control_manager_v1 *bindManager(const WaylandConnection &connection)
{
    if (auto *ext = connection.bind<zwlr_data_control_manager_v1>(extManagerInterface(), 1))
        return ext;
    return connection.bind<zwlr_data_control_manager_v1>(zwlr_data_control_manager_v1_interface, 2);
}

bool isSeat(const WaylandConnection::Global &global)
{
    return global.interface == wl_seat_interface.name;
}

}

struct WaylandDataControl::Listeners
{
    static WaylandDataControl &self(void *data) { return *static_cast<WaylandDataControl *>(data); }

    static constexpr zwlr_data_control_device_v1_listener device = {
        [](void *data, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer) {
            self(data).introduce(offer);
        },
        [](void *data, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer) {
            self(data).select(Selection::clipboard, offer);
        },
        [](void *data, zwlr_data_control_device_v1 *) { self(data).leaveSeat(); },
        [](void *data, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer) {
            self(data).select(Selection::primary, offer);
        },
    };

    static constexpr zwlr_data_control_offer_v1_listener offer = {
        [](void *data, zwlr_data_control_offer_v1 *, const char *mimeType) {
            self(data).addMimeType(mimeType);
        },
    };

    static constexpr wl_callback_listener starting = {
        [](void *data, wl_callback *, quint32) { self(data).m_starting.reset(); },
    };
};

bool WaylandDataControl::isOffered(const WaylandConnection &connection)
{
    return connection.offers(extManagerInterface().name)
        || connection.offers(zwlr_data_control_manager_v1_interface.name);
}

WaylandDataControl::WaylandDataControl(WaylandConnection &connection)
    : m_connection(connection)
    , m_manager(bindManager(connection), zwlr_data_control_manager_v1_destroy)
    , m_seat(nullptr, wl_seat_destroy)
    , m_device(nullptr, zwlr_data_control_device_v1_destroy)
    , m_starting(nullptr, wl_callback_destroy)
{
    for (const WaylandConnection::Global &global : connection.globals())
        watchSeat(global);
    connect(&connection, &WaylandConnection::globalAdded, this, &WaylandDataControl::watchSeat);
}

WaylandDataControl::~WaylandDataControl() = default;

void WaylandDataControl::watchSeat(const WaylandConnection::Global &global)
{
    if (!m_manager || m_device || !isSeat(global))
        return;
    m_seat.reset(m_connection.bind<wl_seat>(global, wl_seat_interface, 1));
    m_device.reset(zwlr_data_control_manager_v1_get_data_device(m_manager.get(), m_seat.get()));
    zwlr_data_control_device_v1_add_listener(m_device.get(), &Listeners::device, this);
    m_starting.reset(wl_display_sync(m_connection.display()));
    wl_callback_add_listener(m_starting.get(), &Listeners::starting, this);
}

/// The seat has gone; another may come.
void WaylandDataControl::leaveSeat()
{
    m_starting.reset();
    for (Offer *offer : { &m_introduced, &m_clipboard, &m_primary })
        *offer = {};
    m_device.reset();
    m_seat.reset();
}

void WaylandDataControl::introduce(zwlr_data_control_offer_v1 *offer)
{
    m_introduced = { { offer, zwlr_data_control_offer_v1_destroy }, {} };
    zwlr_data_control_offer_v1_add_listener(offer, &Listeners::offer, this);
}

/// They are told between the offer and its selection.
void WaylandDataControl::addMimeType(const char *mimeType)
{
    if (m_introduced.mimeTypes.size() < maxMimeTypes)
        m_introduced.mimeTypes += mimeType;
}

void WaylandDataControl::select(Selection selection, zwlr_data_control_offer_v1 *offer)
{
    Offer selected;
    if (offer && m_introduced.proxy.get() == offer)
        selected = std::exchange(m_introduced, {});
    (selection == Selection::clipboard ? m_clipboard : m_primary) = std::move(selected);
    if (m_starting)
        return;
    m_changeCount += offer && selection == Selection::clipboard ? 1 : 0;
    Q_EMIT changed(selection);
}

const WaylandDataControl::Offer &WaylandDataControl::offerOf(Selection selection) const
{
    return selection == Selection::clipboard ? m_clipboard : m_primary;
}

const QList<QByteArray> &WaylandDataControl::mimeTypes(Selection selection) const
{
    return offerOf(selection).mimeTypes;
}

Descriptor WaylandDataControl::receive(Selection selection, const QByteArray &mimeType) const
{
    const Offer &offer = offerOf(selection);
    std::array<int, 2> ends {};
    if (!offer.proxy || pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    const Descriptor ownersEnd(ends[1]); // which does wait: not all owners expect otherwise
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    zwlr_data_control_offer_v1_receive(offer.proxy.get(), mimeType.constData(), ownersEnd.number());
    return Descriptor(ends[0]);
}

WaylandPtr<zwlr_data_control_source_v1> WaylandDataControl::createSource() const
{
    return { m_manager ? zwlr_data_control_manager_v1_create_data_source(m_manager.get()) : nullptr,
             zwlr_data_control_source_v1_destroy };
}

void WaylandDataControl::setClipboard(zwlr_data_control_source_v1 *source)
{
    if (m_device)
        zwlr_data_control_device_v1_set_selection(m_device.get(), source);
}

}
