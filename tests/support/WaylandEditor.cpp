// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/WaylandEditor.h"

#include "files/Files.h"
#include "support/TerminalProgram.h"

#include <QTest>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr QPoint inFirstLine(12, 10);
constexpr QPoint belowTitle(12, 85); // and below the panel of GNOME
constexpr int retryAfterMs = 500;

struct Program
{
    QString application; // as for WaylandDesktop::waitForFocus()
    QString commandLine;
};

Program programOf(WaylandEditorKind kind)
{
    switch (kind) {
    case WaylandEditorKind::Mousepad:
        return { u"mousepad"_s, u"env GDK_BACKEND=wayland mousepad --disable-server"_s };
    case WaylandEditorKind::FeatherPad:
        return { u"featherpad"_s, u"env QT_QPA_PLATFORM=wayland featherpad --standalone"_s };
    case WaylandEditorKind::FeatherPadOnX:
        return { u"FeatherPad"_s, u"env QT_QPA_PLATFORM=xcb featherpad --standalone"_s };
    case WaylandEditorKind::GnomeTextEditor:
        return { u"org.gnome.TextEditor"_s, u"gnome-text-editor --standalone"_s };
    case WaylandEditorKind::Foot:
        return { u"foot"_s, u"foot --config=/dev/null --override=pad=2x2 /bin/sh"_s };
    case WaylandEditorKind::Sakura:
        return { u"sakura"_s, u"env GDK_BACKEND=wayland sakura -e /bin/sh"_s };
    }
    Q_UNREACHABLE();
}

bool isTerminal(WaylandEditorKind kind)
{
    return kind == WaylandEditorKind::Foot || kind == WaylandEditorKind::Sakura;
}

}

WaylandEditor::WaylandEditor(WaylandDesktop &session, WaylandEditorKind kind)
    : m_session(session)
    , m_kind(kind)
{
}

WaylandEditor::~WaylandEditor()
{
    if (m_process)
        m_process->end();
}

bool WaylandEditor::open(const QString &text)
{
    m_text = text;
    QString file = m_session.homePath() + u"/text.txt"_s;
    if (!writeFile(file, text))
        return false;
    if (isTerminal(m_kind)) {
        m_interruptsFile = m_session.homePath() + u"/interrupts"_s;
        const QString program = terminalProgram(file, m_interruptsFile);
        file += u".script"_s;
        if (!writeFile(file, program))
            return false;
    }
    const auto [application, commandLine] = programOf(m_kind);
    auto command = commandLine.split(u' ') << file;
    m_process = &m_session.launch(command.takeFirst(), command);
    return m_session.waitForFocus(application)
        && (!isTerminal(m_kind)
            || QTest::qWaitFor([this] { return QFile::exists(m_interruptsFile); },
                               int(defaultTimeout.count())));
}

bool WaylandEditor::holds(const QString &text)
{
    // A window can have the keyboard before its text is there: then again.
    const QDeadlineTimer deadline(defaultTimeout);
    const QString expected = isTerminal(m_kind) ? text + u'\n' : text;
    const auto isSelected = [&] { return m_session.primarySelection() == expected; };
    do {
        select();
        if (QTest::qWaitFor(isSelected, retryAfterMs))
            return true;
    } while (!deadline.hasExpired());
    qInfo("selected: %s", qPrintable(m_session.primarySelection()));
    return false;
}

void WaylandEditor::select()
{
    User &user = m_session.user();
    if (isTerminal(m_kind)) {
        user.click(m_kind == WaylandEditorKind::Foot ? inFirstLine : belowTitle, 3);
        return;
    }
    user.tap(KEY_HOME, { KEY_LEFTCTRL });
    user.tap(KEY_END, { KEY_LEFTCTRL, KEY_LEFTSHIFT });
}

int WaylandEditor::interrupts() const
{
    return int(readFile(m_interruptsFile).count('\n'));
}

}
