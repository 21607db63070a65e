// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QToolButton>

namespace Tessel {

/// A button with a template image, tinted like the text of buttons.
class TemplateButton final : public QToolButton
{
    Q_OBJECT

public:
    /// `extent`: side of the image in logical pixels.
    TemplateButton(const QImage &image, int extent, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_image;
    int m_extent;
};

}
