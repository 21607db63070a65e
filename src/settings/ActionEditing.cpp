// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionEditing.h"

#include "config/ConfigManager.h"

#include <QUuid>

namespace Tessel {

ActionConfig ActionEditing::newAction()
{
    ActionConfig action;
    action.id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    action.title = QStringLiteral("New Action");
    action.iconName = QStringLiteral("star");
    action.type = ActionType::url;
    action.templateText = QStringLiteral("https://");
    return action;
}

ActionConfig ActionEditing::withType(ActionConfig action, ActionType type)
{
    action.type = type;
    if (type == ActionType::builtin)
        action.templateText = QStringLiteral("COPY");
    else if (type == ActionType::url && action.templateText.isEmpty())
        action.templateText = QStringLiteral("https://");
    return action;
}

std::optional<QString> ActionEditing::regexFrom(const QString &typed)
{
    const QString trimmed = typed.trimmed();
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed);
}

bool ActionEditing::hasScript(ActionType type)
{
    return type == ActionType::shellScript || type == ActionType::appleScript;
}

std::optional<QString> ActionEditing::problem(const ActionConfig &action)
{
    if (ConfigManager::validateAction(action))
        return {};
    if (action.type == ActionType::url)
        return QStringLiteral("Invalid URL scheme");
    if (action.type == ActionType::shortcut)
        return QStringLiteral("Shortcut name required");
    return QStringLiteral("Script required");
}

std::optional<qsizetype> ActionEditing::dropRow(qsizetype rowUnderPointer, int offset,
                                                int rowHeight)
{
    if (offset * 3 < rowHeight)
        return rowUnderPointer;
    if (offset * 3 >= rowHeight * 2)
        return rowUnderPointer + 1;
    return {};
}

bool ActionEditing::move(QList<ActionConfig> &actions, qsizetype source, qsizetype dropRow)
{
    if (source < 0 || source >= actions.size() || dropRow < 0 || dropRow > actions.size())
        return false;
    const ActionConfig action = actions.takeAt(source);
    actions.insert(source < dropRow ? dropRow - 1 : dropRow, action);
    return true;
}

QByteArray ActionEditing::draggedRow(qsizetype row)
{
    return QByteArray::number(row);
}

std::optional<qsizetype> ActionEditing::rowFromDragged(const QByteArray &data)
{
    bool isNumber = false;
    const qsizetype row = data.toLongLong(&isNumber);
    return isNumber ? std::optional(row) : std::nullopt;
}

}
