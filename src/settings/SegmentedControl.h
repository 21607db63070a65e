// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QHBoxLayout;
class QImage;

namespace Tessel {

/// Buttons side by side as one control, each of which acts when it is pressed.
class SegmentedControl final : public QWidget
{
    Q_OBJECT

public:
    explicit SegmentedControl(QWidget *parent = nullptr);

    /// A template image with the name that assistive technology gets, and what pressing it does.
    void addSegment(const QImage &image, const QString &accessibleName, const QString &toolTip);

Q_SIGNALS:
    void triggered(int segment);

private:
    QHBoxLayout *m_row;
};

}
