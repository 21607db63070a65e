// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/XUser.h"

namespace Tessel::Desktop {

class DesktopSession;

enum class EditorKind { Mousepad, FeatherPad, Tk, Gvim, XTerm, Sakura };

[[nodiscard]] constexpr bool isTerminal(EditorKind kind)
{
    return kind == EditorKind::XTerm || kind == EditorKind::Sakura;
}

// A real program with a text that can be selected. In a terminal the text is the output of a
// program that notes interrupts and goes on.
class Editor final
{
public:
    Editor(DesktopSession &session, EditorKind kind);
    ~Editor();
    Q_DISABLE_COPY_MOVE(Editor)

    // Returns true when the window is active and has the keyboard focus. A text for a terminal
    // must fit into its 24 lines of 80 columns.
    [[nodiscard]] bool open(const QString &text);
    // Selects the whole text as a user does, whatever the keyboard layout; true once it is PRIMARY.
    [[nodiscard]] bool selectAll();
    // What is in the editor, as selecting all of it shows.
    [[nodiscard]] std::optional<QString> content();
    // How often the program in a terminal was interrupted.
    [[nodiscard]] int interrupts() const;

    [[nodiscard]] WindowInfo window() const { return m_window; }
    [[nodiscard]] bool isOpen() const;
    void close();

private:
    [[nodiscard]] QString writeText(const QString &text);
    void selectLinesByMouse();
    void selectByKeyboard();

    DesktopSession &m_session;
    EditorKind m_kind;
    ChildProcess *m_process = nullptr;
    WindowInfo m_window;
    QString m_text;
    QString m_interruptsFile;
};

// A window of class "HostileOwner" that takes CLIPBOARD on any key with Control and then behaves as
// the mode says; HostileOwner.cpp lists the modes. Null when it does not come up.
[[nodiscard]] ChildProcess *launchHostileOwner(DesktopSession &session, const QStringList &mode);

}
