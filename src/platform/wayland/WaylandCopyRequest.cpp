// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandCopyRequest.h"

#include "base/KeyCodes.h"
#include "platform/Pasteboard.h"
#include "platform/Workspace.h"
#include "platform/wayland/WaylandKeys.h"
#include "platform/wayland/WaylandPrimarySelection.h"

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr quint32 insertKey = 118; // the one beside Delete

}

void WaylandCopyRequest::prepare()
{
    m_services.keys.prepare();
}

QFuture<void> WaylandCopyRequest::whenReady()
{
    return m_services.keys.whenReady();
}

QFuture<void> WaylandCopyRequest::copySelection(const FrontApplication &)
{
    m_services.keys.press(insertKey, KeyCodes::control);
    return {};
}

QFuture<bool> WaylandCopyRequest::copyMarkedText(const FrontApplication &application, Marked marked)
{
    const WaylandPrimarySelection &primary = m_services.primary;
    const bool isMarked = primary.isMarkedIn(application.window)
        && (marked == Marked::ever || primary.isNewerThanFocus());
    if (!isMarked)
        return QtFuture::makeReadyFuture(false);
    return m_services.primary.text(400ms).then(this, [this](const std::optional<QString> &text) {
        const bool hasText = text && !text->isEmpty();
        if (hasText)
            m_services.pasteboard.setString(*text);
        return hasText;
    });
}

}
