// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>

namespace Tessel {

struct FrontApplication;

/// Makes the application in front copy its selection. Whether it did shows in the pasteboard's
/// change count.
class CopyRequest
{
public:
    virtual ~CopyRequest() = default;

    /// Learns what depends on the keyboard layout, so that the first request is quick.
    virtual void prepare() = 0;

    /// Finishes when the shortcut can be pressed: at once where modifiers that the user holds can
    /// be lifted, else when they are up, or after a second.
    [[nodiscard]] virtual QFuture<void> whenReady() = 0;

    /// Asks the application, as the user would with its copy shortcut, and returns at once.
    /// Modifiers that the user holds are lifted where that can be done. Not for terminals and their
    /// like. The future finishes when the application has seen the shortcut; when it does not tell
    /// that, it is cancelled or never ends.
    [[nodiscard]] virtual QFuture<void> copySelection(const FrontApplication &application) = 0;

    enum class Marked { ever, sinceFocus };

    /// Puts the text that is marked in the application (on X11 the PRIMARY selection) on the
    /// pasteboard, without telling the application; `sinceFocus` only when it was marked since the
    /// application is in front. The result is false when there is none.
    [[nodiscard]] virtual QFuture<bool> copyMarkedText(const FrontApplication &application,
                                                       Marked marked)
        = 0;
};

}
