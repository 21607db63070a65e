// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace Tessel {

/// Name, version, icon, licence and links, as desktops show them. Deletes itself when closed.
class AboutWindow final : public QWidget
{
    Q_OBJECT

public:
    explicit AboutWindow(const QImage &icon);

    /// Brings the one window to the front, made when there is none.
    static void open(const QImage &icon);
};

}
