// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/fake/FakePlatform.h"

#include <QTimer>

namespace Tessel {

std::unique_ptr<EventMonitor::Subscription>
FakePlatform::Monitor::addGlobalMonitor(InputEvent::Kinds kinds, Handler handler)
{
    return refuses ? nullptr : m_handlers.add(kinds, std::move(handler));
}

QFuture<void> FakePlatform::Copier::copySelection(const FrontApplication &application)
{
    requests += application;
    if (onCopy)
        onCopy();
    return answers ? QtFuture::makeReadyFuture() : QFuture<void>();
}

QFuture<bool> FakePlatform::Copier::copyMarkedText(const FrontApplication &, Marked marked)
{
    return QtFuture::makeReadyFuture(onCopyMarked && onCopyMarked(marked));
}

QFuture<std::optional<QString>> FakePlatform::Clipboard::string(std::chrono::milliseconds patience)
{
    if (!ownerIsSilent)
        return QtFuture::makeReadyFuture(text);
    auto promise = std::make_shared<QPromise<std::optional<QString>>>();
    promise->start();
    QTimer::singleShot(patience, [promise] {
        promise->addResult(std::nullopt);
        promise->finish();
    });
    return promise->future();
}

void FakePlatform::Clipboard::put(const std::optional<QString> &newText)
{
    text = newText;
    ++m_changeCount;
}

QFuture<PopupLocation> FakePlatform::Popups::locate()
{
    return QtFuture::makeReadyFuture(location);
}

void FakePlatform::Popups::takeKeys(QWindow *window,
                                    const std::function<bool(const PopupKey &)> &wantsKey)
{
    keys = window;
    wants = wantsKey;
}

void FakePlatform::Popups::releaseKeys(QWindow *window)
{
    if (keys == window)
        keys = nullptr;
}

bool FakePlatform::Popups::takeKeyboard(QWindow *window)
{
    keyboard = window;
    return true;
}

void FakePlatform::Popups::releaseKeyboard(QWindow *window)
{
    if (keyboard == window)
        keyboard = nullptr;
}

void FakePlatform::Look::setDark(bool isDark)
{
    if (std::exchange(m_isDark, isDark) != isDark)
        Q_EMIT changed();
}

}
