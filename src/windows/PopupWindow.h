// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace Tessel {

class PopupHost;

/// A window that the popup host puts above all others, without the focus. Transparent where nothing
/// is painted.
class PopupWindow : public QWidget
{
    Q_OBJECT

public:
    ~PopupWindow() override;

    void setVisible(bool isVisible) override;

    /// Makes the native window: needed before anything that concerns its windowHandle().
    void makeNative();

protected:
    /// `flags`: beside those of the host.
    explicit PopupWindow(PopupHost &host, Qt::WindowFlags flags = {});

    [[nodiscard]] PopupHost &host() const { return m_host; }

private:
    PopupHost &m_host;
};

}
