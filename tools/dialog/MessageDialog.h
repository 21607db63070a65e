// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QLayout;

namespace Tessel {

/// A message with one to three buttons, and a text field if one is asked for. Return is the default
/// button. Escape and closing the window are the cancel button or the only one; with neither the
/// dialog stays.
class MessageDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit MessageDialog(const Osascript::DialogRequest &request);

    void reject() override;

Q_SIGNALS:
    /// Once, with the button's position, or -1 when the time is up, and the text of the field.
    void answered(int button, const QString &text);

private:
    [[nodiscard]] QLayout *messageRow(const Osascript::DialogRequest &request) const;
    [[nodiscard]] QWidget *answerField(const Osascript::DialogRequest &request);
    [[nodiscard]] QLayout *buttonRow(const Osascript::DialogRequest &request);
    void answer(int button);

    bool m_isAnswered = false;
    int m_cancel = -1; ///< position of the button that Escape stands for
    QLineEdit *m_line = nullptr;
    QPlainTextEdit *m_lines = nullptr; ///< in place of it when the text has line ends
};

}
