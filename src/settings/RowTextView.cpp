// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/RowTextView.h"

#include <QApplication>
#include <QMouseEvent>

namespace Tessel {

namespace {

bool isEnd(const QKeyEvent &event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return event.key() == Qt::Key_Escape
        || (isReturn && event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier));
}

}

RowTextView::RowTextView(const QString &text, QWidget *parent)
    : QPlainTextEdit(text, parent)
    , m_original(text)
{
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    qApp->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &RowTextView::endEditing);
}

void RowTextView::endEditing()
{
    if (m_hasEnded)
        return;
    m_hasEnded = true;
    qApp->removeEventFilter(this);
    setReadOnly(true);
    Q_EMIT editingEnded(text());
}

/// The document's own form, in which no-break spaces are what they are.
QString RowTextView::text() const
{
    if (!document()->isModified())
        return m_original;
    return document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
}

/// Watches the clicks in the window. They are passed on.
bool RowTextView::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (event->type() == QEvent::MouseButtonPress && widget && widget->window() == window()) {
        const QPoint place
            = mapFromGlobal(static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
        if (!rect().contains(place))
            endEditing();
    }
    return QPlainTextEdit::eventFilter(watched, event);
}

bool RowTextView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isEnd(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QPlainTextEdit::event(event);
}

void RowTextView::keyPressEvent(QKeyEvent *event)
{
    if (isEnd(*event))
        endEditing();
    else
        QPlainTextEdit::keyPressEvent(event);
    event->accept(); // the table around it must not act on what is left over
}

void RowTextView::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    // Another window in front, or a menu of this field, is no end.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        endEditing();
}

}
