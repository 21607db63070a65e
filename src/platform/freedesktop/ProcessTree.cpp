// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/ProcessTree.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// More than any shell in a terminal in a shell has; processes may come and go while we look.
constexpr int maxGenerations = 32;

/// 0 when it has none that we can see. Fourth field of proc(5)'s stat, after the name in
/// parentheses, which may hold anything.
qint64 parentOf(qint64 process)
{
    QFile file(u"/proc/%1/stat"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = file.readAll();
    return line.mid(line.lastIndexOf(')') + 1).simplified().split(' ').value(1).toLongLong();
}

bool isAncestor(qint64 ancestor, qint64 process)
{
    for (int i = 0; i < maxGenerations && process > 1; ++i) {
        process = parentOf(process);
        if (process == ancestor)
            return true;
    }
    return false;
}

}

Kinship kinship(qint64 process, qint64 other)
{
    if (process <= 1 || other <= 1)
        return Kinship::none; // everything descends from the first
    if (process == other)
        return Kinship::same;
    return isAncestor(process, other) || isAncestor(other, process) ? Kinship::relative
                                                                    : Kinship::none;
}

}
