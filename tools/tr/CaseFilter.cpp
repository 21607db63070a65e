// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "tr/CaseFilter.h"

#include <algorithm>
#include <utility>

#include <unicode/ucasemap.h>
#include <unicode/utf8.h>

namespace Tessel {

namespace {

/// A longer line is not kept for the sake of its last word.
constexpr std::size_t maxLine = 1 << 16;

/// So many bytes make up whole characters, or never will.
std::size_t completeSize(std::string_view bytes)
{
    auto size = static_cast<int32_t>(bytes.size());
    U8_TRUNCATE_IF_INCOMPLETE(bytes.data(), 0, size);
    return static_cast<std::size_t>(size);
}

// The macro narrows to bytes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
/// The size of the text up to the first byte that is not UTF-8.
std::size_t validSize(std::string_view bytes)
{
    const auto size = static_cast<int32_t>(bytes.size());
    int32_t valid = 0;
    for (int32_t next = 0; next < size; valid = next) {
        UChar32 character = 0;
        U8_NEXT(bytes.data(), next, size, character);
        if (character < 0)
            break;
    }
    return static_cast<std::size_t>(valid);
}
#pragma GCC diagnostic pop

}

void CaseFilter::Closer::operator()(UCaseMap *map) const
{
    ucasemap_close(map);
}

CaseFilter::CaseFilter(Case to)
    : m_case(to)
{
    UErrorCode error = U_ZERO_ERROR;
    m_map.reset(ucasemap_open("", 0, &error));
}

std::string CaseFilter::feed(std::string_view bytes)
{
    m_waiting += bytes;
    const std::size_t lines = m_waiting.rfind('\n') + 1; // 0 when there is none
    const std::size_t ready
        = lines == 0 && m_waiting.size() > maxLine ? completeSize(m_waiting) : lines;
    std::string result = mapped(std::string_view(m_waiting).substr(0, ready));
    m_waiting.erase(0, ready);
    return result;
}

std::string CaseFilter::finish()
{
    return mapped(std::exchange(m_waiting, {}));
}

std::string CaseFilter::mapped(std::string_view bytes) const
{
    std::string result;
    while (!bytes.empty()) {
        const std::size_t valid = validSize(bytes);
        result += mappedUtf8(bytes.substr(0, valid));
        const std::size_t used = std::min(valid + 1, bytes.size());
        result += bytes.substr(valid, used - valid);
        bytes.remove_prefix(used);
    }
    return result;
}

std::string CaseFilter::mappedUtf8(std::string_view text) const
{
    const auto map = m_case == Case::upper ? ucasemap_utf8ToUpper : ucasemap_utf8ToLower;
    // No character's full mapping has more than three times its bytes.
    std::string result(text.size() * 3, '\0');
    UErrorCode error = U_ZERO_ERROR;
    const int32_t size = map(m_map.get(), result.data(), static_cast<int32_t>(result.size()),
                             text.data(), static_cast<int32_t>(text.size()), &error);
    if (U_FAILURE(error))
        return std::string(text);
    result.resize(static_cast<std::size_t>(size));
    return result;
}

}
