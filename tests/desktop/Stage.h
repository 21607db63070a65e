// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/BasicStage.h"
#include "desktop/TesselProgram.h"
#include "support/Editors.h"
#include "support/XClipboard.h"

#include <xkbcommon/xkbcommon-keysyms.h>

namespace Tessel {

struct Stage : BasicStage<Desktop::DesktopSession, TesselProgram, Desktop::Editor>
{
    [[nodiscard]] bool open(const QString &text = QStringLiteral("tesserae"),
                            Desktop::EditorKind kind = Desktop::EditorKind::Mousepad)
    {
        return BasicStage::open(text, kind);
    }

    /// In place of an editor: a window that only has this text to copy.
    [[nodiscard]] bool offer(const QString &text)
    {
        return Desktop::launchHostileOwner(session, { QStringLiteral("text"), text });
    }

    /// Runs the first action.
    [[nodiscard]] bool runAction()
    {
        const bool isShown = tessel.summon().has_value();
        user().tap(XKB_KEY_1);
        return isShown && tessel.waitUntilBarGone();
    }
};

}
