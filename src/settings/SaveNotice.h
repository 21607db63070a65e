// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace Tessel {

class ConfigManager;
class LocalizationManager;

/// Says that the settings are not saved, and why, for as long as that is so.
class SaveNotice final : public QLabel
{
    Q_OBJECT

public:
    /// Borrows the first two.
    SaveNotice(const ConfigManager &config, const LocalizationManager &texts, QWidget *parent);

    void refresh();

protected:
    void changeEvent(QEvent *event) override;

private:
    void recolor();

    const ConfigManager &m_config;
    const LocalizationManager &m_texts;
};

}
