// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ClosedStreams.h"
#include "clipboard/ClipboardOptions.h"
#include "lib/support/StandardStreams.h"
#include "platform/HelperPlatform.h"
#include "platform/TextClipboard.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace Tessel;

namespace {

constexpr auto usage
    = "Usage: pbpaste [-pboard general] [-Prefer FORMAT]\n"
      "Writes the clipboard's text to standard output, byte for byte, and nothing when it has\n"
      "none. Formats are accepted for compatibility; the output is always plain text.\n";

}

int main(int argc, char *argv[])
{
    occupyClosedStreams();
    const QCoreApplication app(argc, argv);
    if (const auto status = exitStatusAfterOptions(QCoreApplication::arguments().mid(1), usage))
        return *status;
    const auto desktop = makeHelperPlatform();
    if (!desktop) {
        std::fprintf(stderr, "pbpaste: %s\n", qUtf8Printable(desktop.error().reason));
        return EXIT_FAILURE;
    }
    const QByteArray text = (*desktop)->clipboard().text().value_or(QByteArray());
    const auto size = static_cast<std::size_t>(text.size());
    std::fwrite(text.constData(), 1, size, stdout);
    return finishOutput("pbpaste");
}
