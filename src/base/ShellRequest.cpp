// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ShellRequest.h"

#include "base/ChildProcess.h"

using namespace Qt::StringLiterals;

namespace Tessel {

CommandRequest shellRequest(CommandRequest shell, const QString &command)
{
    CommandRequest direct = shell;
    direct.arguments = QStringList { u"-c"_s, command } + shell.arguments;
    // A shell would drop a NUL that it reads; as an argument it is refused.
    if (canBeHandedOver(direct) || command.contains(QChar::Null))
        return direct;
    // Run as a file or by ".", it would have another "$0", and aliases would work differently.
    const QString reader = u"eval \"$(command cat <&3)\" 3<&-"_s;
    shell.arguments = QStringList { u"-c"_s, reader } + shell.arguments;
    shell.furtherInput = command.toUtf8();
    return shell;
}

}
