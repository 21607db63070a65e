// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

namespace Tessel {

/// Edits a script in several lines inside its row. Return makes a new line; Ctrl or Super with
/// Return ends editing, and so does Escape, a click outside, or another way to lose the focus. What
/// was typed is kept in each case: it can be more than one would want to type again.
class RowTextView final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit RowTextView(const QString &text, QWidget *parent = nullptr);

    /// Announces the end; once only. Afterwards nothing can be typed any more.
    void endEditing();

Q_SIGNALS:
    void editingEnded(const QString &text);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    [[nodiscard]] QString text() const;

    QString m_original;
    bool m_hasEnded = false;
};

}
