// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/HoverButton.h"

#include "bar/PanelLayout.h"
#include "bar/TooltipWindow.h"
#include "config/TemplateImage.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr int iconExtent = 18;
constexpr int textSize = 12;
constexpr int textPadding = 6;
constexpr int cornerRadius = 4;
constexpr int shortcutSize = 8;
constexpr QPoint shortcutOffset(3, 2);
constexpr auto flashTime = 150ms;

QFont sized(QFont font, int pixels, QFont::Weight weight)
{
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

}

HoverButton::HoverButton(PopupHost &host, QWidget *parent)
    : QAbstractButton(parent)
    , m_host(host)
{
    setFocusPolicy(Qt::NoFocus);
    setFont(sized(font(), textSize, QFont::Medium));
}

HoverButton::~HoverButton() = default;

void HoverButton::setTemplateImage(const QImage &image)
{
    if (m_template.cacheKey() == image.cacheKey())
        return;
    m_template = image;
    m_tinted = {};
    update();
}

void HoverButton::setTheme(const PanelTheme &theme)
{
    if (m_theme.icon != theme.icon)
        m_tinted = {};
    m_theme = theme;
    update();
}

void HoverButton::setShortcut(std::optional<char> character)
{
    m_shortcut = character ? QString(QLatin1Char(*character)) : QString();
    update();
}

int HoverButton::preferredWidth() const
{
    if (text().isEmpty())
        return PanelLayout::buttonSize;
    return qMax(PanelLayout::buttonSize, fontMetrics().horizontalAdvance(text()) + 2 * textPadding);
}

void HoverButton::flash(std::function<void()> done)
{
    m_isFlashing = true;
    update();
    QTimer::singleShot(flashTime, Qt::PreciseTimer, this, [this, done = std::move(done)] {
        m_isFlashing = false;
        update();
        done();
    });
}

void HoverButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_isFlashing || m_isHovered) {
        QColor ground = m_theme.highlight;
        if (m_isFlashing) {
            ground = palette().color(QPalette::Highlight);
            ground.setAlphaF(0.5F);
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }
    if (text().isEmpty()) {
        drawIcon(painter);
    } else {
        painter.setPen(m_theme.icon);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    }
    if (!m_shortcut.isEmpty()) {
        painter.setFont(sized(font(), shortcutSize, QFont::Normal));
        painter.setPen(m_theme.shortcut);
        painter.drawText(rect().translated(shortcutOffset), Qt::AlignLeft | Qt::AlignTop,
                         m_shortcut);
    }
}

void HoverButton::drawIcon(QPainter &painter)
{
    if (m_template.isNull())
        return;
    const double scale = devicePixelRatioF();
    if (m_tinted.isNull() || !qFuzzyCompare(m_tinted.devicePixelRatio(), scale))
        m_tinted = TemplateImage::tintedPixmap(m_template, m_theme.icon, iconExtent, scale);
    const QSizeF size = m_tinted.deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2),
                       m_tinted);
}

void HoverButton::enterEvent(QEnterEvent *)
{
    m_isHovered = true;
    update();
    if (!showsTooltip || !hoverToolTipText)
        return;
    m_tooltip = std::make_unique<TooltipWindow>(m_host, *hoverToolTipText,
                                                mapToGlobal(QPoint(width() / 2, 0)));
    m_tooltip->show();
}

void HoverButton::leaveEvent(QEvent *)
{
    m_isHovered = false;
    m_tooltip.reset();
    update();
}

void HoverButton::hideEvent(QHideEvent *event)
{
    m_isHovered = false;
    m_tooltip.reset();
    QAbstractButton::hideEvent(event);
}

void HoverButton::mousePressEvent(QMouseEvent *event)
{
    m_tooltip.reset();
    QAbstractButton::mousePressEvent(event);
}

}
