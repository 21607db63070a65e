// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ActionType.h"

#include "base/Url.h"

#include <algorithm>

namespace Tessel {

namespace {

bool isHierarchicalUrl(QStringView text)
{
    const QStringView scheme = Url::schemeOf(text);
    return !scheme.isEmpty() && text.mid(scheme.size()).startsWith(u"://");
}

bool isNotEmpty(QStringView text)
{
    return !text.isEmpty();
}

bool isBuiltin(QStringView text)
{
    return std::find(std::begin(Builtin::all), std::end(Builtin::all), text)
        != std::end(Builtin::all);
}

// One row per type; what carries it out is a row of ActionManager.cpp.
// clang-format off
constexpr ActionTypeInfo types[] = {
    { ActionType::url, QLatin1StringView("url"), TemplateEditor::line, u"https://",
      isHierarchicalUrl, u"Invalid URL scheme" },
    { ActionType::shortcut, QLatin1StringView("shortcut"), TemplateEditor::line, u"",
      isNotEmpty, u"Shortcut name required" },
    { ActionType::shellScript, QLatin1StringView("shellScript"), TemplateEditor::script, u"",
      isNotEmpty, u"Script required" },
    { ActionType::appleScript, QLatin1StringView("appleScript"), TemplateEditor::script, u"",
      isNotEmpty, u"Script required" },
    { ActionType::builtin, QLatin1StringView("builtin"), TemplateEditor::menu, Builtin::copy,
      isBuiltin, u"Script required" },
};
// clang-format on

}

std::span<const ActionTypeInfo> actionTypes()
{
    return types;
}

const ActionTypeInfo &infoOf(ActionType type)
{
    return *std::find_if(std::begin(types), std::end(types),
                         [=](const ActionTypeInfo &info) { return info.type == type; });
}

std::optional<ActionType> actionTypeFrom(QStringView rawValue)
{
    const auto *found
        = std::find_if(std::begin(types), std::end(types),
                       [=](const ActionTypeInfo &info) { return info.rawValue == rawValue; });
    return found == std::end(types) ? std::nullopt : std::optional(found->type);
}

}
