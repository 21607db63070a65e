// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/WaylandDesktop.h"

namespace Tessel::Desktop {

enum class WaylandEditorKind { Mousepad, FeatherPad, FeatherPadOnX, GnomeTextEditor, Foot, Sakura };

// A real program on a Wayland desktop with a line of text that can be selected, as Editor is one
// on X11.
class WaylandEditor final
{
public:
    WaylandEditor(WaylandDesktop &session, WaylandEditorKind kind);
    ~WaylandEditor();
    Q_DISABLE_COPY_MOVE(WaylandEditor)

    // True when the window has the keyboard.
    [[nodiscard]] bool open(const QString &text);
    // By the keyboard, in a terminal by a triple click; true once it is the primary selection.
    [[nodiscard]] bool selectAll() { return holds(m_text); }
    // Whether selecting all of it comes to give this text.
    [[nodiscard]] bool holds(const QString &text);
    // How often the program in the terminal was interrupted.
    [[nodiscard]] int interrupts() const;

    [[nodiscard]] bool isOpen() const { return m_process && m_process->isRunning(); }

private:
    void select();

    WaylandDesktop &m_session;
    WaylandEditorKind m_kind;
    ChildProcess *m_process = nullptr;
    QString m_text;
    QString m_interruptsFile;
};

}
