// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11CopyRequest.h"

#include "platform/Pasteboard.h"
#include "platform/Workspace.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11CurrentLayout.h"
#include "platform/x11/X11FakeKeys.h"
#include "platform/x11/X11PrimarySelection.h"
#include "platform/x11/X11SelectionReader.h"
#include "platform/x11/X11WindowPing.h"

#include <QPromise>

#include <xcb/xcb.h>

using namespace std::chrono_literals;

namespace Tessel {

X11CopyRequest::X11CopyRequest(const Services &services)
    : m_services(services)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(500ms);
    connect(&m_patience, &QTimer::timeout, this, [this] { m_ping.reset(); });
}

X11CopyRequest::~X11CopyRequest() = default;

void X11CopyRequest::prepare()
{
    [[maybe_unused]] const X11KeyLayout *layout = m_services.layout.get();
}

QFuture<void> X11CopyRequest::copySelection(const FrontApplication &application)
{
    auto seen = std::make_shared<QPromise<void>>();
    seen->start();
    const X11KeyLayout *layout = m_services.layout.get();
    X11Connection &connection = m_services.connection;
    if (layout && connection.xtest().present) {
        X11FakeKeys keyboard(connection);
        keyboard.liftHeldModifiers();
        keyboard.press({ layout->control(), layout->insert() });
        const auto window = static_cast<quint32>(application.window);
        m_ping.reset(); // the promise of an unanswered one is cancelled
        if (X11WindowPing::isAnswered(connection, window)) {
            m_ping
                = std::make_unique<X11WindowPing>(connection, window, [seen] { seen->finish(); });
            m_patience.start();
        }
    }
    return seen->future();
}

QFuture<bool> X11CopyRequest::copyMarkedText(const FrontApplication &application, Marked marked)
{
    const bool isMarked = m_services.primary.isMarkedIn(static_cast<quint32>(application.window))
        && (marked == Marked::ever || m_services.primary.isNewerThanFocus());
    if (!isMarked)
        return QtFuture::makeReadyFuture(false);
    return m_services.reader.read(XCB_ATOM_PRIMARY, 400ms)
        .then(this, [this](const std::optional<QString> &text) {
            const bool hasText = text && !text->isEmpty();
            if (hasText)
                m_services.pasteboard.setString(*text);
            return hasText;
        });
}

}
