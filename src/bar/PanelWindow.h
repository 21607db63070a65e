// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bar/PanelLayout.h"
#include "windows/HeldKey.h"
#include "windows/PopupWindow.h"

#include <QPixmap>
#include <QVariantAnimation>

#include <functional>

namespace Tessel {

class HoverButton;
class PopEffect;
enum class Backdrop;
struct PopupKey;
struct Theme;

/// The bar on the screen: draws its rounded ground and shadow, holds the buttons, fades and pops.
class PanelWindow final : public PopupWindow
{
    Q_OBJECT

public:
    explicit PanelWindow(PopupHost &host);
    ~PanelWindow() override;

    /// The first `count` buttons, made when needed and shown; the others are hidden.
    [[nodiscard]] QList<HoverButton *> buttons(int count);

    /// Arranges the buttons in use by their preferred widths.
    void arrange();

    void setTheme(const Theme &theme, Backdrop backdrop);

    /// Brings the window, after a change of its buttons too, to a place (top-left corner, global
    /// logical pixels): its outline, and where it takes clicks, are those of the bar.
    void moveTo(QPoint place);

    /// Shows the window, fading and popping in where the desktop can blend.
    void fadeIn();
    void fadeOut(); ///< then the window is hidden

    /// Runs it when the key that the bar was used with is up again, at once when none is down: what
    /// a key repeats must not reach the application below, where it would replace the selection.
    void whenKeysAreUp(std::function<void()> run);

    /// Makes the window and paints it once off screen, so that it appears at once later.
    void warmUp();

Q_SIGNALS:
    void keyPressed(const PopupKey &key);
    void vanished(); ///< hidden at the end of a fade

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    class Ground;

    [[nodiscard]] QString offeredActions() const;
    void vanish();

    Ground *m_ground; ///< fills the window; the buttons are its children
    PopEffect *m_pop;
    QList<HoverButton *> m_buttons;
    PanelLayout::Layout m_layout;
    QVariantAnimation m_fade;
    QVariantAnimation m_popping;
    bool m_isCompositing = true;
    HeldKey m_key; ///< that the bar was used with
};

}
