// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringListModel>

namespace Tessel {

class ConfigManager;

/// The excluded applications of the configuration, which it saves at each change: one column of
/// bundle identifiers, stored as they are typed.
class ExcludedAppsModel final : public QStringListModel
{
    Q_OBJECT

public:
    /// Borrows the configuration.
    ExcludedAppsModel(ConfigManager &config, QString title, QObject *parent = nullptr);

    /// One that is there already is passed over.
    void add(const QString &bundleIdentifier);
    void remove(int row);

    /// Takes over what others have changed in the configuration.
    void refresh();

    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    void store();

    ConfigManager &m_config;
    QString m_title;
};

}
