// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProperty>

#include <utility>

namespace Tessel {

/// A property that is copied like a plain value: those who watch it stay with their instance and
/// learn of what is assigned to it.
template <typename T> class Observable final : public QProperty<T>
{
public:
    Observable(T value)
        : QProperty<T>(std::move(value))
    {
    }
    Observable(const Observable &other)
        : QProperty<T>(other.value())
    {
    }

    Observable &operator=(const Observable &other) { return *this = other.value(); }
    Observable &operator=(T value)
    {
        this->setValue(std::move(value));
        return *this;
    }

    friend bool operator==(const Observable &left, const Observable &right)
    {
        return left.value() == right.value();
    }
};

}
