// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/ErrorPanel.h"

#include "base/LocalizationManager.h"
#include "base/TextRules.h"
#include "config/TemplateImage.h"
#include "platform/PopupHost.h"
#include "windows/Theme.h"
#include "windows/WindowCommands.h"
#include "windows/WindowShape.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int panelWidth = 340;
constexpr int panelHeight = 240;
constexpr int messageHeight = 120;
constexpr int textHeight = messageHeight + 40; ///< with those of the title and the buttons
constexpr int distanceBelowPointer = 10;
constexpr qsizetype maxSpokenLength = 1000;

QString lookOfParts(const Theme::ErrorPanel &theme)
{
    return u"QLabel { color: %1; }"
           "QPlainTextEdit { color: %1; background: %2; border: none; border-radius: %9px;"
           " padding: 4px; }"
           "QScrollBar { background: transparent; width: 8px; }"
           "QScrollBar::handle { background: %3; border-radius: 3px; margin: 1px;"
           " min-height: 24px; }"
           "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
           "QPushButton { color: %1; background: %4; border: 1px solid %5; border-radius: %9px;"
           " padding: 5px 10px; }"
           "QPushButton:hover { background: %5; }"
           "QPushButton:focus { border: 2px solid %6; padding: 4px 9px; outline: none; }"
           "QPushButton:default { color: %7; background: %8; }"_s.arg(
               theme.text.name(), theme.field.name(), theme.scrollBar.name(), theme.button.name(),
               theme.buttonBorder.name(), theme.focus.name(), theme.defaultButtonText.name(),
               theme.defaultButton.name(), QString::number(CornerRadius::errorPanelPart));
}

}

ErrorPanel::ErrorPanel(PopupHost &host, const QImage &symbol, const QString &title,
                       const QString &message, const Theme &theme)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_host(host)
    , m_message(message)
    , m_theme(theme)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(title);
    setAccessibleDescription(message.left(maxSpokenLength));
    setFixedSize(roomFor(panelWidth), panelHeight - textHeight + roomFor(textHeight));
    setStyleSheet(lookOfParts(theme.errorPanel));
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
    icon->setPixmap(
        TemplateImage::tintedPixmap(symbol, m_theme.errorPanel.symbol, 20, devicePixelRatioF()));
    icon->setAccessibleName(localized(u"Error"_s));
    auto *text = new QLabel(title);
    text->setTextFormat(Qt::PlainText);
    text->setFont(sized(text->font(), FontSize::title, QFont::Bold));
    layout->addWidget(icon);
    layout->addWidget(text, 1);
    return row;
}

QWidget *ErrorPanel::messageBox(const QString &message)
{
    auto *box = new QPlainTextEdit;
    box->setFont(sized(QFontDatabase::systemFont(QFontDatabase::FixedFont), FontSize::message));
    box->setReadOnly(true);
    box->setUndoRedoEnabled(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    box->setFixedHeight(roomFor(messageHeight));
    box->setTabChangesFocus(true);
    box->setAccessibleName(localized(u"Message"_s));
    box->setPlainText(displayable(message));
    return box;
}

QWidget *ErrorPanel::buttons()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    auto *copy = new QPushButton(localized(u"Copy Log"_s));
    auto *close = new QPushButton(localized(u"Close"_s));
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
    shapeWindow(*this, roundedRectangle(rect(), CornerRadius::errorPanel), m_host.isCompositing());
    show();
    raise();
    activateWindow();
    setFocus();
}

void ErrorPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_theme.errorPanel.border);
    painter.setBrush(m_theme.errorPanel.ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), CornerRadius::errorPanel,
                            CornerRadius::errorPanel);
}

void ErrorPanel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        windowHandle()->startSystemMove();
}

}
