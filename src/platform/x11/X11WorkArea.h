// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

#include <array>

namespace Tessel {

/// Space that a panel reserves at the edges of the whole desktop (EWMH, _NET_WM_STRUT_PARTIAL), in
/// device pixels: its depth from an edge, and the stretch of the edge that it covers, both ends
/// included.
struct X11Strut
{
    int left = 0, right = 0, top = 0, bottom = 0;
    int leftStart = 0, leftEnd = 0;
    int rightStart = 0, rightEnd = 0;
    int topStart = 0, topEnd = 0;
    int bottomStart = 0, bottomEnd = 0;
};

/// The property's items, as any client may have set them.
[[nodiscard]] X11Strut x11Strut(const std::array<quint32, 12> &items);

/// The part of a screen that no panel reserves. Struts that would leave nothing are ignored.
[[nodiscard]] QRect x11WorkArea(const QRect &screen, QSize desktop, const QList<X11Strut> &struts);

}
