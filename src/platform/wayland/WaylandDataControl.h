// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandSelections.h"

struct wl_callback;
struct zwlr_data_control_device_v1;
struct zwlr_data_control_manager_v1;
struct zwlr_data_control_offer_v1;
struct zwlr_data_control_source_v1;

namespace Tessel {

/// The selections of the first seat, for a program that is not in front: ext-data-control-v1 or
/// wlr-data-control-unstable-v1. Events are delivered as the connection is.
class WaylandDataControl final : public WaylandSelections
{
    Q_OBJECT

public:
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    /// Is about nothing until the compositor has answered, and when it offers neither protocol.
    explicit WaylandDataControl(WaylandConnection &connection);
    ~WaylandDataControl() override;

    [[nodiscard]] qint64 changeCount() const override { return m_changeCount; }
    [[nodiscard]] const QList<QByteArray> &mimeTypes(Selection selection) const override;
    [[nodiscard]] Descriptor receive(Selection selection,
                                     const QByteArray &mimeType) const override;

    /// To offer something with; null when neither protocol is there.
    [[nodiscard]] WaylandPtr<zwlr_data_control_source_v1> createSource() const;

    /// Puts on the clipboard what the source offers. A source can be used once.
    void setClipboard(zwlr_data_control_source_v1 *source);

private:
    struct Offer
    {
        WaylandPtr<zwlr_data_control_offer_v1> proxy { nullptr, nullptr };
        QList<QByteArray> mimeTypes;
    };
    struct Listeners;

    void watchSeat(const WaylandConnection::Global &global);
    void leaveSeat();
    void introduce(zwlr_data_control_offer_v1 *offer);
    void addMimeType(const char *mimeType);
    void select(Selection selection, zwlr_data_control_offer_v1 *offer);
    [[nodiscard]] const Offer &offerOf(Selection selection) const;

    WaylandConnection &m_connection;
    WaylandPtr<zwlr_data_control_manager_v1> m_manager;
    WaylandPtr<wl_seat> m_seat;
    WaylandPtr<zwlr_data_control_device_v1> m_device;
    WaylandPtr<wl_callback> m_starting; ///< until what is selected at the start has been told
    Offer m_introduced; ///< and not selected yet
    Offer m_clipboard;
    Offer m_primary;
    qint64 m_changeCount = 0;
};

}
