// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QWidget>

namespace Tessel {

/// The one window of this class that is shown, null when there is none.
template <typename Window> [[nodiscard]] Window *shownWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *window = qobject_cast<Window *>(widget);
        if (window && window->isVisible())
            return window;
    }
    return nullptr;
}

}
