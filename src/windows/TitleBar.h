// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace Tessel {

/// On top of a window that the desktop gives no frame: its title, by which it can be moved, and a
/// button that closes it.
class TitleBar final : public QWidget
{
    Q_OBJECT

public:
    /// From now on, windows of the program that would have a frame get one of these, and can be
    /// resized at their edges.
    static void giveToWindows();

    explicit TitleBar(QWidget &window);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

}
