// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/PopupKeys.h"

#include "base/KeyCodes.h"

#include <QKeyEvent>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto maxIdle = 60s;

PopupKey popupKey(const QKeyEvent &event)
{
    return { KeyCodes::virtualFromScanCode(event.nativeScanCode()).value_or(-1), event.text(),
             bool(event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) };
}

}

PopupKeys::PopupKeys(std::function<void(const InputEvent &)> elsewhere)
    : m_elsewhere(std::move(elsewhere))
{
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &PopupKeys::giveBack);
}

void PopupKeys::take(QWindow *window, const Wants &wants, Kept kept)
{
    if (m_window != window) {
        giveBack();
        window->installEventFilter(this);
    }
    m_window = window;
    m_wants = wants;
    if (kept == Kept::untilIdle)
        m_idle.start(maxIdle);
}

void PopupKeys::release(QWindow *window)
{
    if (m_window != window)
        return;
    m_wants = {};
    if (m_down.empty())
        giveBack();
}

void PopupKeys::giveBack()
{
    if (QWindow *window = m_window) {
        forget(window);
        Q_EMIT given(window);
    }
}

void PopupKeys::forget(const QWindow *window)
{
    if (!m_window || m_window != window)
        return;
    m_window->removeEventFilter(this);
    m_window.clear();
    m_wants = {};
    m_down.clear();
    m_idle.stop();
}

bool PopupKeys::eventFilter(QObject *window, QEvent *event)
{
    if (window != m_window)
        return false;
    if (event->type() == QEvent::KeyPress)
        press(static_cast<const QKeyEvent &>(*event));
    if (event->type() == QEvent::KeyRelease) {
        const auto &release = static_cast<const QKeyEvent &>(*event);
        if (!release.isAutoRepeat())
            m_down.erase(release.nativeScanCode());
        if (!m_wants && m_down.empty())
            giveBack();
    }
    return false;
}

void PopupKeys::press(const QKeyEvent &event)
{
    if (m_idle.isActive())
        m_idle.start(maxIdle);
    m_down.insert(event.nativeScanCode());
    const PopupKey key = popupKey(event);
    if (m_wants && !m_wants(key) && !event.isAutoRepeat()
        && !KeyCodes::isModifierOrLock(event.nativeScanCode()))
        m_elsewhere(
            { InputEvent::Kind::keyDown, key.keyCode, KeyCodes::modifierBits(event.modifiers()) });
}

}
