// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The language of the interface. Main thread only.
class LocalizationManager
{
public:
    enum class Language { english, korean, chinese };

    static LocalizationManager &shared();

    /// The language of a configuration code ("en", "ko", "zh"); nothing for any other.
    [[nodiscard]] static std::optional<Language> languageFrom(const QString &code);

    /// Whoever writes it announces languageDidChange afterwards.
    Language currentLanguage = Language::english;
};
