// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "ExcludedAppsModel.h"

#include "ConfigManager.h"

ExcludedAppsModel::ExcludedAppsModel(ConfigManager &config, QString title, QObject *parent)
    : QAbstractTableModel(parent)
    , m_config(config)
    , m_title(std::move(title))
{
}

void ExcludedAppsModel::add(const QString &bundleIdentifier)
{
    QStringList &identifiers = m_config.excludedBundleIds;
    if (identifiers.contains(bundleIdentifier))
        return;
    beginInsertRows({}, int(identifiers.size()), int(identifiers.size()));
    identifiers.append(bundleIdentifier);
    endInsertRows();
    m_config.save();
}

void ExcludedAppsModel::remove(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    beginRemoveRows({}, row, row);
    m_config.excludedBundleIds.removeAt(row);
    endRemoveRows();
    m_config.save();
}

int ExcludedAppsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_config.excludedBundleIds.size());
}

int ExcludedAppsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant ExcludedAppsModel::data(const QModelIndex &index, int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    return isText ? m_config.excludedBundleIds.value(index.row()) : QVariant();
}

QVariant ExcludedAppsModel::headerData(int, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole && orientation == Qt::Horizontal ? m_title : QVariant();
}

Qt::ItemFlags ExcludedAppsModel::flags(const QModelIndex &index) const
{
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool ExcludedAppsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || index.row() >= rowCount())
        return false;
    if (m_config.excludedBundleIds[index.row()] == value.toString())
        return true;
    m_config.excludedBundleIds[index.row()] = value.toString();
    Q_EMIT dataChanged(index, index);
    m_config.save();
    return true;
}
