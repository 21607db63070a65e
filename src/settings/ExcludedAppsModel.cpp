// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ExcludedAppsModel.h"

#include "config/ConfigManager.h"

namespace Tessel {

ExcludedAppsModel::ExcludedAppsModel(ConfigManager &config, QString title, QObject *parent)
    : QAbstractTableModel(parent)
    , m_config(config)
    , m_title(std::move(title))
    , m_identifiers(config.excludedBundleIds)
{
}

void ExcludedAppsModel::add(const QString &bundleIdentifier)
{
    if (m_identifiers.contains(bundleIdentifier))
        return;
    beginInsertRows({}, rowCount(), rowCount());
    m_identifiers.append(bundleIdentifier);
    endInsertRows();
    store();
}

void ExcludedAppsModel::remove(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    beginRemoveRows({}, row, row);
    m_identifiers.removeAt(row);
    endRemoveRows();
    store();
}

void ExcludedAppsModel::store()
{
    m_config.excludedBundleIds = m_identifiers;
    m_config.save();
}

void ExcludedAppsModel::refresh()
{
    if (m_identifiers == m_config.excludedBundleIds)
        return;
    beginResetModel();
    m_identifiers = m_config.excludedBundleIds;
    endResetModel();
}

int ExcludedAppsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_identifiers.size());
}

int ExcludedAppsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant ExcludedAppsModel::data(const QModelIndex &index, int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    return isText ? m_identifiers.value(index.row()) : QVariant();
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
    if (m_identifiers[index.row()] == value.toString())
        return true;
    m_identifiers[index.row()] = value.toString();
    Q_EMIT dataChanged(index, index);
    store();
    return true;
}

}
