// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QTabBar>

namespace Tessel {

/// Tabs as buttons of a tool bar: an icon with its label below.
class ToolbarTabBar final : public QTabBar
{
    Q_OBJECT

public:
    explicit ToolbarTabBar(QWidget *parent = nullptr);

    /// The label is set by setTabText().
    void addTab(const QImage &templateImage);

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    void drawTab(QPainter &painter, int index) const;

    QList<QImage> m_images;
};

}
