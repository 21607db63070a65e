// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace Tessel {

class Workspace;

/// Tells what a check for updates found. Everything in it is shown as plain text. It deletes itself
/// when it is closed.
class UpdateWindow final : public QDialog
{
    Q_OBJECT

public:
    struct Content
    {
        QString title;
        QString text;
        QString notes; ///< left out when empty
        QString link; ///< the button for it is left out unless this is an HTTP or HTTPS URL
    };

    explicit UpdateWindow(Workspace &workspace);

    void setContent(const Content &content);

private:
    Workspace &m_workspace;
    QString m_link;
    QLabel *m_title;
    QLabel *m_text;
    QPlainTextEdit *m_notes;
    QPushButton *m_linkButton;
};

}
