// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <cstdlib>
#include <functional>
#include <fuzzer/FuzzedDataProvider.h>
#include <memory>
#include <xcb/xcb.h>

namespace Tessel {

template <typename T> using XcbPtr = std::unique_ptr<T, decltype([](T *t) { std::free(t); })>;

class X11Event
{
public:
    int type() const { return *static_cast<const quint8 *>(raw); }
    template <typename T> const T &as() const { return *static_cast<const T *>(raw); }

    const void *raw;
};

/// In place of the real one where its users are fuzzed: the server and the owner of the selection,
/// who answer what the fuzzer likes.
class X11Connection
{
public:
    struct Extension
    {
        int firstEvent = 90;
    };

    Extension xfixes() { return {}; }
    xcb_connection_t *xcb() { return none; }
    quint32 selectionOwner(quint32) { return 7; }
    quint32 createWindow() { return 8; }
    quint32 atom(const char *name);
    QList<quint32> items(quint32 window, quint32 property);
    QByteArray property(quint32 window, quint32 property, quint32 maxBytes);
    std::shared_ptr<void> subscribe(std::function<void(const X11Event &)> newHandler)
    {
        handler = std::move(newHandler);
        return {};
    }

    FuzzedDataProvider &input;
    std::function<void(const X11Event &)> handler = {};
    bool isRefused = false; ///< files or a secret were offered
    xcb_connection_t *none = xcb_connect("none", nullptr); ///< libxcb does nothing with it
};

}
