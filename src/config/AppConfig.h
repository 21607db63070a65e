// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace Tessel {

enum class ActionType { url, shortcut, shellScript, appleScript, builtin };
enum class AppIconType { standard, light, neon }; ///< `standard` is stored as "default"
enum class ThemeMode { system, light, dark };

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

/// The configuration file. A setting that the file leaves out stays empty here.
struct AppConfig
{
    QStringList excludedBundleIds;
    QList<ActionConfig> customActions;
    std::optional<qint64> triggerKeyCode;
    std::optional<qint64> triggerModifiers;
    std::optional<bool> showTooltips;
    std::optional<bool> enableKeyboardShortcuts;
    std::optional<bool> alwaysOnTop;
    std::optional<QString> language;
    std::optional<bool> showKeyboardShortcuts;
    std::optional<AppIconType> appIcon;
    std::optional<ThemeMode> themeMode;

    friend bool operator==(const AppConfig &, const AppConfig &) = default;
};

[[nodiscard]] QString rawValue(ActionType type);
[[nodiscard]] QString rawValue(AppIconType type);
[[nodiscard]] QString rawValue(ThemeMode mode);
[[nodiscard]] std::optional<ActionType> actionTypeFrom(const QString &rawValue);
[[nodiscard]] std::optional<AppIconType> appIconTypeFrom(const QString &rawValue);
[[nodiscard]] std::optional<ThemeMode> themeModeFrom(const QString &rawValue);

struct DecodedConfig
{
    std::optional<AppConfig> config; ///< empty when the bytes are not a valid configuration
    QString error; ///< what is wrong, in English, when there is no config
};

/// Reads a configuration file (JSON, RFC 8259, UTF-8). Action kinds of older versions are
/// converted.
[[nodiscard]] DecodedConfig decodeConfig(const QByteArray &json);

/// Compact JSON with the keys in declaration order; empty settings are left out.
[[nodiscard]] QByteArray encodeConfig(const AppConfig &config);

}
