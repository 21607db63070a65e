// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel::Osascript {

struct Object;

/// An application, as far as values know it: what objects are printed with.
class ObjectOwner
{
public:
    virtual ~ObjectOwner() = default;
    [[nodiscard]] virtual QString name() const = 0;
    /// What stands between the quotes when the object is printed.
    [[nodiscard]] virtual QString nameOf(const Object &object) const = 0;
};

}
