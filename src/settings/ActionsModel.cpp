// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsModel.h"

#include "base/LocalizationManager.h"
#include "config/ConfigManager.h"
#include "config/IconResolver.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QStringView headerKeys[ActionsModel::columns]
    = { u"Enabled", u"Icon", u"Name", u"Type", u"Template / Command", u"Context (Regex)" };

/// Stores what was typed into a single-line field.
void store(ActionConfig &action, int column, const QString &text)
{
    if (column == ActionsModel::titleColumn)
        action.title = text.trimmed();
    else if (column == ActionsModel::templateColumn)
        action.templateText = text.trimmed();
    else
        action.regex = ActionEditing::regexFrom(text);
}

}

ActionsModel::ActionsModel(ConfigManager &config, const LocalizationManager &localization,
                           const IconResolver &icons, QObject *parent)
    : QAbstractTableModel(parent)
    , m_config(config)
    , m_localization(localization)
    , m_icons(icons)
{
    for (const QStringView key : headerKeys)
        m_headers.append(localization.localizedString(key.toString()));
}

void ActionsModel::relabel()
{
    for (int column = 0; column < columns; ++column)
        m_headers[column] = m_localization.localizedString(headerKeys[column].toString());
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns - 1);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
}

const ActionConfig *ActionsModel::action(int row) const
{
    const bool exists = row >= 0 && row < m_config.customActions.size();
    return exists ? &m_config.customActions.at(row) : nullptr;
}

template <typename Change> void ActionsModel::change(int row, Change &&change)
{
    if (!action(row))
        return;
    change(m_config.customActions[row]);
    Q_EMIT dataChanged(index(row, 0), index(row, columns - 1));
    m_config.save();
}

void ActionsModel::toggle(int row)
{
    change(row, [](ActionConfig &action) { action.isEnabled = !action.isEnabled; });
}

void ActionsModel::setType(int row, ActionType type)
{
    if (const ActionConfig *current = action(row); current && current->type == type)
        return; // which else would lose its template
    change(row, [type](ActionConfig &action) { action = ActionEditing::withType(action, type); });
}

void ActionsModel::setIcon(int row, const QString &iconName)
{
    change(row, [&iconName](ActionConfig &action) { action.iconName = iconName; });
}

void ActionsModel::setTemplate(int row, const QString &text)
{
    change(row, [&text](ActionConfig &action) { action.templateText = text; });
}

int ActionsModel::insert(int row, const ActionConfig &action)
{
    row = std::min(row, rowCount());
    beginInsertRows({}, row, row);
    m_config.customActions.insert(row, action);
    endInsertRows();
    m_config.save();
    return row;
}

int ActionsModel::append()
{
    const QString title = m_localization.localizedString(u"New Action"_s);
    return insert(rowCount(), ActionEditing::newAction(title));
}

void ActionsModel::remove(int row)
{
    if (!action(row))
        return;
    beginRemoveRows({}, row, row);
    const ActionConfig removed = m_config.customActions.takeAt(row);
    endRemoveRows();
    m_undo.append([this, row, removed] { return insert(row, removed); });
    m_config.save();
}

bool ActionsModel::move(int source, int dropRow)
{
    QList<ActionConfig> actions = m_config.customActions;
    if (!ActionEditing::move(actions, source, dropRow))
        return false;
    if (beginMoveRows({}, source, source, {}, dropRow)) { // not where it would stay in place
        m_config.customActions = actions;
        endMoveRows();
    }
    m_config.save();
    return true;
}

void ActionsModel::resetToDefaults()
{
    const AppConfig before = m_config;
    beginResetModel();
    m_config.loadDefaults();
    endResetModel();
    m_undo.append(
        [this, before, defaults = m_config.customActions] { return undoReset(before, defaults); });
}

/// What was added since the reset, actions and excluded applications, stays.
int ActionsModel::undoReset(const AppConfig &before, const QList<ActionConfig> &defaults)
{
    const auto isDefault = [&defaults](const ActionConfig &action) {
        return std::any_of(defaults.begin(), defaults.end(),
                           [&action](const ActionConfig &made) { return made.id == action.id; });
    };
    beginResetModel();
    m_config.customActions.removeIf(isDefault);
    m_config.customActions = before.customActions + m_config.customActions;
    m_config.excludedBundleIds = before.excludedBundleIds + m_config.excludedBundleIds;
    m_config.excludedBundleIds.removeDuplicates();
    endResetModel();
    m_config.save();
    return 0;
}

std::optional<int> ActionsModel::undo()
{
    if (m_undo.isEmpty())
        return {};
    return m_undo.takeLast()();
}

int ActionsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_config.customActions.size());
}

int ActionsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QString ActionsModel::shownText(const ActionConfig &action, int column) const
{
    switch (column) {
    case titleColumn:
        return action.title;
    case typeColumn:
        return infoOf(action.type).rawValue;
    case templateColumn:
        return action.templateText;
    case regexColumn:
        return action.regex.value_or(QString());
    default:
        return {};
    }
}

std::optional<Remark> ActionsModel::remark(const ActionConfig &action, int column) const
{
    std::optional<Remark> remark;
    if (column == templateColumn)
        remark = ActionEditing::templateRemark(action);
    else if (column == regexColumn)
        remark = ActionEditing::regexRemark(action);
    if (remark)
        remark->reason = m_localization.localizedString(remark->reason);
    return remark;
}

std::optional<Remark> ActionsModel::remark(const QModelIndex &field, const QString &text) const
{
    const ActionConfig *current = action(field.row());
    if (!current)
        return {};
    ActionConfig changed = *current;
    store(changed, field.column(), text);
    return remark(changed, field.column());
}

/// A screen reader meets a cell by itself, apart from its row and its header.
QString ActionsModel::spokenText(const QModelIndex &index) const
{
    const ActionConfig &action = m_config.customActions.at(index.row());
    const int column = index.column();
    QString value = shownText(action, column);
    if (column == enabledColumn)
        value = m_localization.localizedString(action.isEnabled ? u"On"_s : u"Off"_s);
    else if (column == iconColumn)
        value = ActionEditing::iconWords(action.iconName);
    if (value.isEmpty())
        value = column == iconColumn ? m_localization.localizedString(u"Custom"_s)
                                     : data(index, placeholderRole).toString();
    const QString cell = m_headers[column] + u": "_s + value;
    return column == titleColumn ? cell : action.title + u", "_s + cell;
}

QVariant ActionsModel::data(const QModelIndex &index, int role) const
{
    const ActionConfig *action = this->action(index.row());
    if (!action)
        return {};
    const int column = index.column();
    const auto remark = [&] { return this->remark(*action, column); };
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shownText(*action, column);
    case Qt::CheckStateRole:
        return column == enabledColumn ? QVariant(action->isEnabled ? Qt::Checked : Qt::Unchecked)
                                       : QVariant();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        if (column == iconColumn) {
            const auto shown = m_icons.check(action->iconName);
            return shown ? QVariant() : m_localization.localizedString(shown.error().reason);
        }
        return remark() ? QVariant(remark()->reason) : QVariant();
    case Qt::AccessibleTextRole:
        return spokenText(index);
    case Qt::DecorationRole: // the name of the icon
        return column == iconColumn ? QVariant(action->iconName) : QVariant();
    case remarkRole:
        return remark() ? QVariant(int(remark()->kind)) : QVariant();
    case placeholderRole:
        if (column == regexColumn)
            return m_localization.localizedString(u"Optional"_s);
        return remark() && action->templateText.isEmpty()
            ? m_localization.localizedString(u"Required"_s)
            : QString();
    default:
        return {};
    }
}

QVariant ActionsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns)
        return {};
    if (role == Qt::TextAlignmentRole) {
        const bool isText
            = section == titleColumn || section == templateColumn || section == regexColumn;
        return int((isText ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter);
    }
    return role == Qt::DisplayRole ? m_headers[section] : QVariant();
}

Qt::ItemFlags ActionsModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
    const int column = index.column();
    if (column == enabledColumn)
        flags |= Qt::ItemIsUserCheckable;
    const ActionConfig *action = this->action(index.row());
    const bool isMenu
        = column == templateColumn && action && infoOf(action->type).editor == TemplateEditor::menu;
    if ((column == titleColumn || column == templateColumn || column == regexColumn) && !isMenu)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool ActionsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    change(index.row(),
           [&](ActionConfig &action) { store(action, index.column(), value.toString()); });
    return true;
}

}
