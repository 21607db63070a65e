// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoroTask>
#include <QString>

#include <functional>
#include <optional>

namespace Tessel {

class CopyRequest;
class Pasteboard;
class Workspace;
struct FrontApplication;

/// A captured selection.
struct SelectedText
{
    QString text; ///< not empty, lines end with a line feed
    std::optional<QString> bundleId; ///< of the application in front at the start of the capture
};

/// Captures the selected text of whatever application is in front: makes it copy and watches the
/// pasteboard, which keeps the copied text. Main thread only.
class AccessibilityManager final
{
public:
    /// Milliseconds on a clock that never goes back.
    using Clock = std::function<qint64()>;

    struct Dependencies
    {
        Workspace &workspace;
        CopyRequest &copyRequest;
        Pasteboard &pasteboard;
        Clock clock;
    };

    explicit AccessibilityManager(Dependencies dependencies);

    /// The process-wide instance, on the current platform.
    static AccessibilityManager &shared();

    /// Takes half a second at most, longer only while the copy shortcut cannot be pressed yet
    /// (CopyRequest::whenReady) or the owner of a large text keeps sending it.
    /// `nothingSelected` is called as soon as that is as good as certain, which may be before the
    /// end. The manager must outlive the task.
    [[nodiscard]] QCoro::Task<std::optional<SelectedText>>
    getSelectedTextInfo(std::function<void()> nothingSelected = {});

    /// Milliseconds since the last synthetic copy; nothing when there was none.
    [[nodiscard]] std::optional<qint64> millisecondsSinceSimulation() const;

private:
    QCoro::Task<std::optional<QString>>
    getSelectionBySimulation(FrontApplication application, std::function<void()> nothingSelected);

    Dependencies m_dependencies;
    std::optional<qint64> m_lastSimulationTime;
};

}
