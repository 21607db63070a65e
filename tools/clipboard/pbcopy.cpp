// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "ClipboardOptions.h"
#include "Detachment.h"
#include "SelectionOwner.h"
#include "platform/x11/X11Connection.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr auto usage
    = "Usage: pbcopy [-pboard general]\n"
      "Puts standard input on the clipboard as text, byte for byte, NUL and what is not UTF-8\n"
      "included. Returns when it is there; it stays until something else is copied.\n";

}

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    if (const auto status = exitStatusAfterOptions(arguments, usage))
        return *status;
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        std::fputs("pbcopy: standard input cannot be read\n", stderr);
        return EXIT_FAILURE;
    }
    const QByteArray text = input.readAll();

    Detachment background = Detachment::begin();
    QString error;
    const auto connection = X11Connection::open(&error);
    if (!connection)
        background.fail(u"pbcopy: "_s + error);
    SelectionOwner owner(*connection, "CLIPBOARD", text);
    if (!owner.take())
        background.fail(u"pbcopy: The clipboard could not be taken."_s);
    background.succeed();
    owner.serve();
    return EXIT_SUCCESS;
}
