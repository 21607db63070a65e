// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

struct FrontApplication;

/// Makes the application in front copy its selection.
class CopyRequest
{
public:
    virtual ~CopyRequest() = default;

    /// Learns what depends on the keyboard layout, so that the first request is quick.
    virtual void prepare() = 0;

    /// Asks the application, as the user would with its copy shortcut, and returns at once. Whether
    /// it copied shows in the pasteboard's change count. Modifiers that the user holds are lifted.
    virtual void copySelection(const FrontApplication &application) = 0;
};

}
