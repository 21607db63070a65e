// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChildProcess.h"

#include <QStringList>

#include <chrono>
#include <optional>
#include <vector>

namespace Tessel {

/// Hands files and URLs to their default applications by xdg-open, which may take as long as the
/// application runs: they live on after this program.
class DefaultHandlers final
{
public:
    void open(const QString &target);

    /// The reasons of those that have failed by then, which is when all have ended or the time is
    /// up, in the order of their start. To be called once.
    [[nodiscard]] QStringList failures(std::chrono::milliseconds limit);

    /// The application for plain text, by its identifier.
    [[nodiscard]] static std::optional<QString> textApplication();

private:
    struct Start
    {
        QString target;
        Result<ChildProcess> process;
    };
    std::vector<Start> m_starts;
};

}
