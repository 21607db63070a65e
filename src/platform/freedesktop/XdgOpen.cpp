// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/XdgOpen.h"

#include "Log.h"

#include <QProcess>

using namespace Qt::StringLiterals;

void xdgOpen(const QString &url)
{
    QProcess process;
    process.setProgram(QStringLiteral("xdg-open"));
    process.setArguments({ url });
    process.setStandardInputFile(QProcess::nullDevice());
    if (!process.startDetached())
        Log::print(u"ERROR: xdg-open could not be started: "_s + process.errorString());
}
