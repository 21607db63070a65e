// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/BaseFolders.h"
#include "base/LocalizationManager.h"
#include "base/TextRules.h"
#include "lib/desktop/DesktopHost.h"
#include "osascript/CommandLine.h"

#include <QCoreApplication>

using namespace Tessel;

int main(int argc, char *argv[])
{
    BaseFolders::dropRelative();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(exactText(argv[i]));
    const QCoreApplication application(argc, argv);
    LocalizationManager::shared().takeInheritedLanguage();
    DesktopHost desktop;
    Osascript::Host host = desktop.host();
    return Osascript::runCommandLine(arguments, host);
}
