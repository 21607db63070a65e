// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ClosedStreams.h"
#include "clipboard/ClipboardOptions.h"
#include "lib/support/Detachment.h"
#include "lib/support/StandardStreams.h"
#include "platform/HelperPlatform.h"
#include "platform/TextClipboard.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr auto usage
    = "Usage: pbcopy [-pboard general]\n"
      "Puts standard input on the clipboard as text, byte for byte, NUL and what is not UTF-8\n"
      "included. Returns when it is there; it stays until something else is copied.\n"
      "More than 64 MiB are refused.\n";

}

int main(int argc, char *argv[])
{
    occupyClosedStreams();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    if (const auto status = exitStatusAfterOptions(arguments, usage))
        return *status;
    QFile input;
    const auto text = input.open(stdin, QIODevice::ReadOnly)
        ? readInput(input)
        : Result<QByteArray>(Failure { input.errorString() });
    if (!text) {
        std::fprintf(stderr, "pbcopy: standard input: %s\n", qUtf8Printable(text.error().reason));
        return EXIT_FAILURE;
    }

    Detachment background = Detachment::begin();
    const QCoreApplication app(argc, argv);
    const auto desktop = makeHelperPlatform();
    if (!desktop)
        background.fail(u"pbcopy: "_s + desktop.error().reason);
    TextClipboard &clipboard = (*desktop)->clipboard();
    if (const auto taken = clipboard.take(*text); !taken)
        background.fail(u"pbcopy: "_s + taken.error().reason);
    background.succeed();
    clipboard.serve();
    return EXIT_SUCCESS;
}
