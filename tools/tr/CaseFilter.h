// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

struct UCaseMap;

namespace Tessel {

/// Maps a stream of UTF-8 to upper or lower case: full case mapping of Unicode, the same in every
/// locale. What is not UTF-8 goes through unchanged.
class CaseFilter final
{
public:
    enum class Case { upper, lower };

    explicit CaseFilter(Case to);

    /// What can be put out after these further bytes; some may wait for the next ones, since the
    /// lower case of a Greek sigma depends on what follows it.
    [[nodiscard]] std::string feed(std::string_view bytes);

    /// The rest.
    [[nodiscard]] std::string finish();

private:
    struct Closer
    {
        void operator()(UCaseMap *map) const;
    };

    [[nodiscard]] std::string mapped(std::string_view bytes) const;
    [[nodiscard]] std::string mappedUtf8(std::string_view text) const;

    Case m_case;
    std::unique_ptr<UCaseMap, Closer> m_map;
    std::string m_waiting;
};

}
