// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "LocalizationManager.h"

LocalizationManager &LocalizationManager::shared()
{
    static LocalizationManager manager;
    return manager;
}

std::optional<LocalizationManager::Language> LocalizationManager::languageFrom(const QString &code)
{
    if (code == u"en")
        return Language::english;
    if (code == u"ko")
        return Language::korean;
    if (code == u"zh")
        return Language::chinese;
    return std::nullopt;
}
