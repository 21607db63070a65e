// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace Tessel {

/// A picture to choose among those beside it; the chosen one glows in the accent colour.
class IconSelectionButton final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit IconSelectionButton(QWidget *parent = nullptr);

    void setPicture(const QPixmap &picture);
    void setSelectedIcon(bool isSelected) { setChecked(isSelected); }
    [[nodiscard]] bool isSelectedIcon() const { return isChecked(); }

    [[nodiscard]] QSize sizeHint() const override { return { 72, 72 }; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_picture;
};

}
