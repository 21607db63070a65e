// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/TitleBar.h"

#include "base/LocalizationManager.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int barHeight = 36; ///< logical pixels, as what follows
constexpr int buttonSize = 24;
constexpr int grip = 4; ///< of an edge

bool wantsFrame(const QWidget &widget)
{
    const bool isFramed = widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog;
    return widget.isWindow() && isFramed && widget.layout()
        && !widget.windowFlags().testFlag(Qt::FramelessWindowHint);
}

bool canGrow(const QWidget &window)
{
    return window.minimumSize() != window.maximumSize() && window.layout()
        && window.layout()->sizeConstraint() != QLayout::SetFixedSize;
}

Qt::Edges edgesAt(const QWidget &window, QPoint point)
{
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, point.x() < grip);
    edges.setFlag(Qt::RightEdge, point.x() >= window.width() - grip);
    edges.setFlag(Qt::TopEdge, point.y() < grip);
    edges.setFlag(Qt::BottomEdge, point.y() >= window.height() - grip);
    return edges;
}

class Framer final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (!object->isWidgetType())
            return false;
        auto &widget = static_cast<QWidget &>(*object);
        if (event->type() == QEvent::Polish && wantsFrame(widget))
            frame(widget);
        if (event->type() == QEvent::MouseButtonPress)
            return resize(widget, static_cast<const QMouseEvent &>(*event));
        return false;
    }

private:
    static void frame(QWidget &window)
    {
        window.layout()->setMenuBar(new TitleBar(window));
        if (!canGrow(window) && window.minimumHeight() > 0)
            window.setFixedHeight(window.height() + barHeight);
    }

    /// Whether the press is one on an edge.
    static bool resize(const QWidget &widget, const QMouseEvent &press)
    {
        const QWidget &window = *widget.window();
        if (press.button() != Qt::LeftButton || !wantsFrame(window) || !canGrow(window))
            return false;
        const Qt::Edges edges = edgesAt(window, widget.mapTo(&window, press.position().toPoint()));
        return edges && window.windowHandle()->startSystemResize(edges);
    }
};

}

void TitleBar::giveToWindows()
{
    qApp->installEventFilter(new Framer(qApp));
}

TitleBar::TitleBar(QWidget &window)
    : QWidget(&window)
{
    setFixedHeight(barHeight);
    auto *title = new QLabel(window.windowTitle());
    title->setFont(sized(font(), FontSize::text, QFont::Bold));
    title->setAlignment(Qt::AlignCenter);
    connect(&window, &QWidget::windowTitleChanged, title, &QLabel::setText);
    auto *close = new QToolButton;
    close->setText(u"✕"_s);
    close->setAccessibleName(localized(u"Close"_s));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    close->setFixedSize(buttonSize, buttonSize);
    connect(close, &QToolButton::clicked, &window, &QWidget::close);
    auto *row = new QHBoxLayout(this);
    constexpr int margin = (barHeight - buttonSize) / 2;
    row->setContentsMargins(margin + buttonSize, 0, margin, 0); // so that the title is centred
    row->addWidget(title, 1);
    row->addWidget(close);
}

void TitleBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        window()->windowHandle()->startSystemMove();
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent *)
{
    if (canGrow(*window()))
        window()->setWindowState(window()->windowState() ^ Qt::WindowMaximized);
}

void TitleBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
}

}
