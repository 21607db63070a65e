// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandPasteboard.h"

#include "platform/wayland/WaylandSelectionReader.h"

namespace Tessel {

WaylandPasteboard::WaylandPasteboard(WaylandDataControl &dataControl,
                                     WaylandSelectionReader &reader)
    : m_dataControl(dataControl)
    , m_reader(reader)
    , m_source(dataControl)
{
}

qint64 WaylandPasteboard::changeCount() const
{
    return m_dataControl.changeCount();
}

QFuture<std::optional<QString>> WaylandPasteboard::string(std::chrono::milliseconds patience)
{
    return m_reader.read(WaylandDataControl::Selection::clipboard, patience);
}

void WaylandPasteboard::setString(const QString &text)
{
    m_source.setText(text.toUtf8());
}

}
