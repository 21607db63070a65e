// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/WindowStyle.h"

#include "platform/Appearance.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr double radius = CornerRadius::control;
constexpr int scrollBarWidth = 10;
constexpr int itemPadding = 6;

/// A rectangle whose outline falls on whole pixels.
QRectF outlined(const QRect &rect)
{
    return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
}

QColor mixed(const QColor &one, const QColor &other, double share)
{
    const auto part = [share](int a, int b) { return qRound(a * (1 - share) + b * share); };
    return { part(one.red(), other.red()), part(one.green(), other.green()),
             part(one.blue(), other.blue()) };
}

void drawBox(QPainter *painter, const QRect &rect, const QBrush &fill, const QColor &line)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(line);
    painter->setBrush(fill);
    painter->drawRoundedRect(outlined(rect), radius, radius);
    painter->restore();
}

QColor outline(const QStyleOption *option)
{
    const bool hasFocus = option->state & QStyle::State_HasFocus;
    return option->palette.color(hasFocus ? QPalette::Highlight : QPalette::Mid);
}

void drawButton(QPainter *painter, const QStyleOption *option)
{
    const QPalette &palette = option->palette;
    QColor fill = palette.color(QPalette::Button);
    if (option->state & (QStyle::State_Sunken | QStyle::State_On))
        fill = mixed(fill, palette.color(QPalette::ButtonText), 0.16);
    else if (option->state & QStyle::State_MouseOver)
        fill = mixed(fill, palette.color(QPalette::ButtonText), 0.06);
    drawBox(painter, option->rect, fill, outline(option));
}

/// What Return presses has the accent colour.
void emphasize(QPalette &palette)
{
    palette.setColor(QPalette::Button, palette.color(QPalette::Highlight));
    palette.setColor(QPalette::ButtonText, palette.color(QPalette::HighlightedText));
    palette.setColor(QPalette::Mid, palette.color(QPalette::Highlight));
    palette.setColor(QPalette::Highlight, palette.color(QPalette::WindowText)); // the focus
}

void drawField(QPainter *painter, const QStyleOption *option)
{
    drawBox(painter, option->rect, option->palette.base(), outline(option));
}

void drawCheckBox(QPainter *painter, const QStyleOption *option)
{
    const bool isOn = option->state & QStyle::State_On;
    const QPalette &palette = option->palette;
    drawBox(painter, option->rect, isOn ? palette.highlight() : palette.base(),
            palette.color(isOn ? QPalette::Highlight : QPalette::Mid));
    if (!isOn)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(palette.color(QPalette::HighlightedText), 1.8, Qt::SolidLine, Qt::RoundCap,
                         Qt::RoundJoin));
    const QRectF box(option->rect);
    const auto at = [&box](double x, double y) {
        return QPointF(box.x() + box.width() * x, box.y() + box.height() * y);
    };
    painter->drawPolyline(QPolygonF({ at(0.25, 0.52), at(0.43, 0.70), at(0.76, 0.31) }));
    painter->restore();
}

/// Two small arrows, up and down, as of a button that opens a menu.
void drawArrows(QPainter *painter, const QRect &rect, const QColor &color)
{
    const QPointF middle = QRectF(rect).center();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const int side : { -1, 1 }) {
        const QPointF tip(middle.x(), middle.y() + side * 4.5);
        painter->drawPolyline(
            QPolygonF({ tip + QPointF(-3, -side * 3), tip, tip + QPointF(3, -side * 3) }));
    }
    painter->restore();
}

void drawHeaderSection(QPainter *painter, const QStyleOption *option)
{
    const QColor line = option->palette.color(QPalette::Mid);
    const QRect rect = option->rect;
    painter->fillRect(rect, option->palette.window());
    painter->fillRect(rect.x(), rect.y() + rect.height() - 1, rect.width(), 1, line);
    painter->fillRect(rect.x() + rect.width() - 1, rect.y() + 5, 1, rect.height() - 11, line);
}

void drawScrollBar(QPainter *painter, const QStyleOptionSlider *option, const QRect &handle)
{
    if (option->minimum >= option->maximum)
        return;
    QColor color = option->palette.color(QPalette::Text);
    color.setAlphaF(option->state & (QStyle::State_MouseOver | QStyle::State_Sunken) ? 0.5F
                                                                                     : 0.28F);
    const QRectF bar = QRectF(handle).adjusted(2, 2, -2, -2);
    const double round = std::min(bar.width(), bar.height()) / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawRoundedRect(bar, round, round);
    painter->restore();
}

}

QPalette windowPalette(const Theme &theme)
{
    const Theme::Window &colors = theme.window;
    QPalette palette(colors.button, colors.ground);
    for (const auto role :
         { QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText })
        palette.setColor(role, colors.text);
    palette.setColor(QPalette::Base, colors.field);
    palette.setColor(QPalette::AlternateBase, colors.alternateRow);
    palette.setColor(QPalette::ToolTipBase, colors.button);
    palette.setColor(QPalette::PlaceholderText, colors.secondaryText);
    palette.setColor(QPalette::Mid, colors.line);
    palette.setColor(QPalette::Shadow, colors.shadow);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, colors.accentText);
    palette.setColor(QPalette::Link, colors.link);
    palette.setColor(QPalette::LinkVisited, colors.visitedLink);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, colors.disabledText);
    return palette;
}

WindowStyle::WindowStyle()
    : QProxyStyle(u"fusion"_s)
{
}

void WindowStyle::apply(Appearance &appearance)
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
        return;
    const bool isStyled = !qEnvironmentVariableIsSet("QT_STYLE_OVERRIDE");
    if (isStyled)
        QApplication::setStyle(new WindowStyle);
    const auto update = [&appearance, isStyled] {
        QFont font = QApplication::font();
        font.setPointSizeF(appearance.fontSize());
        QApplication::setFont(font);
        if (!isStyled)
            return;
        QApplication::setPalette(windowPalette(themeFor(ThemeMode::system, appearance.isDark())));
    };
    update();
    connect(&appearance, &Appearance::changed, qApp, update);
}

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
    case PE_PanelButtonTool:
        return drawButton(painter, option);
    case PE_PanelLineEdit:
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
            frame && frame->lineWidth > 0)
            return drawField(painter, option);
        return painter->fillRect(option->rect, option->palette.base());
    case PE_FrameLineEdit:
    case PE_PanelScrollAreaCorner:
        return;
    case PE_Frame:
        // An empty list shows its focus here only.
        return drawBox(painter, option->rect, Qt::NoBrush, outline(option));
    case PE_IndicatorCheckBox:
        return drawCheckBox(painter, option);
    case PE_FrameFocusRect: {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(option->palette.color(QPalette::Highlight), 2));
        painter->drawRoundedRect(outlined(option->rect.adjusted(1, 1, -1, -1)), radius, radius);
        return painter->restore();
    }
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void WindowStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const
{
    if (element == CE_HeaderSection || element == CE_HeaderEmptyArea)
        return drawHeaderSection(painter, option);
    if (element == CE_PushButton) {
        // The focus is in the button's own outline.
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
            QStyleOptionButton label = *button;
            if (button->features & QStyleOptionButton::DefaultButton)
                emphasize(label.palette);
            drawPrimitive(PE_PanelButtonCommand, &label, painter, widget);
            label.rect = subElementRect(SE_PushButtonContents, button, widget);
            return QProxyStyle::drawControl(CE_PushButtonLabel, &label, painter, widget);
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void WindowStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                     QPainter *painter, const QWidget *widget) const
{
    if (control == CC_ComboBox) {
        drawButton(painter, option);
        const QRect arrows = proxy()->subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
        return drawArrows(painter, arrows, option->palette.color(QPalette::PlaceholderText));
    }
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && slider) {
        return drawScrollBar(
            painter, slider,
            proxy()->subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget));
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QSize WindowStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                    const QSize &size, const QWidget *widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_ItemViewItem)
        result.rheight() += itemPadding;
    return result;
}

int WindowStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                             const QWidget *widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return scrollBarWidth;
    case PM_ButtonMargin:
        return 14;
    case PM_HeaderMargin:
    case PM_FocusFrameHMargin:
        return 5;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int WindowStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                           QStyleHintReturn *returnData) const
{
    // A list that drops down instead of a menu over the button would not show which entry is
    // current.
    if (hint == SH_ComboBox_Popup)
        return 1;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

QRect WindowStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                  SubControl subControl, const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !slider)
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    // Without the arrows at the ends, the slider has the whole length.
    const bool isHorizontal = slider->orientation == Qt::Horizontal;
    const int length = isHorizontal ? slider->rect.width() : slider->rect.height();
    const qint64 range = qint64 { slider->maximum } - slider->minimum;
    const int handle = range <= 0
        ? length
        : std::clamp(int(qint64 { length } * slider->pageStep / (range + slider->pageStep)),
                     std::min(24, length), length);
    const int start
        = sliderPositionFromValue(slider->minimum, slider->maximum, slider->sliderPosition,
                                  length - handle, slider->upsideDown);
    const auto part = [&](int from, int size) {
        const QRect rect = isHorizontal ? QRect(from, 0, size, slider->rect.height())
                                        : QRect(0, from, slider->rect.width(), size);
        return visualRect(slider->direction, slider->rect, rect);
    };
    switch (subControl) {
    case SC_ScrollBarSlider:
        return part(start, handle);
    case SC_ScrollBarGroove:
        return part(0, length);
    case SC_ScrollBarSubPage:
        return part(0, start);
    case SC_ScrollBarAddPage:
        return part(start + handle, length - start - handle);
    default:
        return {};
    }
}

}
