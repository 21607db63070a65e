// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PanelWindow.h"

#include "bar/HoverButton.h"
#include "bar/PopEffect.h"
#include "bar/Shadow.h"
#include "base/KeyCodes.h"
#include "platform/PopupHost.h"
#include "windows/AccessibleWindows.h"
#include "windows/Theme.h"
#include "windows/WindowShape.h"

#include <QEasingCurve>
#include <QKeyEvent>
#include <QPainter>
#include <qdrawutil.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr int cornerRadius = CornerRadius::bar;
constexpr int shadowDepth = 17;
constexpr auto fadeInTime = 200ms;
constexpr auto fadeOutTime = 150ms;
constexpr auto popTime = 250ms;
constexpr double popFrom = 0.8;
/// Where the fade is one display frame after its start: the first frame is to be seen.
constexpr double firstOpacity = 0.15;

QEasingCurve cubicBezier(QPointF first, QPointF second)
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, { 1, 1 });
    return curve;
}

}

/// The window's only child, so that an effect can move all that is drawn. Its picture is stretched
/// from a small tile: painting the shadow over the whole window would take longer than all the
/// rest.
class PanelWindow::Ground final : public QWidget
{
public:
    using QWidget::QWidget;

    void set(const Theme::Bar &theme, Backdrop backdrop)
    {
        if (m_theme == &theme && m_backdrop == backdrop)
            return;
        m_theme = &theme;
        m_backdrop = backdrop;
        m_tile = {};
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const double scale = devicePixelRatioF();
        if (m_tile.isNull() || !qFuzzyCompare(m_tile.devicePixelRatio(), scale))
            m_tile = tile(scale);
        const QMargins fixed(corner, corner, corner, corner);
        QPainter painter(this);
        qDrawBorderPixmap(&painter, rect(), fixed, m_tile, m_tile.rect(), fixed * scale);
    }

private:
    /// What stays as it is on each side: margin, rounded corner, and a bit of the straight edge.
    static constexpr int corner = PanelLayout::windowMargin + cornerRadius + 4;

    [[nodiscard]] QPixmap tile(double scale) const
    {
        const QSize extent(2 * corner + 2, 2 * corner + 2);
        const QRectF bar = QRect(QPoint(), extent).marginsRemoved(PanelLayout::barMargins);
        QPixmap pixmap = QPixmap::fromImage(
            shadowAround(bar, cornerRadius, shadowDepth, m_theme->shadow, extent, scale));
        const bool isTranslucent = m_backdrop != Backdrop::none;
        const QColor &ground = m_backdrop == Backdrop::blurred
            ? m_theme->groundOverBlur
            : m_theme->ground.color(isTranslucent);
        if (!isTranslucent)
            pixmap.fill(ground);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(bar, cornerRadius, cornerRadius);
        painter.setPen(QPen(m_theme->border, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(bar.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius - 0.5,
                                cornerRadius - 0.5);
        return pixmap;
    }

    const Theme::Bar *m_theme = nullptr; ///< set before the first painting
    Backdrop m_backdrop = Backdrop::sharp;
    QPixmap m_tile;
};

PanelWindow::PanelWindow(PopupHost &host)
    : PopupWindow(host)
    , m_ground(new Ground(this))
    , m_pop(new PopEffect(m_ground))
{
    setWindowTitle(u"Tessel"_s);
    m_ground->setGraphicsEffect(m_pop);
    m_pop->setEnabled(false);

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
        m_buttons += new HoverButton(host(), m_ground);
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

void PanelWindow::setTheme(const Theme &theme, Backdrop backdrop)
{
    m_isCompositing = backdrop != Backdrop::none;
    m_ground->set(theme.bar, backdrop);
    for (HoverButton *button : std::as_const(m_buttons))
        button->setTheme(theme);
}

void PanelWindow::warmUp()
{
    makeNative();
    grab();
}

void PanelWindow::moveTo(QPoint place)
{
    const QRectF bar = m_layout.bar;
    shapeWindow(*this, roundedRectangle(bar, cornerRadius), m_isCompositing);
    move(place);
    m_pop->setAnchor({ bar.center().x(), bar.y() + bar.height() });
    host().setActiveRegion(windowHandle(), m_layout.bar, cornerRadius);
}

void PanelWindow::fadeIn()
{
    m_fade.stop();
    m_popping.stop();
    m_key.reset(); // the release of the key that hid the bar went elsewhere
    m_pop->setScale(m_isCompositing ? popFrom : 1);
    m_pop->setOpacity(m_isCompositing ? firstOpacity : 1);
    show();
    announcePopup(*this, offeredActions());
    if (!m_isCompositing)
        return;
    m_fade.setDuration(int(fadeInTime.count()));
    m_fade.setEasingCurve(cubicBezier({ 0, 0 }, { 0.58, 1 }));
    m_fade.setStartValue(firstOpacity);
    m_fade.setEndValue(1.0);
    m_fade.start();
    m_popping.start();
}

/// The titles with their keys, as a sighted user sees them.
QString PanelWindow::offeredActions() const
{
    QStringList actions;
    for (const HoverButton *button : m_buttons) {
        if (!button->isHidden())
            actions += u"%1 %2"_s.arg(button->accessibleName(), button->accessibleDescription());
    }
    return actions.join(u", ");
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
    m_key.press();
    if (event->isAutoRepeat())
        return;
    const auto keyCode = KeyCodes::virtualFromScanCode(event->nativeScanCode());
    Q_EMIT keyPressed({ keyCode.value_or(-1), event->text(),
                        bool(event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) });
}

void PanelWindow::keyReleaseEvent(QKeyEvent *)
{
    m_key.release();
}

void PanelWindow::whenKeysAreUp(std::function<void()> run)
{
    m_key.whenUp(std::move(run));
}

}
