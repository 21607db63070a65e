// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "DialogParts.h"

#include "TextRules.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLabel = 700;
constexpr qsizetype mostLabelLines = 14;
constexpr int textWidth = 380;
constexpr int widestButtonText = 240;

QWidget *scrollingText(const QString &text)
{
    auto *box = new QPlainTextEdit;
    box->setReadOnly(true);
    box->setUndoRedoEnabled(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    box->setTabChangesFocus(true);
    box->setAccessibleName(QStringLiteral("Message"));
    box->setMinimumSize(textWidth + 80, 240);
    box->setPlainText(text);
    return box;
}

}

QWidget *DialogParts::textView(const QString &text)
{
    const QString shown = displayable(withNormalizedLineEnds(text));
    if (shown.size() > longestLabel || shown.count(u'\n') >= mostLabelLines)
        return scrollingText(shown);
    auto *label = new QLabel(shown);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setMinimumWidth(textWidth);
    return label;
}

QPushButton *DialogParts::button(const QString &text)
{
    auto *button = new QPushButton;
    const QString shown = button->fontMetrics().elidedText(
        withControlPictures(text).replace(u'\n', u' '), Qt::ElideMiddle, widestButtonText);
    button->setText(QString(shown).replace(u'&', u"&&"_s));
    button->setAccessibleName(text);
    button->setAutoDefault(false);
    return button;
}

void DialogParts::setTitle(QWidget *window, const QString &title)
{
    const QString shown = title.isEmpty() ? u"Script"_s : withControlPictures(title);
    // Qt puts the mark of unsaved changes where the title has "[*]".
    window->setWindowTitle(QString(shown).replace(u"[*]"_s, u"[*][*]"_s));
}

void DialogParts::present(QWidget *window)
{
    window->setWindowFlag(Qt::WindowStaysOnTopHint);
    window->adjustSize();
    const QRect area = window->screen()->availableGeometry();
    window->resize(window->size().boundedTo(area.size() * 0.9));
    window->show();
    window->raise();
    window->activateWindow();
}
