// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/LargeTypeWindow.h"

#include "base/LocalizationManager.h"
#include "platform/PopupHost.h"
#include "windows/AccessibleWindows.h"
#include "windows/ScreenChanges.h"
#include "windows/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr double share = 0.8; ///< of the screen that the text may take, each way
constexpr QRect withoutScreen(0, 0, 800, 600);
/// More than fits on any screen; what is longer would only cost time to lay out.
constexpr qsizetype maxCharacters = 20'000;

QPointer<LargeTypeWindow> shown;

}

void LargeTypeWindow::show(PopupHost &host, const QString &text, const Theme &theme)
{
    host.locate().then(&host, [&host, text, &theme](const PopupLocation &location) {
        closeShown();
        auto *window
            = new LargeTypeWindow(host, text, location.screen.value_or(withoutScreen), theme);
        shown = window;
        window->setVisible(true);
        announcePopup(*window);
        host.takeKeyboard(window->windowHandle());
    });
}

LargeTypeWindow::LargeTypeWindow(PopupHost &host, const QString &text, const QRect &frame,
                                 const Theme &theme)
    : PopupWindow(host)
    , m_theme(theme)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(localized(u"Tessel Large Type"_s));
    setAccessibleName(text.left(maxCharacters));
    setGeometry(frame);
    onScreenChange(this, [this] { closeWindow(); });
    layOut(text.left(maxCharacters));
}

/// Paragraph by paragraph and line by line, until the box is full.
void LargeTypeWindow::layOut(const QString &text)
{
    const double boxWidth = width() * share;
    const double boxHeight = height() * share;
    const QFont large = sizedExactly(font(), FontSize::largeType, QFont::Bold);
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    for (const QString &paragraph : text.split(u'\n')) {
        auto layout = std::make_unique<QTextLayout>(paragraph, large);
        layout->setTextOption(option);
        layout->beginLayout();
        for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
            line.setLineWidth(boxWidth);
            if (m_textHeight + line.height() > boxHeight) {
                line.setPosition({ 0, m_textHeight }); // below what is painted
                layout->endLayout();
                m_paragraphs.push_back(std::move(layout));
                return;
            }
            line.setPosition({ 0, m_textHeight });
            m_textHeight += line.height();
        }
        layout->endLayout();
        m_paragraphs.push_back(std::move(layout));
    }
}

void LargeTypeWindow::paintEvent(QPaintEvent *)
{
    if (m_isConcealed)
        return;
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.largeType.veil);
    painter.setPen(m_theme.largeType.text);
    const QRectF box(width() * (1 - share) / 2, (height() - m_textHeight) / 2, width() * share,
                     m_textHeight);
    painter.setClipRect(box.adjusted(-FontSize::largeType, 0, FontSize::largeType, 0));
    for (const auto &paragraph : m_paragraphs)
        paragraph->draw(&painter, box.topLeft());
}

/// The press must not reach the window below, nor may its repetitions and its release: the keyboard
/// is kept until the key is up, by a window of which nothing is seen.
void LargeTypeWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat() && !m_key.isDown())
        return; // of a key that was down before
    m_isConcealed = true;
    update();
    host().conceal(windowHandle());
    m_key.press();
    m_key.whenUp([this] { closeWindow(); });
}

void LargeTypeWindow::keyReleaseEvent(QKeyEvent *event)
{
    constexpr int modifiers[]
        = { Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_AltGr };
    const bool isModifier = std::find(std::begin(modifiers), std::end(modifiers), event->key())
        != std::end(modifiers);
    if (m_key.isDown())
        m_key.release();
    else if (isModifier)
        closeWindow();
}

void LargeTypeWindow::mousePressEvent(QMouseEvent *)
{
    m_isPressed = true;
}

/// Of a press that began here: the one that picked the action may end here, too.
void LargeTypeWindow::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_isPressed && rect().contains(event->position().toPoint()))
        closeWindow();
    m_isPressed = false;
}

void LargeTypeWindow::closeShown()
{
    if (shown)
        shown->closeWindow();
}

void LargeTypeWindow::closeWindow()
{
    host().releaseKeyboard(windowHandle());
    if (shown == this)
        shown.clear();
    close();
}

}
