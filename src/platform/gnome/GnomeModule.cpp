// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeModule.h"

#include "platform/gnome/ShellToken.h"

#include <QCoreApplication>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// Null when there is none of this version.
const GnomeModule *loaded()
{
    QLibrary library(QCoreApplication::applicationDirPath() + u"/tessel-gnome.so"_s);
    const auto entry
        = reinterpret_cast<decltype(&tesselGnomeModule)>(library.resolve("tesselGnomeModule"));
    const GnomeModule *module = entry ? entry() : nullptr;
    return module && qstrcmp(module->version, TESSEL_VERSION) == 0 ? module : nullptr;
}

const GnomeModule *theModule()
{
    static const GnomeModule *module = loaded();
    return module;
}

}

/// Programs that ask before they have an application object only want to show windows.
bool GnomeModule::isOffered()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && !ShellToken::published().isEmpty()
        && QCoreApplication::instance() && theModule() && theModule()->answers();
}

Result<std::unique_ptr<HelperPlatform>> GnomeModule::makeHelperPlatform()
{
    return theModule()->connect();
}

Result<std::unique_ptr<SyntheticKeyboard>> GnomeModule::makeSyntheticKeyboard()
{
    return theModule()->connectKeyboard();
}

}
