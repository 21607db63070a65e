// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace Tessel {

/// Why something could not be done, in words for the user.
struct Failure
{
    QString reason;

    friend bool operator==(const Failure &, const Failure &) = default;
};

/// A value, or why there is none. Follows std::expected of C++23 as far as it goes: a function
/// returns the value or a Failure, and the caller asks before it takes either.
template <typename T> class [[nodiscard]] Result final
{
public:
    Result(T value)
        : m_content(std::in_place_index<0>, std::move(value))
    {
    }
    Result(Failure failure)
        : m_content(std::in_place_index<1>, std::move(failure))
    {
    }

    [[nodiscard]] explicit operator bool() const { return m_content.index() == 0; }

    // The value; there must be one.
    [[nodiscard]] const T &operator*() const & { return std::get<0>(m_content); }
    [[nodiscard]] T &operator*() & { return std::get<0>(m_content); }
    [[nodiscard]] T &&operator*() && { return std::get<0>(std::move(m_content)); }
    [[nodiscard]] const T *operator->() const { return &std::get<0>(m_content); }
    [[nodiscard]] T *operator->() { return &std::get<0>(m_content); }

    [[nodiscard]] T valueOr(T other) const { return *this ? **this : std::move(other); }

    /// There must be one.
    [[nodiscard]] const Failure &error() const { return std::get<1>(m_content); }

private:
    std::variant<T, Failure> m_content;
};

/// Success, or why there is none.
template <> class [[nodiscard]] Result<void> final
{
public:
    Result() = default;
    Result(Failure failure)
        : m_failure(std::move(failure))
    {
    }

    [[nodiscard]] explicit operator bool() const { return !m_failure; }

    /// There must be one.
    [[nodiscard]] const Failure &error() const { return *m_failure; }

private:
    std::optional<Failure> m_failure;
};

}
