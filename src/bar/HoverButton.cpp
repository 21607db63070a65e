// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/HoverButton.h"

#include "bar/PanelLayout.h"
#include "bar/TooltipWindow.h"
#include "config/TemplateImage.h"
#include "windows/Theme.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr int iconExtent = 18;
constexpr int textPadding = 6;
constexpr QPoint shortcutOffset(3, 2);
constexpr int maxShortcutSize = 11; ///< pixels; larger ones would cover the icon
constexpr auto flashTime = 150ms;

}

HoverButton::HoverButton(PopupHost &host, QWidget *parent)
    : QAbstractButton(parent)
    , m_host(host)
    , m_theme(&themeFor(ThemeMode::light, false))
{
    setFocusPolicy(Qt::NoFocus);
    setFont(sizedExactly(font(), FontSize::barText, QFont::Medium));
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

void HoverButton::setTheme(const Theme &theme)
{
    if (m_theme->bar.icon != theme.bar.icon)
        m_tinted = {};
    m_theme = &theme;
    update();
}

void HoverButton::setShortcut(std::optional<char> character)
{
    m_shortcut = character ? QString(QLatin1Char(*character)) : QString();
    setAccessibleDescription(m_shortcut);
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
        QColor ground = m_theme->bar.highlight;
        if (m_isFlashing) {
            ground = palette().color(QPalette::Highlight);
            ground.setAlphaF(0.5F);
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(rect(), CornerRadius::barButton, CornerRadius::barButton);
    }
    if (text().isEmpty()) {
        drawIcon(painter);
    } else {
        painter.setPen(m_theme->bar.icon);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    }
    if (!m_shortcut.isEmpty()) {
        QFont small = sized(font(), FontSize::barShortcut);
        small.setPixelSize(qMin(small.pixelSize(), maxShortcutSize));
        painter.setFont(small);
        painter.setPen(m_theme->bar.shortcut);
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
        m_tinted = TemplateImage::tintedPixmap(m_template, m_theme->bar.icon, iconExtent, scale);
    TemplateImage::drawCentred(painter, m_tinted, rect());
}

void HoverButton::enterEvent(QEnterEvent *)
{
    m_isHovered = true;
    update();
    if (!showsTooltip || !hoverToolTipText)
        return;
    m_tooltip
        = std::make_unique<TooltipWindow>(m_host, window()->windowHandle(), *hoverToolTipText,
                                          mapToGlobal(QPoint(width() / 2, 0)), m_theme->bubble);
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
