// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/KeyCodes.h"
#include "base/Result.h"
#include "config/ActionType.h"
#include "config/Observable.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <tuple>

namespace Tessel {

/// One action of the bar, as the user configured it.
struct ActionConfig
{
    QString id; ///< unique; the five standard actions have fixed ones
    QString title;
    QString iconName; ///< icon-set image, system symbol, or "custom:" and a file name
    ActionType type = ActionType::url;
    QString templateText; ///< stored as "template"; its meaning depends on the type
    std::optional<QString> regex
        = std::nullopt; ///< ICU syntax; the action is offered only on a match
    bool isEnabled = true;

    friend bool operator==(const ActionConfig &, const ActionConfig &) = default;
};

enum class AppIconType { standard, light, neon };
enum class ThemeMode { system, light, dark };

/// A case of an enumeration, as the file has it and as the settings window shows it.
template <typename Enum> struct Choice
{
    Enum value;
    QLatin1StringView rawValue;
    QStringView title;
};

/// All cases of an enumeration, in the order in which they are offered.
template <typename Enum> inline constexpr std::array<Choice<Enum>, 0> choices {};

template <>
inline constexpr std::array choices<AppIconType> {
    Choice<AppIconType> { AppIconType::standard, QLatin1StringView("default"), u"Default" },
    Choice<AppIconType> { AppIconType::light, QLatin1StringView("light"), u"Light" },
    Choice<AppIconType> { AppIconType::neon, QLatin1StringView("neon"), u"Neon" },
};

template <>
inline constexpr std::array choices<ThemeMode> {
    Choice<ThemeMode> { ThemeMode::system, QLatin1StringView("system"), u"System" },
    Choice<ThemeMode> { ThemeMode::light, QLatin1StringView("light"), u"Light" },
    Choice<ThemeMode> { ThemeMode::dark, QLatin1StringView("dark"), u"Dark" },
};

/// What the configuration file holds. What a file leaves out has the value that stands here.
struct AppConfig
{
    QStringList excludedBundleIds;
    QList<ActionConfig> customActions;

    qint64 triggerKeyCode = KeyCodes::keyF2;
    qint64 triggerModifiers = 0; ///< bits of KeyCodes.h
    bool showTooltips = true;
    bool enableKeyboardShortcuts = true;
    bool alwaysOnTop = true; ///< the settings window
    QString language = QStringLiteral("en"); ///< a code; unknown ones are kept
    Observable<bool> showKeyboardShortcuts = true;
    AppIconType appIcon = AppIconType::standard;
    ThemeMode themeMode = ThemeMode::system;

    friend bool operator==(const AppConfig &, const AppConfig &) = default;
};

/// A field of the configuration with its key in the file. Its type says what values are valid.
template <typename T> struct Setting
{
    const char *key;
    T AppConfig::*field;
};
template <typename T> Setting(const char *, T AppConfig::*) -> Setting<T>; // for clang 14

/// The settings, which a file may leave out, in the order in which they are written.
inline constexpr std::tuple settingRows {
    Setting { "triggerKeyCode", &AppConfig::triggerKeyCode },
    Setting { "triggerModifiers", &AppConfig::triggerModifiers },
    Setting { "showTooltips", &AppConfig::showTooltips },
    Setting { "enableKeyboardShortcuts", &AppConfig::enableKeyboardShortcuts },
    Setting { "alwaysOnTop", &AppConfig::alwaysOnTop },
    Setting { "language", &AppConfig::language },
    Setting { "showKeyboardShortcuts", &AppConfig::showKeyboardShortcuts },
    Setting { "appIcon", &AppConfig::appIcon },
    Setting { "themeMode", &AppConfig::themeMode },
};

/// Reads a configuration file (JSON, RFC 8259, UTF-8). Types of actions that older versions had
/// are converted.
[[nodiscard]] Result<AppConfig> decodeConfig(const QByteArray &json);

/// Compact JSON with the keys in the order above.
[[nodiscard]] QByteArray encodeConfig(const AppConfig &config);

}
