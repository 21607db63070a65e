// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>
#include <QStringView>

#include <optional>
#include <span>

namespace Tessel {

/// What an action does with the text.
enum class ActionType { url, shortcut, shellScript, appleScript, builtin };

/// The templates of builtin actions.
namespace Builtin {

inline constexpr QStringView copy = u"COPY";
inline constexpr QStringView count = u"COUNT";
inline constexpr QStringView largeType = u"LARGE_TYPE";
inline constexpr QStringView all[] = { copy, count, largeType };

}

/// How the template of an action is edited: as one line, in several lines, or by choosing one of
/// the builtins.
enum class TemplateEditor { line, script, menu };

/// What there is to know about a type, but for how it is carried out (ActionManager).
struct ActionTypeInfo
{
    ActionType type;
    QLatin1StringView rawValue; ///< in the file; the settings show it, too
    TemplateEditor editor;
    QStringView initialTemplate; ///< replaces an empty one, and any where there is a menu
    bool (*isRunnable)(QStringView templateText);
    QStringView problem; ///< of a template that is not runnable: a key of the localised texts
};

/// All types, in the order in which they are offered.
[[nodiscard]] std::span<const ActionTypeInfo> actionTypes();

[[nodiscard]] const ActionTypeInfo &infoOf(ActionType type);
[[nodiscard]] std::optional<ActionType> actionTypeFrom(QStringView rawValue);

}
