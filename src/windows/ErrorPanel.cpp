// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/ErrorPanel.h"

#include "base/TextRules.h"
#include "config/TemplateImage.h"
#include "platform/PopupHost.h"
#include "windows/WindowCommands.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

namespace Tessel {

namespace {

constexpr QSize panelSize(340, 240);
constexpr int cornerRadius = 12;
constexpr int messageHeight = 120;
constexpr int distanceBelowPointer = 10;
constexpr QColor systemRed(255, 59, 48);

QString lookOfParts(bool isDark)
{
    return QStringLiteral(
               "QLabel { color: %1; }"
               "QPlainTextEdit { color: %1; background: %2; border: none; border-radius: 6px;"
               " padding: 4px; }"
               "QScrollBar { background: transparent; width: 8px; }"
               "QScrollBar::handle { background: #808084; border-radius: 3px; margin: 1px;"
               " min-height: 24px; }"
               "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
               "QPushButton { color: %1; background: %3; border: 1px solid %4; border-radius: 6px;"
               " padding: 5px 10px; }"
               "QPushButton:hover { background: %4; }"
               "QPushButton:focus { border: 2px solid #0a84ff; padding: 4px 9px; }"
               "QPushButton:default { color: white; background: #0a6cff; }")
        .arg(isDark ? u"white" : u"black", isDark ? u"black" : u"white",
             isDark ? u"#454547" : u"#ffffff", isDark ? u"#5c5c5e" : u"#c9c9cc");
}

}

ErrorPanel::ErrorPanel(PopupHost &host, const QImage &symbol, const QString &title,
                       const QString &message, bool isDark)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_host(host)
    , m_message(message)
    , m_isDark(isDark)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(title);
    setFixedSize(panelSize);
    setStyleSheet(lookOfParts(isDark));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(12);
    column->addWidget(header(symbol, title));
    column->addWidget(messageBox(message));
    column->addStretch();
    column->addWidget(buttons());
    addWindowCommands(this);
    for (const int key : { Qt::Key_Return, Qt::Key_Enter })
        connect(new QShortcut(key, this), &QShortcut::activated, this, &ErrorPanel::copyError);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

QWidget *ErrorPanel::header(const QImage &symbol, const QString &title)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto *icon = new QLabel;
    icon->setPixmap(TemplateImage::tintedPixmap(symbol, systemRed, 20, devicePixelRatioF()));
    icon->setAccessibleName(QStringLiteral("Error"));
    auto *text = new QLabel(title);
    text->setTextFormat(Qt::PlainText);
    QFont font = text->font();
    font.setPixelSize(14);
    font.setBold(true);
    text->setFont(font);
    layout->addWidget(icon);
    layout->addWidget(text, 1);
    return row;
}

QWidget *ErrorPanel::messageBox(const QString &message)
{
    auto *box = new QPlainTextEdit;
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(11);
    box->setFont(font);
    box->setReadOnly(true);
    box->setUndoRedoEnabled(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    box->setFixedHeight(messageHeight);
    box->setTabChangesFocus(true);
    box->setAccessibleName(QStringLiteral("Message"));
    box->setPlainText(displayable(message));
    return box;
}

QWidget *ErrorPanel::buttons()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    auto *copy = new QPushButton(QStringLiteral("Copy Log"));
    auto *close = new QPushButton(QStringLiteral("Close"));
    copy->setDefault(true);
    copy->setFocus();
    setFocusProxy(copy);
    connect(copy, &QPushButton::clicked, this, &ErrorPanel::copyError);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    layout->addWidget(copy, 1);
    layout->addWidget(close, 1);
    return row;
}

void ErrorPanel::copyError()
{
    Q_EMIT copyRequested(m_message);
    close();
}

void ErrorPanel::showAt(QPoint pointer)
{
    QPoint corner(pointer.x(), pointer.y() + distanceBelowPointer);
    if (const QScreen *screen = QGuiApplication::screenAt(pointer)) {
        const QRect area = screen->availableGeometry();
        corner.setX(qBound(area.x(), corner.x(), area.x() + area.width() - width()));
        corner.setY(qBound(area.y(), corner.y(), area.y() + area.height() - height()));
    }
    move(corner);
    winId();
    m_host.adopt(windowHandle());
    if (!m_host.isCompositing()) {
        QPainterPath shape;
        shape.addRoundedRect(rect(), cornerRadius, cornerRadius);
        setMask(QRegion(shape.toFillPolygon().toPolygon()));
    }
    show();
    raise();
    activateWindow();
    setFocus();
}

void ErrorPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_isDark ? QColor(255, 255, 255, 26) : QColor(0, 0, 0, 26));
    painter.setBrush(m_isDark ? QColor(51, 51, 51) : QColor(242, 242, 242));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                            cornerRadius);
}

void ErrorPanel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        windowHandle()->startSystemMove();
}

}
