// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/AppConfig.h"

#include <QByteArray>

#include <optional>

namespace Tessel {

/// What is to be said about what the user typed.
struct Remark
{
    enum class Kind {
        wrong, ///< the action cannot run
        doubtful, ///< it can, but hardly does what is meant
    };
    Kind kind;
    QString reason; ///< a key of the localised texts
};

/// The rules by which the list of actions is edited.
namespace ActionEditing {

/// What "add" makes, with an identifier of its own.
[[nodiscard]] ActionConfig newAction(const QString &title);

/// The action with another type, and a template for it where that type needs one.
[[nodiscard]] ActionConfig withType(ActionConfig action, ActionType type);

/// An expression as it is stored: without white space around it, absent when nothing is left.
[[nodiscard]] std::optional<QString> regexFrom(const QString &typed);

/// The name of an icon as it can be spoken: "phosphor_magnifying-glass" is "magnifying glass".
/// Files of the user's have no words.
[[nodiscard]] QString iconWords(const QString &iconName);

// Nothing is said about an action that is off.
[[nodiscard]] std::optional<Remark> templateRemark(const ActionConfig &action);
[[nodiscard]] std::optional<Remark> regexRemark(const ActionConfig &action);

/// Where a dragged row would go, given where the pointer is in the row under it: before that row,
/// behind it, or nowhere when the pointer is in its middle.
[[nodiscard]] std::optional<qsizetype> dropRow(qsizetype rowUnderPointer, int offset,
                                               int rowHeight);

/// Moves an action to the place before `dropRow` (as counted before the move). False, with nothing
/// changed, when either is out of range.
bool move(QList<ActionConfig> &actions, qsizetype source, qsizetype dropRow);

/// A row number as dragged data, and back; nothing when the data are not a row number.
[[nodiscard]] QByteArray draggedRow(qsizetype row);
[[nodiscard]] std::optional<qsizetype> rowFromDragged(const QByteArray &data);

}

}
