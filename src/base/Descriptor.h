// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <utility>

#include <unistd.h>

namespace Tessel {

/// Owns a file descriptor.
class Descriptor final
{
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor()
    {
        if (isValid())
            close(m_number);
    }
    Q_DISABLE_COPY(Descriptor)

    [[nodiscard]] bool isValid() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; } ///< negative when it is not valid

private:
    int m_number = -1;
};

}
