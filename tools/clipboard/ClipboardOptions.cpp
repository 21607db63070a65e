// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "clipboard/ClipboardOptions.h"

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace Tessel {

std::optional<int> exitStatusAfterOptions(const QStringList &arguments, const char *usage)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (argument == u"-help" || argument == u"--help" || argument == u"-h") {
            std::fputs(usage, stdout);
            return EXIT_SUCCESS;
        }
        const QString value = arguments.value(++i);
        if ((argument != u"-pboard" || value != u"general")
            && (argument != u"-Prefer" || value.isEmpty())) {
            std::fputs(usage, stderr);
            return EXIT_FAILURE;
        }
    }
    return {};
}

}
