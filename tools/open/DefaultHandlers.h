// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <chrono>
#include <optional>

class QProcess;

namespace Tessel {

/// Hands files and URLs to their default applications by xdg-open, which may take as long as the
/// application runs: they live on after this program.
class DefaultHandlers final
{
public:
    void open(const QString &target);

    /// The reasons of those that have failed by then, which is when all have ended or the time is
    /// up, in the order of their start.
    [[nodiscard]] QStringList failures(std::chrono::milliseconds limit);

    /// The application for plain text, by its identifier.
    [[nodiscard]] static std::optional<QString> textApplication();

private:
    struct Start
    {
        QString target;
        QProcess *process; ///< never deleted, as that would end it
    };
    QList<Start> m_starts;
};

}
