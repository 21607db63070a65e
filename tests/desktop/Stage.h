// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/TesselProgram.h"
#include "files/Files.h"
#include "support/Editors.h"
#include "support/XClipboard.h"

#include <optional>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace Tessel {

/// A desktop with the program up and perhaps an editor on it.
struct Stage
{
    Desktop::DesktopSession session;
    TesselProgram tessel { session };
    std::optional<Desktop::Editor> editor;

    [[nodiscard]] Desktop::XUser &user() const { return session.user(); }

    [[nodiscard]] bool start(const Desktop::DesktopOptions &options = {})
    {
        const bool isUp = session.start(options) && tessel.start();
        if (!isUp)
            qInfo("%s", qPrintable(session.errorString()));
        return isUp;
    }

    /// An editor with this text, all of it selected.
    [[nodiscard]] bool open(const QString &text = QStringLiteral("tesserae"),
                            Desktop::EditorKind kind = Desktop::EditorKind::Mousepad)
    {
        return editor.emplace(session, kind).open(text) && editor->selectAll();
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

    [[nodiscard]] bool logs(const QString &pattern)
    {
        return tessel.process().waitForOutput(QRegularExpression(pattern)).hasMatch();
    }

    /// A file in the home; empty when there is none.
    [[nodiscard]] QByteArray file(const QString &name) const
    {
        return readFile(session.homePath() + u'/' + name);
    }

    [[nodiscard]] QStringList openedUrl() const { return session.urlRecorder().waitForUrls(1); }
};

}
