// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/BasicStage.h"
#include "desktop/TesselProcess.h"
#include "support/WaylandEditor.h"
#include "support/WaylandSession.h"

namespace Tessel {

/// The program as a user of a private Wayland desktop has it. Places are pixels. The bar is found
/// around the pointer on the bare desktop, as nothing but the screen tells of it.
class WaylandTessel : public TesselProcess
{
public:
    explicit WaylandTessel(Desktop::WaylandDesktop &session);

    /// Where the visible part of a bar with one button has to be, for the pointer's place.
    [[nodiscard]] static QRect place(QPoint pointer, double scale);

    /// Moves the pointer, presses the trigger key and waits for the bar, as its one button makes
    /// it; true when it is where it has to be. After another capture it waits until the program
    /// listens again.
    [[nodiscard]] bool summon(QPoint pointer = { 1000, 600 }, double scale = 1);
    [[nodiscard]] bool waitForBar(QPoint pointer = { 1000, 600 }, double scale = 1);
    [[nodiscard]] bool waitUntilBarGone();

private:
    /// What is on the bare desktop around the pointer, but the pointer; null: nothing.
    [[nodiscard]] QRect bar();

    Desktop::WaylandDesktop &m_session;
    QPoint m_pointer;
    double m_scale = 1;
};

template <typename DesktopType>
struct BasicWaylandStage : BasicStage<DesktopType, WaylandTessel, Desktop::WaylandEditor>
{
    using Kind = Desktop::WaylandEditorKind;
    using Base = BasicStage<DesktopType, WaylandTessel, Desktop::WaylandEditor>;

    [[nodiscard]] bool open(const QString &text = QStringLiteral("tesserae"),
                            Kind kind = Kind::Mousepad)
    {
        return Base::open(text, kind);
    }
};

using WaylandStage = BasicWaylandStage<Desktop::WaylandSession>;

}
