// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Hands a URL to the user's default handler (xdg-utils); returns at once, reports nothing.
void xdgOpen(const QString &url);
