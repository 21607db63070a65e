// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "windows/HeldKey.h"
#include "windows/PopupWindow.h"

#include <QTextLayout>

#include <memory>
#include <vector>

namespace Tessel {

struct Theme;

/// A text in very large letters on a dark veil over the whole main screen, until the next key,
/// change of a modifier, or click. At most one is shown.
class LargeTypeWindow final : public PopupWindow
{
    Q_OBJECT

public:
    static void show(PopupHost &host, const QString &text, const Theme &theme);

    /// Closes the one that is shown, if any.
    static void closeShown();

    void closeWindow();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    LargeTypeWindow(PopupHost &host, const QString &text, const QRect &frame, const Theme &theme);
    void layOut(const QString &text);

    const Theme &m_theme;
    std::vector<std::unique_ptr<QTextLayout>> m_paragraphs; ///< only as many as can be seen
    double m_textHeight = 0;
    HeldKey m_key; ///< that closes the window
    bool m_isPressed = false; ///< a mouse button, in the window
    bool m_isConcealed = false; ///< until the key is up
};

}
