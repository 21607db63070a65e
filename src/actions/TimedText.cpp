// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/TimedText.h"

#include <algorithm>

namespace Tessel {

namespace {

/// How far a piece reaches to both sides. ICU may pass through a piece ten thousand times before it
/// calls back. A text that is no longer is one piece, which ICU searches faster.
constexpr int64_t reach = 512;

}

const UTextFuncs TimedText::functions = { .tableSize = sizeof(UTextFuncs),
                                          .reserved1 = 0,
                                          .reserved2 = 0,
                                          .reserved3 = 0,
                                          .clone = copy,
                                          .nativeLength = size,
                                          .access = access,
                                          .extract = nullptr,
                                          .replace = nullptr,
                                          .copy = nullptr,
                                          .mapOffsetToNative = nullptr,
                                          .mapNativeIndexToUTF16 = nullptr,
                                          .close = nullptr,
                                          .spare1 = nullptr,
                                          .spare2 = nullptr,
                                          .spare3 = nullptr };

TimedText::TimedText(QStringView text, Clock::time_point deadline)
    : m_text(text)
    , m_deadline(deadline)
{
    UErrorCode error = U_ZERO_ERROR;
    refer(&m_handle, this, &error);
}

TimedText::~TimedText()
{
    utext_close(&m_handle);
}

UText *TimedText::refer(UText *handle, const TimedText *text, UErrorCode *error)
{
    UText *result = utext_setup(handle, 0, error);
    if (U_SUCCESS(*error)) {
        result->pFuncs = &functions;
        result->context = text;
        access(result, 0, 1);
    }
    return result;
}

UText *TimedText::copy(UText *target, const UText *source, UBool, UErrorCode *error)
{
    return refer(target, static_cast<const TimedText *>(source->context), error);
}

int64_t TimedText::size(UText *handle)
{
    return static_cast<const TimedText *>(handle->context)->m_text.size();
}

/// As utext.h describes it (UTextAccess).
UBool TimedText::access(UText *handle, int64_t index, UBool isForward)
{
    const auto *text = static_cast<const TimedText *>(handle->context);
    const int64_t end = text->m_text.size();
    const bool hasTimeLeft = text->hasTimeLeft();
    index = std::clamp<int64_t>(index, 0, end);
    const int64_t first = hasTimeLeft ? text->boundaryAt(std::max<int64_t>(index - reach, 0)) : end;
    const int64_t last = hasTimeLeft ? text->boundaryAt(std::min(index + reach, end)) : end;
    handle->chunkContents = text->m_text.utf16() + first;
    handle->chunkNativeStart = first;
    handle->chunkNativeLimit = last;
    handle->chunkLength = static_cast<int32_t>(last - first);
    handle->nativeIndexingLimit = handle->chunkLength;
    handle->chunkOffset = static_cast<int32_t>(std::max(index, first) - first);
    return hasTimeLeft && (isForward != 0 ? index < end : index > 0) ? 1 : 0;
}

/// The index, or the one before where it would part a surrogate pair.
int64_t TimedText::boundaryAt(int64_t index) const
{
    const bool isInPair = index > 0 && index < m_text.size() && m_text[index].isLowSurrogate()
        && m_text[index - 1].isHighSurrogate();
    return isInPair ? index - 1 : index;
}

}
