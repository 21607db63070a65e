// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "dialog/DialogParts.h"

#include "base/LocalizationManager.h"
#include "base/TextRules.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qsizetype maxLabel = 700;
constexpr qsizetype maxLabelLines = 14;
constexpr int maxButtonText = 240;

struct Layout
{
    int height = 0;
    int width = 0; ///< of the widest line
};

Layout layOut(const QString &text, const QFont &font, QTextOption::WrapMode mode)
{
    QTextOption option;
    option.setWrapMode(mode);
    qreal height = 0;
    qreal width = 0;
    for (const QString &paragraph : text.split(u'\n')) {
        QTextLayout layout(paragraph, font);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(DialogParts::textWidth);
            height += line.height();
            width = std::max(width, line.naturalTextWidth());
        }
        layout.endLayout();
    }
    return { qCeil(height), qCeil(width) };
}

QPlainTextEdit *readOnlyText(const QString &text)
{
    auto *box = new QPlainTextEdit;
    box->setReadOnly(true);
    box->setUndoRedoEnabled(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    box->setTabChangesFocus(true);
    box->setAccessibleName(localized(u"Message"_s));
    box->setPlainText(text);
    return box;
}

QWidget *scrollingText(const QString &text)
{
    QPlainTextEdit *box = readOnlyText(text);
    box->setMinimumSize(DialogParts::textWidth + 80, 240);
    return box;
}

/// Looks like a label, which breaks lines between words only.
QWidget *textOfWideWords(const QString &text, const QFont &font)
{
    constexpr auto mode = QTextOption::WrapAtWordBoundaryOrAnywhere;
    QPlainTextEdit *box = readOnlyText(text);
    box->setFont(font);
    box->setFrameShape(QFrame::NoFrame);
    box->viewport()->setAutoFillBackground(false);
    box->document()->setDocumentMargin(0);
    box->setFocusPolicy(Qt::ClickFocus);
    box->setMinimumWidth(DialogParts::textWidth);
    box->setFixedHeight(layOut(text, font, mode).height + 1); // or Qt 6.4 scrolls the last line
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return box;
}

}

QWidget *DialogParts::textView(const QString &text, QFont::Weight weight)
{
    const QString shown = displayable(withNormalizedLineEnds(text));
    if (shown.size() > maxLabel || shown.count(u'\n') >= maxLabelLines)
        return scrollingText(shown);
    QFont font = QApplication::font("QLabel");
    font.setWeight(weight);
    if (layOut(shown, font, QTextOption::WordWrap).width > textWidth)
        return textOfWideWords(shown, font);
    auto *label = new QLabel(shown);
    label->setFont(font);
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
        withControlPictures(text).replace(u'\n', u' '), Qt::ElideMiddle, maxButtonText);
    button->setText(QString(shown).replace(u'&', u"&&"_s));
    button->setAccessibleName(text);
    button->setAutoDefault(false);
    return button;
}

QStringList DialogParts::shownNames(const QStringList &buttons)
{
    const QStringList usual { u"Cancel"_s, u"OK"_s };
    const bool areUsual
        = std::all_of(buttons.begin(), buttons.end(),
                      [&usual](const QString &name) { return usual.contains(name); });
    QStringList names;
    for (const QString &name : buttons)
        names += areUsual ? localized(name) : name;
    return names;
}

void DialogParts::setTitle(QWidget *window, const QString &title)
{
    const QString shown = title.isEmpty() ? localized(u"Script"_s) : withControlPictures(title);
    // Qt puts the mark of unsaved changes where the title has "[*]".
    window->setWindowTitle(QString(shown).replace(u"[*]"_s, u"[*][*]"_s));
}

void DialogParts::present(QWidget *window)
{
    window->setWindowFlag(Qt::WindowStaysOnTopHint);
    window->adjustSize();
    const QRect area = window->screen()->availableGeometry();
    window->resize(window->size().boundedTo(area.size() * 0.9));
    if (!window->findChild<QAbstractScrollArea *>())
        window->setFixedSize(window->size()); // tiling compositors leave such a window its size
    window->show();
    window->raise();
    window->activateWindow();
}

}
