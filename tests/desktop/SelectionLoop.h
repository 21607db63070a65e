// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/WaylandTessel.h"

#include <QTest>

#include <linux/input-event-codes.h>

/// The main job from the selection back to it, on any Wayland desktop.
namespace Tessel::SelectionLoop {

struct Way
{
    QPoint pointer;
    double scale; ///< of the screen that it is on
    bool byMouse;
};

/// Opens the selection of an editor, or of a terminal, by the bar's first action.
template <typename Stage> void run(Stage &stage, Desktop::WaylandEditorKind kind, const Way &way)
{
    using namespace Qt::StringLiterals;
    using Kind = Desktop::WaylandEditorKind;
    const bool isTerminal = kind == Kind::Foot || kind == Kind::Sakura;
    QVERIFY(stage.open(u"tiles & grout"_s, kind));
    QVERIFY(stage.tessel.summon(way.pointer, way.scale));
    if (way.byMouse)
        stage.user().click(WaylandTessel::place(way.pointer, way.scale).center());
    else
        stage.user().tap(KEY_1);
    // With three clicks a terminal marks the end of the line as well.
    const QString encoded = isTerminal ? u"tiles%20&%20grout%0A"_s : u"tiles%20&%20grout"_s;
    QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?"_s + encoded });
    stage.user().movePointer(way.pointer);
    QVERIFY(stage.tessel.waitUntilBarGone());
    // The application has the keyboard, and what is typed replaces the selection.
    if (isTerminal) {
        QCOMPARE(stage.editor->interrupts(), 0);
        stage.user().tap(KEY_C, { KEY_LEFTCTRL });
        QTRY_COMPARE(stage.editor->interrupts(), 1);
    } else {
        stage.user().tap(KEY_1);
        QVERIFY(stage.editor->holds(u"1"_s));
    }
}

}
