// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

struct PopupLocation;

/// What shows the actions that can be done with a captured text.
class ActionBar
{
public:
    virtual ~ActionBar() = default;

    /// Offers the actions for the text; shows nothing when none applies. With `makeKey` the bar
    /// takes its keys if the desktop lets it.
    virtual void show(const PopupLocation &at, const QString &text, bool makeKey) = 0;
    virtual void hide() = 0;
};

}
