// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/AppConfig.h"

using namespace Tessel;

/// What could be read is read again as it was from what is written.
extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    const auto config = decodeConfig(QByteArray(data, qsizetype(size)));
    if (config) {
        const auto again = decodeConfig(encodeConfig(*config));
        Q_ASSERT(again && *again == *config);
    }
    return 0;
}
