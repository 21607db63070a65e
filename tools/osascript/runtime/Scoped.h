// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel::Osascript {

/// Sets a variable for as long as the guard lives.
template <typename T> class Scoped final
{
public:
    Scoped(T &variable, T value)
        : m_variable(variable)
        , m_before(variable)
    {
        m_variable = value;
    }
    ~Scoped() { m_variable = m_before; }
    Scoped(const Scoped &) = delete;
    Scoped &operator=(const Scoped &) = delete;

private:
    T &m_variable;
    T m_before;
};

}
