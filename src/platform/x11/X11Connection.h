// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>

#include <array>
#include <functional>
#include <list>
#include <memory>

struct xcb_connection_t;
class QSocketNotifier;

namespace Tessel {

/// Owner of what xcb allocates: replies, events, errors.
struct FreeDeleter
{
    void operator()(void *memory) const;
};
template <typename T> using XcbPtr = std::unique_ptr<T, FreeDeleter>;

/// An event of any extension; valid during the call that hands it out.
class X11Event final
{
public:
    explicit X11Event(const void *raw)
        : m_raw(static_cast<const quint8 *>(raw))
    {
    }

    [[nodiscard]] int type() const { return m_raw[0] & 0x7f; } ///< whoever sent it

    /// The event as one of xcb's structures.
    template <typename T> [[nodiscard]] const T &as() const
    {
        return *reinterpret_cast<const T *>(m_raw);
    }

private:
    const quint8 *m_raw;
};

/// A connection to the X server apart from Qt's, with the extensions that the backend needs.
class X11Connection final : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<void(const X11Event &event)>;

    /// What tells the events and requests of an extension apart.
    struct Extension
    {
        bool present = false;
        quint8 majorOpcode = 0;
        quint8 firstEvent = 0;
    };

    /// Whether the session has an X server, be it for programs of other window systems.
    [[nodiscard]] static bool isOffered();
    /// Fails when the display of $DISPLAY cannot be reached.
    [[nodiscard]] static Result<std::unique_ptr<X11Connection>> open();
    ~X11Connection() override;

    /// Begins to deliver events, once; needs the application object.
    void start();

    /// Calls the handler for each event until the returned token is destroyed.
    [[nodiscard]] std::shared_ptr<void> subscribe(Handler handler);

    /// Selects events (core protocol's event mask) on the root window until the returned token is
    /// destroyed, which must not outlive the connection.
    [[nodiscard]] std::shared_ptr<void> listenToRoot(quint32 eventMask);

    [[nodiscard]] xcb_connection_t *xcb() const { return m_connection; }
    [[nodiscard]] quint32 root() const { return m_root; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }
    [[nodiscard]] const Extension &xfixes() const { return m_xfixes; }
    [[nodiscard]] const Extension &xinput() const { return m_xinput; } ///< version 2.1 or later
    [[nodiscard]] const Extension &xkb() const { return m_xkb; }
    [[nodiscard]] const Extension &xtest() const { return m_xtest; }

    [[nodiscard]] quint32 atom(const char *name) const; ///< remembered after the first request

    /// Value of a window's property in any format, cut off at `maxBytes`: other programs write
    /// what they like there. Empty when it has none.
    [[nodiscard]] QByteArray property(quint32 window, quint32 atom,
                                      quint32 maxBytes = 64 << 10) const;

    /// The items of a property in 32-bit format.
    [[nodiscard]] QList<quint32> items(quint32 window, quint32 atom) const;
    [[nodiscard]] QList<quint32> items(quint32 window, const char *name) const
    {
        return items(window, atom(name));
    }

    /// Sends a client message (ICCCM, section 4.2.1) about a window to `destination`, which may be
    /// another. An event mask of 0 reaches the destination's own client.
    void sendMessage(quint32 destination, quint32 eventMask, quint32 window, const char *type,
                     const std::array<quint32, 5> &data);

    /// The window that owns a selection; 0: none.
    [[nodiscard]] quint32 selectionOwner(quint32 selection) const;

    /// Makes an invisible window that takes part in transfers of selections.
    [[nodiscard]] quint32 createWindow() const;

    /// Whether two windows (or other resources) were made by the same client.
    [[nodiscard]] bool isSameClient(quint32 first, quint32 second) const;

private:
    X11Connection(xcb_connection_t *connection, int screenNumber);
    void queryExtensions();
    void selectRootEvents();
    enum class Source { socket, queue };
    void dispatch(Source source);

    xcb_connection_t *m_connection;
    int m_screenNumber;
    quint32 m_root = 0;
    Extension m_xfixes;
    Extension m_xinput;
    Extension m_xkb;
    Extension m_xtest;
    QSocketNotifier *m_notifier = nullptr;
    std::list<std::weak_ptr<Handler>> m_handlers;
    QList<quint32> m_rootEvents; ///< masks of those who listen
    mutable QHash<QByteArray, quint32> m_atoms;
};

}
