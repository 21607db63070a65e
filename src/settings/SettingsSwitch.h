// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace Tessel {

/// A switch: a knob in a groove, to the right when it is on.
class SettingsSwitch final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit SettingsSwitch(QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

}
