// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace Tessel {

/// What the command line of open asks for.
struct OpenRequest
{
    bool reveals = false;
    bool opensAsText = false;
    QString application = {};
    QStringList targets = {}; ///< URLs and absolute paths
    QStringList arguments = {}; ///< for the application

    /// Nothing when the arguments make no sense. Options of one letter may be joined, as in "-na".
    [[nodiscard]] static std::optional<OpenRequest> parse(const QStringList &arguments);
};

}
