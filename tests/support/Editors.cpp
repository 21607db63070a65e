// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/Editors.h"

#include "files/Files.h"
#include "support/DesktopSession.h"
#include "support/TerminalProgram.h"
#include "support/XClipboard.h"

#include <QDeadlineTimer>
#include <QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr int terminalRows = 24;
constexpr int terminalBorder = 2;
constexpr std::chrono::milliseconds retryAfter { 500 };
// What is clicked again passes through the selection of one word, which must not be what a late
// answer to the clicks before is taken for.
constexpr std::chrono::milliseconds clickAgainAfter { 3000 };

struct Program
{
    QString windowClass;
    QStringList commandLine;
};

Program programOf(EditorKind kind, const QString &file)
{
    switch (kind) {
    case EditorKind::Mousepad:
        return { u"Mousepad"_s, { u"mousepad"_s, u"--disable-server"_s, file } };
    case EditorKind::FeatherPad:
        return { u"FeatherPad"_s, { u"featherpad"_s, u"--standalone"_s, file } };
    case EditorKind::Tk:
        return { u"Editor"_s, { u"wish"_s, file, u"-name"_s, u"editor"_s } };
    case EditorKind::Gvim:
        return { u"Gvim"_s, { u"gvim"_s, u"-f"_s, file } };
    case EditorKind::XTerm: {
        const auto options
            = u"xterm -geometry 80x%1 -b %2 -xrm *cutNewline:false -e /bin/sh"_s.arg(terminalRows)
                  .arg(terminalBorder);
        return { u"XTerm"_s, options.split(u' ') << file };
    }
    case EditorKind::Sakura:
        return { u"Sakura"_s, { u"sakura"_s, u"-e"_s, u"/bin/sh"_s, file } };
    }
    Q_UNREACHABLE();
}

QString tkProgram(const QString &textFile)
{
    return u"pack [text .text]\n"
           ".text insert end [read -nonewline [open {%1}]]\n"
           "focus -force .text\n"_s.arg(textFile);
}

}

Editor::Editor(DesktopSession &session, EditorKind kind)
    : m_session(session)
    , m_kind(kind)
{
}

Editor::~Editor()
{
    close();
}

QString Editor::writeText(const QString &text)
{
    static int serial = 0;
    const auto base = u"%1/text-%2"_s.arg(m_session.homePath()).arg(++serial);
    QString textFile = base + u".txt"_s;
    if (!writeFile(textFile, text))
        return {};
    const QString script = base + u".script"_s;
    if (m_kind == EditorKind::Tk)
        return writeFile(script, tkProgram(textFile)) ? script : QString();
    if (!isTerminal(m_kind))
        return textFile;
    m_interruptsFile = base + u".interrupts"_s;
    return writeFile(script, terminalProgram(textFile, m_interruptsFile)) ? script : QString();
}

bool Editor::open(const QString &text)
{
    close();
    m_text = text;
    auto [windowClass, arguments] = programOf(m_kind, writeText(text));
    const auto program = arguments.takeFirst();
    m_process = &m_session.launch(program, arguments);
    const auto isMine = [this, windowClass = windowClass](const WindowInfo &info) {
        return info.className == windowClass && !info.overrideRedirect
            && (info.processId == m_process->processId() || info.processId == 0); // Tk tells none
    };
    const auto window = m_session.user().waitForWindow(isMine);
    m_window = window.value_or(WindowInfo {});
    if (!window || !m_session.user().waitUntilUsable(window->id))
        return false;
    m_window = m_session.user().window(window->id).value_or(m_window);
    return !isTerminal(m_kind)
        || QTest::qWaitFor([this] { return QFile::exists(m_interruptsFile); },
                           static_cast<int>(defaultTimeout.count()));
}

bool Editor::selectAll()
{
    // A window can be usable before its text is there: then select again. Two tries are further
    // apart than the clicks of a double click.
    const QDeadlineTimer deadline(defaultTimeout);
    const QString selected = m_kind == EditorKind::Sakura ? m_text + u'\n' : m_text;
    const bool byMouse = isTerminal(m_kind);
    XClipboard &clipboard = m_session.clipboard();
    do {
        if (byMouse)
            selectLinesByMouse();
        else
            selectByKeyboard();
        if (clipboard.waitForText(selected, XClipboard::Selection::Primary,
                                  byMouse ? clickAgainAfter : retryAfter))
            return true;
    } while (!deadline.hasExpired());
    qWarning("selected: %s",
             qPrintable(clipboard.text(XClipboard::Selection::Primary).value_or(u"nothing"_s)));
    return false;
}

std::optional<QString> Editor::content()
{
    constexpr auto primary = XClipboard::Selection::Primary;
    XClipboard &clipboard = m_session.clipboard();
    const int before = clipboard.changes(primary);
    selectByKeyboard();
    // The selection before is given up first.
    const bool isSelected = clipboard.waitForChange(before, primary, retryAfter)
        && QTest::qWaitFor([&] { return clipboard.owner(primary) != 0; }, 1000);
    return isSelected ? clipboard.text(primary) : std::nullopt;
}

void Editor::selectByKeyboard()
{
    XUser &user = m_session.user();
    if (m_kind == EditorKind::Gvim) { // of one line
        for (const quint32 key : { XKB_KEY_Escape, XKB_KEY_0, XKB_KEY_v, XKB_KEY_End, XKB_KEY_h })
            user.tap(key);
        return;
    }
    user.tap(XKB_KEY_Home, { XKB_KEY_Control_L });
    user.tap(XKB_KEY_End, { XKB_KEY_Control_L, XKB_KEY_Shift_L });
}

// The third of three clicks selects a line and, moved while held, all lines up to the pointer.
void Editor::selectLinesByMouse()
{
    auto &user = m_session.user();
    m_window = user.window(m_window.id).value_or(m_window); // it may have moved since it came
    const int lineHeight = (m_window.geometry.height() - 2 * terminalBorder) / terminalRows;
    const auto lines = static_cast<int>(m_text.count(u'\n')) + 1;
    const QPoint first = m_window.geometry.topLeft()
        + QPoint(terminalBorder + lineHeight / 2, terminalBorder + lineHeight / 2);
    user.click(first, 2);
    user.pressButton();
    user.movePointer(first + QPoint(1, (lines - 1) * lineHeight));
    user.releaseButton();
}

int Editor::interrupts() const
{
    const bool canTell = !m_interruptsFile.isEmpty();
    return canTell ? static_cast<int>(readFile(m_interruptsFile).count('\n')) : 0;
}

bool Editor::isOpen() const
{
    return m_process && m_process->isRunning();
}

void Editor::close()
{
    if (m_process)
        m_process->end();
    m_process = nullptr;
}

ChildProcess *launchHostileOwner(DesktopSession &session, const QStringList &mode)
{
    auto &owner = session.launch(QStringLiteral(TESSEL_HOSTILE_OWNER), mode);
    const auto ready = owner.waitForOutput(QRegularExpression(u"^ready (\\d+)\n"_s));
    const bool usable
        = ready.hasMatch() && session.user().waitUntilUsable(ready.captured(1).toUInt());
    return usable ? &owner : nullptr;
}

}
