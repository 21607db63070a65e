// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/WindowNames.h"

#include "platform/freedesktop/DesktopEntries.h"
#include "platform/freedesktop/Terminals.h"

namespace Tessel {

FrontApplication applicationNamed(const WindowNames &names, DesktopEntries &entries)
{
    FrontApplication application;
    application.isTerminal = Terminals::isTerminalClass(names.windowClass)
        || Terminals::isTerminalClass(names.instance);
    application.isModal = Terminals::isModalEditorClass(names.windowClass)
        || Terminals::isModalEditorClass(names.instance);
    if (const auto entry
        = entries.find({ names.applicationId, names.windowClass, names.instance })) {
        application.bundleIdentifier = entry->id;
        application.localizedName = entry->name;
        application.isTerminal |= entry->isTerminal;
    } else if (!names.windowClass.isEmpty()) {
        application.bundleIdentifier = names.windowClass;
        application.localizedName = names.windowClass;
    }
    return application;
}

}
