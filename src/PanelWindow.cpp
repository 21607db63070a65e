// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "PanelWindow.h"

#include "HoverButton.h"
#include "KeyCodes.h"
#include "PopEffect.h"
#include "platform/PopupHost.h"

#include <QEasingCurve>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

using namespace std::chrono_literals;

namespace {

constexpr int cornerRadius = 8;
constexpr auto fadeInTime = 200ms;
constexpr auto fadeOutTime = 150ms;
constexpr auto popTime = 250ms;
constexpr double popFrom = 0.8;
/// Where the fade is one display frame after its start: the first frame is to be seen.
constexpr double firstOpacity = 0.15;
constexpr int evdevOffset = 8; ///< X keycode = Linux input event code + 8

QEasingCurve cubicBezier(QPointF first, QPointF second)
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, { 1, 1 });
    return curve;
}

/// Layers of little ink, each a pixel wider, a little lower than the bar. Most of the ink is in the
/// middle layers, which makes both ends of the falloff soft.
void drawShadow(QPainter &painter, const QRectF &bar)
{
    constexpr int depth = 17;
    constexpr int drop = 2;
    painter.setPen(Qt::NoPen);
    for (int i = depth; i >= 0; --i) {
        const double fromMiddle = 2.0 * i / depth - 0.7;
        painter.setBrush(QColor::fromRgbF(0, 0, 0, float(0.022 * std::exp(-3 * fromMiddle * fromMiddle))));
        const double radius = cornerRadius + i;
        painter.drawRoundedRect(bar.adjusted(-i, -i + drop, i, i + drop), radius, radius);
    }
}

}

/// The window's only child, so that an effect can move all that is drawn.
class PanelWindow::Ground final : public QWidget
{
public:
    using QWidget::QWidget;

    void set(const QRect &bar, const PanelTheme &theme, bool isTranslucent)
    {
        m_bar = bar;
        m_theme = theme;
        m_isTranslucent = isTranslucent;
        m_picture = {};
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (m_picture.isNull() || !qFuzzyCompare(m_picture.devicePixelRatio(), devicePixelRatioF()))
            m_picture = picture();
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    [[nodiscard]] QPixmap picture() const
    {
        QPixmap pixmap(size() * devicePixelRatioF());
        pixmap.setDevicePixelRatio(devicePixelRatioF());
        pixmap.fill(m_isTranslucent ? QColor(Qt::transparent) : m_theme.material);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath shape;
        shape.addRoundedRect(m_bar, cornerRadius, cornerRadius);
        if (m_isTranslucent) {
            QPainterPath outside;
            outside.addRect(rect());
            painter.setClipPath(outside.subtracted(shape));
            drawShadow(painter, m_bar);
            painter.setClipping(false);
            painter.fillPath(shape, m_theme.material);
        }
        painter.setPen(QPen(m_theme.border, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(m_bar).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius - 0.5,
                                cornerRadius - 0.5);
        return pixmap;
    }

    QRect m_bar;
    PanelTheme m_theme;
    bool m_isTranslucent = true;
    QPixmap m_picture;
};

PanelWindow::PanelWindow(PopupHost &host)
    : QWidget(nullptr,
              Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
                  | Qt::NoDropShadowWindowHint)
    , m_host(host)
    , m_ground(new Ground(this))
    , m_pop(new PopEffect(m_ground))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Tessel"));
    m_ground->setGraphicsEffect(m_pop);

    connect(&m_fade, &QVariantAnimation::valueChanged, m_pop,
            [this](const QVariant &value) { m_pop->setOpacity(value.toDouble()); });
    connect(&m_fade, &QVariantAnimation::finished, this, [this] {
        if (m_fade.endValue().toDouble() == 0)
            vanish();
    });
    m_popping.setDuration(int(popTime.count()));
    m_popping.setEasingCurve(cubicBezier({ 0.175, 0.885 }, { 0.32, 1.275 }));
    m_popping.setStartValue(popFrom);
    m_popping.setEndValue(1.0);
    connect(&m_popping, &QVariantAnimation::valueChanged, m_pop,
            [this](const QVariant &value) { m_pop->setScale(value.toDouble()); });
}

PanelWindow::~PanelWindow() = default;

QList<HoverButton *> PanelWindow::buttons(int count)
{
    while (m_buttons.size() < count)
        m_buttons += new HoverButton(m_host, m_ground);
    for (int i = 0; i < m_buttons.size(); ++i)
        m_buttons.at(i)->setVisible(i < count);
    return m_buttons.first(count);
}

void PanelWindow::arrange()
{
    QList<int> widths;
    for (const HoverButton *button : std::as_const(m_buttons)) {
        if (!button->isHidden())
            widths += button->preferredWidth();
    }
    m_layout = PanelLayout::arrange(widths);
    for (int i = 0; i < m_layout.buttons.size(); ++i)
        m_buttons.at(i)->setGeometry(m_layout.buttons.at(i));
    resize(m_layout.window);
    m_ground->resize(m_layout.window);
}

void PanelWindow::setTheme(const PanelTheme &theme)
{
    m_ground->set(m_layout.bar, theme, m_isCompositing);
    for (HoverButton *button : std::as_const(m_buttons))
        button->setTheme(theme);
}

void PanelWindow::create()
{
    if (windowHandle())
        return;
    winId();
    m_host.adopt(windowHandle());
}

void PanelWindow::warmUp()
{
    create();
    grab();
}

void PanelWindow::fadeIn(QPoint place, bool isCompositing)
{
    create();
    m_fade.stop();
    m_popping.stop();
    if (std::exchange(m_isCompositing, isCompositing) != isCompositing || !isCompositing) {
        QPainterPath shape;
        shape.addRoundedRect(m_layout.bar, cornerRadius, cornerRadius);
        if (isCompositing)
            clearMask();
        else
            setMask(QRegion(shape.toFillPolygon().toPolygon()));
    }
    move(place);
    const QRectF bar = m_layout.bar;
    m_pop->setAnchor({ bar.center().x(), bar.y() + bar.height() });
    m_pop->setScale(isCompositing ? popFrom : 1);
    m_pop->setOpacity(isCompositing ? firstOpacity : 1);
    show();
    m_host.setActiveRegion(windowHandle(), m_layout.bar, cornerRadius);
    if (!isCompositing)
        return;
    m_fade.setDuration(int(fadeInTime.count()));
    m_fade.setEasingCurve(cubicBezier({ 0, 0 }, { 0.58, 1 }));
    m_fade.setStartValue(firstOpacity);
    m_fade.setEndValue(1.0);
    m_fade.start();
    m_popping.start();
}

void PanelWindow::fadeOut()
{
    m_fade.stop();
    if (!m_isCompositing) {
        vanish();
        return;
    }
    m_fade.setDuration(int(fadeOutTime.count()));
    m_fade.setEasingCurve(QEasingCurve::Linear);
    m_fade.setStartValue(m_pop->opacity());
    m_fade.setEndValue(0.0);
    m_fade.start();
}

void PanelWindow::vanish()
{
    hide();
    Q_EMIT vanished();
}

void PanelWindow::keyPressEvent(QKeyEvent *event)
{
    const auto keyCode
        = KeyCodes::virtualFromEvdev(static_cast<int>(event->nativeScanCode()) - evdevOffset);
    Q_EMIT keyPressed({ keyCode.value_or(-1), event->text(),
                        bool(event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) });
}
