// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionEditing.h"

#include "actions/Pattern.h"
#include "actions/ShellQuoting.h"
#include "base/Identifier.h"
#include "config/ConfigManager.h"

using namespace Qt::StringLiterals;

namespace Tessel {

ActionConfig ActionEditing::newAction(const QString &title)
{
    ActionConfig action;
    action.id = newIdentifier();
    action.title = title;
    action.iconName = u"star"_s;
    return withType(action, ActionType::url);
}

ActionConfig ActionEditing::withType(ActionConfig action, ActionType type)
{
    const ActionTypeInfo &info = infoOf(type);
    action.type = type;
    if (info.editor == TemplateEditor::menu || action.templateText.isEmpty())
        action.templateText = info.initialTemplate.toString();
    return action;
}

std::optional<QString> ActionEditing::regexFrom(const QString &typed)
{
    const QString trimmed = typed.trimmed();
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed);
}

QString ActionEditing::iconWords(const QString &iconName)
{
    if (iconName.startsWith(u"custom:"))
        return {};
    return QString(iconName).remove(u"phosphor_"_s).replace(u'-', u' ').replace(u'.', u' ');
}

std::optional<Remark> ActionEditing::templateRemark(const ActionConfig &action)
{
    if (!ConfigManager::validateAction(action))
        return Remark { Remark::Kind::wrong, infoOf(action.type).problem.toString() };
    if (!action.isEnabled || action.type != ActionType::shellScript
        || isTextQuoted(action.templateText))
        return {};
    return Remark { Remark::Kind::doubtful,
                    u"The shell would interpret the text here: "
                    "write \"$TESSEL_TEXT\" or '{text}'"_s };
}

std::optional<Remark> ActionEditing::regexRemark(const ActionConfig &action)
{
    if (!action.isEnabled || !action.regex || Pattern::isValid(*action.regex))
        return {};
    return Remark { Remark::Kind::wrong, u"Invalid regular expression"_s };
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
