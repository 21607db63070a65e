// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/DefaultActions.h"

#include "base/Identifier.h"

#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr auto uppercaseCommand
    = u"pbpaste | tr '[:lower:]' '[:upper:]' | pbcopy && "
      u"osascript -e 'tell application \"System Events\" to keystroke \"v\" using command down'";

constexpr auto notesScript = uR"(set t to the clipboard
set AppleScript's text item delimiters to {linefeed, return}
set i to text items of t
set AppleScript's text item delimiters to "<br>"
set b to i as string
tell application "Notes" to make new note with properties {body: "<html><body>" & b & "</body></html>"})";

ActionConfig action(QStringView id, QStringView title, QStringView iconName, ActionType type,
                    QStringView templateText)
{
    ActionConfig config;
    config.id = id.toString();
    config.title = title.toString();
    config.iconName = iconName.toString();
    config.type = type;
    config.templateText = templateText.toString();
    return config;
}

constexpr std::pair<std::string_view, std::string_view> renames[] = {
    { "magnifyingglass", "phosphor_magnifying-glass" },
    { "doc.on.doc", "phosphor_copy" },
    { "number", "phosphor_hash" },
    { "text.magnifyingglass", "phosphor_text-aa" },
    { "textformat.size", "phosphor_text-a-underline" },
    { "calendar.badge.plus", "phosphor_calendar-plus" },
    { "square.and.pencil", "phosphor_note-pencil" },
    { "character.book.closed", "icon_translate" },
    { "bubble.left.and.bubble.right", "icon_chatgpt" },
    { "star", "phosphor_star" },
    { "heart", "phosphor_heart" },
    { "bookmark", "phosphor_bookmark" },
    { "flag", "phosphor_flag" },
    { "bell", "phosphor_bell" },
    { "tag", "phosphor_tag" },
    { "bolt", "phosphor_lightning" },
    { "camera", "phosphor_camera" },
    { "gear", "phosphor_gear" },
    { "doc", "phosphor_file" },
    { "doc.text", "phosphor_file-text" },
    { "folder", "phosphor_folder" },
    { "trash", "phosphor_trash" },
    { "pencil", "phosphor_pencil" },
    { "scissors", "phosphor_scissors" },
    { "paperclip", "phosphor_paperclip" },
    { "link", "phosphor_link" },
    { "envelope", "phosphor_envelope" },
    { "phone", "phosphor_phone" },
    { "play", "phosphor_play" },
    { "pause", "phosphor_pause" },
    { "stop", "phosphor_stop" },
    { "calendar", "phosphor_calendar" },
    { "clock", "phosphor_clock" },
    { "alarm", "phosphor_alarm" },
    { "map", "phosphor_map-trifold" },
    { "location", "phosphor_map-pin" },
    { "globe", "phosphor_globe" },
    { "house", "phosphor_house" },
    { "lock", "phosphor_lock" },
    { "key", "phosphor_key" },
    { "shield", "phosphor_shield" },
    { "person", "phosphor_user" },
    { "eye", "phosphor_eye" },
    { "sun.max", "phosphor_sun" },
    { "moon", "phosphor_moon" },
    { "cloud", "phosphor_cloud" },
    { "car", "phosphor_car" },
    { "airplane", "phosphor_airplane" },
};

QLatin1StringView latin1(std::string_view text)
{
    return { text.data(), static_cast<qsizetype>(text.size()) };
}

}

QList<ActionConfig> DefaultActions::all()
{
    QList<ActionConfig> actions = standard();
    actions[2].iconName = u"phosphor_translate"_s;
    return actions
        + QList<ActionConfig> {
              action(newIdentifier(), u"Uppercase", u"phosphor_text-a-underline",
                     ActionType::shellScript, uppercaseCommand),
              action(newIdentifier(), u"ChatGPT", u"phosphor_open-ai-logo", ActionType::url,
                     u"https://chatgpt.com/?q={text}"),
              action(newIdentifier(), u"Add to Calendar", u"phosphor_calendar-plus",
                     ActionType::shortcut,
                     u"일정 추가"), // "add to schedule"
              action(newIdentifier(), u"Add to Notes", u"phosphor_note-pencil",
                     ActionType::appleScript, notesScript),
          };
}

QList<ActionConfig> DefaultActions::standard()
{
    return {
        action(u"search", u"Search", u"phosphor_magnifying-glass", ActionType::url,
               u"https://www.google.com/search?q={text}"),
        action(u"copy", u"Copy", u"phosphor_copy", ActionType::builtin, Builtin::copy),
        action(u"translate", u"Translate", u"icon_translate", ActionType::url,
               u"https://translate.google.com/?sl=auto&tl=ko&text={text}&op=translate"),
        action(countId, u"Count", u"phosphor_hash", ActionType::builtin, Builtin::count),
        action(u"largetype", u"Large Type", u"phosphor_text-aa", ActionType::builtin,
               Builtin::largeType),
    };
}

QString DefaultActions::renamedIcon(const QString &iconName)
{
    for (const auto &[symbol, icon] : renames) {
        if (iconName == latin1(symbol))
            return latin1(icon);
    }
    return iconName;
}

}
