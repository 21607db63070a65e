// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QImage>

#include <functional>
#include <memory>
#include <optional>

namespace Tessel {

class PopupHost;
class TooltipWindow;
struct Theme;

/// A button of the bar: a tinted icon or a short text, a tiny shortcut letter in its corner, and a
/// tooltip bubble of its own.
class HoverButton final : public QAbstractButton
{
    Q_OBJECT

public:
    HoverButton(PopupHost &host, QWidget *parent);
    ~HoverButton() override;

    QString identifier; ///< of the action
    std::optional<QString> hoverToolTipText; ///< the action's title
    std::optional<QString> effectiveText; ///< what the action works on
    bool showsTooltip = true;

    /// A template image: only its alpha counts. Null shows the button's text instead.
    void setTemplateImage(const QImage &image);
    void setTheme(const Theme &theme);
    void setShortcut(std::optional<char> character); ///< nothing clears it

    /// Width that the text needs, or the standard one.
    [[nodiscard]] int preferredWidth() const;

    /// Lights up for a moment, then calls `done`.
    void flash(std::function<void()> done);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void drawIcon(QPainter &painter);

    PopupHost &m_host;
    const Theme *m_theme;
    QImage m_template;
    QPixmap m_tinted; ///< in device pixels; made anew when the image, tint or scale changes
    QString m_shortcut;
    bool m_isHovered = false;
    bool m_isFlashing = false;
    std::unique_ptr<TooltipWindow> m_tooltip;
};

}
