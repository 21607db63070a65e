// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/Appcast.h"
#include "update-check/CheckResult.h"
#include "update-check/Version.h"

using namespace Tessel;

/// A release has a version that can be compared, and fits on the line that tells of it.
extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    const auto release = parseAppcast(QByteArray(data, qsizetype(size)));
    if (release) {
        Q_ASSERT(isVersion(release->version));
        Q_ASSERT(std::is_eq(compareVersions(release->version, release->version)));
        const QByteArray line = toJson(compareRelease(*release, u"1.2", u"1.0-beta"));
        Q_ASSERT(line.indexOf('\n') == line.size() - 1);
    }
    return 0;
}
