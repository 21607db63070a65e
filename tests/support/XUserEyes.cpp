// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/XUserPrivate.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

bool waitFor(const std::function<bool()> &condition, std::chrono::milliseconds timeout)
{
    return QTest::qWaitFor(condition, static_cast<int>(timeout.count()));
}

}

quint32 XUser::Private::number(quint32 window, const char *property) const
{
    return x11->items(window, property).value(0);
}

QList<quint32> XUser::Private::children(quint32 window) const
{
    auto *c = connection;
    const Xcb::Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
    if (!tree)
        return {};
    const auto *first = xcb_query_tree_children(tree.get());
    return QList<quint32>(first, first + xcb_query_tree_children_length(tree.get()));
}

quint32 XUser::Private::clientInside(quint32 window, int depth) const
{
    if (!x11->property(window, x11->atom("WM_STATE")).isEmpty())
        return window;
    if (depth == 0)
        return 0;
    for (const auto child : children(window)) {
        if (const auto client = clientInside(child, depth - 1))
            return client;
    }
    return 0;
}

WindowInfo XUser::Private::describe(quint32 window) const
{
    auto *c = connection;
    const Xcb::Owned<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
    const Xcb::Owned<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        c, xcb_translate_coordinates(c, window, screen->root, 0, 0), nullptr));
    const Xcb::Owned<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, window), nullptr));
    if (!size || !origin || !attributes)
        return {};
    const auto text = [&](const char *name) { return x11->property(window, x11->atom(name)); };
    const QByteArray title = text("_NET_WM_NAME");
    WindowInfo info;
    info.id = window;
    info.geometry = QRect(origin->dst_x, origin->dst_y, size->width, size->height);
    info.className = QString::fromUtf8(text("WM_CLASS").split('\0').value(1));
    info.title = QString::fromUtf8(title.isEmpty() ? text("WM_NAME") : title);
    info.processId = number(window, "_NET_WM_PID");
    info.overrideRedirect = attributes->override_redirect;
    return info;
}

QList<WindowInfo> XUser::windows() const
{
    auto *c = d->connection;
    QList<WindowInfo> found;
    for (const auto top : d->children(d->screen->root)) {
        const Xcb::Owned<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, top), nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE
            || attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
            continue;
        const auto client = d->clientInside(top);
        const auto info = d->describe(client ? client : top);
        if (info.id)
            found << info;
    }
    return found;
}

std::optional<WindowInfo> XUser::window(quint32 id) const
{
    return findWindow([id](const WindowInfo &info) { return info.id == id; });
}

std::optional<WindowInfo> XUser::findWindow(const Match &match) const
{
    const auto all = windows();
    const auto found = std::find_if(all.cbegin(), all.cend(), match);
    return found == all.cend() ? std::nullopt : std::optional(*found);
}

std::optional<WindowInfo> XUser::waitForWindow(const Match &match,
                                               std::chrono::milliseconds timeout) const
{
    std::optional<WindowInfo> found;
    const auto appeared = [&] {
        found = findWindow(match);
        return found.has_value();
    };
    return waitFor(appeared, timeout) ? found : std::nullopt;
}

bool XUser::waitUntilGone(quint32 id, std::chrono::milliseconds timeout) const
{
    return waitFor([this, id] { return !window(id); }, timeout);
}

quint32 XUser::activeWindow() const
{
    return d->number(d->screen->root, "_NET_ACTIVE_WINDOW");
}

bool XUser::isUsable(quint32 id) const
{
    const bool isManaged = d->number(d->screen->root, "_NET_SUPPORTING_WM_CHECK") != 0;
    if (isManaged && activeWindow() != id)
        return false;
    auto *c = d->connection;
    const Xcb::Owned<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    for (auto window = focus ? focus->focus : 0; window > XCB_INPUT_FOCUS_POINTER_ROOT;) {
        if (window == id)
            return true;
        const Xcb::Owned<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
        window = tree ? tree->parent : 0;
    }
    return false;
}

bool XUser::waitUntilUsable(quint32 id, std::chrono::milliseconds timeout) const
{
    return waitFor([this, id] { return isUsable(id); }, timeout);
}

void XUser::activate(quint32 id)
{
    constexpr quint32 fromTaskBar = 2; // EWMH, source indication
    d->x11->sendMessage(d->screen->root,
                        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                        id, "_NET_ACTIVE_WINDOW", { fromTaskBar });
    d->sync();
}

QImage XUser::screenshot(const QRect &area) const
{
    const QRect everything(0, 0, d->screen->width_in_pixels, d->screen->height_in_pixels);
    const QRect shown = area.isNull() ? everything : area & everything;
    if (shown.isEmpty())
        return {};
    auto *c = d->connection;
    const Xcb::Owned<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        c,
        xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, d->screen->root,
                      static_cast<int16_t>(shown.x()), static_cast<int16_t>(shown.y()),
                      static_cast<uint16_t>(shown.width()), static_cast<uint16_t>(shown.height()),
                      ~0U),
        nullptr));
    if (!reply)
        return {};
    // A server with 24 planes leaves the fourth byte open; converting from RGB32 sets it.
    const QImage pixels(xcb_get_image_data(reply.get()), shown.width(), shown.height(),
                        4LL * shown.width(), QImage::Format_RGB32);
    return pixels.convertToFormat(QImage::Format_RGB888).convertToFormat(QImage::Format_RGB32);
}

}
