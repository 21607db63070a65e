// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace Tessel {

class PopupHost;
struct Theme;

/// A small floating window that reports what went wrong with a title and a long message. Return
/// copies the message and closes, Escape closes. Deletes itself when closed.
class ErrorPanel final : public QWidget
{
    Q_OBJECT

public:
    ErrorPanel(PopupHost &host, const QImage &symbol, const QString &title, const QString &message,
               const Theme &theme);

    /// Shows the panel with its top edge ten below the pointer, inside the pointer's screen.
    void showAt(QPoint pointer);

Q_SIGNALS:
    void copyRequested(const QString &message);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] QWidget *header(const QImage &symbol, const QString &title);
    [[nodiscard]] QWidget *messageBox(const QString &message);
    [[nodiscard]] QWidget *buttons();
    void copyError();

    PopupHost &m_host;
    QString m_message;
    const Theme &m_theme;
};

}
