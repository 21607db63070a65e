// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ExcludedAppsModel.h"

#include "config/ConfigManager.h"

using namespace Qt::StringLiterals;

namespace Tessel {

ExcludedAppsModel::ExcludedAppsModel(ConfigManager &config, QString title, QObject *parent)
    : QStringListModel(config.excludedBundleIds, parent)
    , m_config(config)
    , m_title(std::move(title))
{
}

void ExcludedAppsModel::add(const QString &bundleIdentifier)
{
    if (stringList().contains(bundleIdentifier))
        return;
    insertRow(rowCount());
    setData(index(rowCount() - 1), bundleIdentifier, Qt::EditRole);
}

void ExcludedAppsModel::remove(int row)
{
    if (removeRow(row))
        store();
}

void ExcludedAppsModel::store()
{
    if (m_config.excludedBundleIds == stringList())
        return;
    m_config.excludedBundleIds = stringList();
    m_config.save();
}

void ExcludedAppsModel::refresh()
{
    if (m_config.excludedBundleIds != stringList())
        setStringList(m_config.excludedBundleIds);
}

QVariant ExcludedAppsModel::headerData(int, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole && orientation == Qt::Horizontal ? m_title : QVariant();
}

QVariant ExcludedAppsModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::AccessibleTextRole)
        return QString(m_title + u": "_s + data(index, Qt::DisplayRole).toString());
    return QStringListModel::data(index, role);
}

bool ExcludedAppsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const bool isSet = QStringListModel::setData(index, value, role);
    store();
    return isSet;
}

}
