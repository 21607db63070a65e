// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTextLayout>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

namespace Tessel {

class PopupHost;

/// A text in very large letters on a dark veil over the whole main screen, until the next key,
/// change of a modifier, or click. At most one is shown.
class LargeTypeWindow final : public QWidget
{
    Q_OBJECT

public:
    static void show(PopupHost &host, const QString &text);

    /// The window on the screen, null when there is none.
    [[nodiscard]] static LargeTypeWindow *current();

    void closeWindow();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    LargeTypeWindow(PopupHost &host, const QString &text, const QRect &frame);
    void layOut(const QString &text);

    PopupHost &m_host;
    std::vector<std::unique_ptr<QTextLayout>> m_paragraphs; ///< only as many as can be seen
    double m_textHeight = 0;
    QTimer m_leaving; ///< runs once a key was pressed
};

}
