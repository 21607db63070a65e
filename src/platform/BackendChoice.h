// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QList>

#include <memory>

namespace Tessel {

/// A window system that the program or its helpers can work on.
template <typename Product> struct Backend
{
    const char *name; ///< as the environment variable TESSEL_PLATFORM has it
    bool (*isOffered)(); ///< whether the session has it
    Result<std::unique_ptr<Product>> (*connect)();
};

/// Why no backend was found; `wanted` is the one that TESSEL_PLATFORM asks for, or empty.
[[nodiscard]] Failure noBackend(const QString &wanted);

/// The first backend that the session offers, or the one that TESSEL_PLATFORM names.
template <typename Product>
[[nodiscard]] Result<std::unique_ptr<Product>>
connectToDesktop(const QList<Backend<Product>> &backends)
{
    const QString wanted = qEnvironmentVariable("TESSEL_PLATFORM");
    for (const Backend<Product> &backend : backends) {
        const bool isWanted = wanted.isEmpty() || wanted == QLatin1String(backend.name);
        if (isWanted && backend.isOffered())
            return backend.connect();
    }
    return noBackend(wanted);
}

}
