// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "capture/AccessibilityManager.h"

#include "base/Log.h"
#include "base/TextRules.h"
#include "platform/CopyRequest.h"
#include "platform/Pasteboard.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

#include <QCoroFuture>
#include <QCoroTimer>
#include <QElapsedTimer>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr qint64 pollInterval = 100; // milliseconds
constexpr qint64 maxPolls = 5;
constexpr qint64 secondSourcePoll = 2; ///< when marked text counts in place of a copy

QCoro::Task<> sleepFor(qint64 milliseconds)
{
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(int(qMax(qint64(0), milliseconds)));
    co_await timer;
}

void tellOnce(std::function<void()> &function)
{
    if (function)
        std::exchange(function, {})();
}

bool isDone(const QFuture<void> &future)
{
    return future.isFinished() && !future.isCanceled();
}

bool isFalse(const std::optional<QFuture<bool>> &future)
{
    return future && future->isResultReadyAt(0) && !future->resultAt(0);
}

}

AccessibilityManager::AccessibilityManager(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{
}

AccessibilityManager &AccessibilityManager::shared()
{
    static auto *instance = [] {
        Platform &platform = Platform::current();
        QElapsedTimer sinceStart;
        sinceStart.start();
        return new AccessibilityManager({ platform.workspace(), platform.copyRequest(),
                                          platform.pasteboard(),
                                          [sinceStart] { return sinceStart.elapsed(); } });
    }();
    return *instance;
}

std::optional<qint64> AccessibilityManager::millisecondsSinceSimulation() const
{
    if (!m_lastSimulationTime)
        return {};
    return m_dependencies.clock() - *m_lastSimulationTime;
}

QCoro::Task<std::optional<SelectedText>>
AccessibilityManager::getSelectedTextInfo(std::function<void()> nothingSelected)
{
    Log::print(u"DEBUG: getSelectedTextInfo() called (Cmd+C Strategy)");
    const auto application = m_dependencies.workspace.frontmostApplication();
    if (!application) {
        Log::print(u"DEBUG: No frontmost application found.");
        co_return std::nullopt;
    }
    const QString name = application->localizedName;
    Log::print(u"DEBUG: Focused App: %1 (%2)"_s.arg(
        name.isEmpty() ? u"Unknown"_s : name,
        application->bundleIdentifier.value_or(u"no-bundle-id"_s)));

    const auto text = co_await getSelectionBySimulation(*application, std::move(nothingSelected));
    if (!text) {
        Log::print(u"DEBUG: Cmd+C simulation failed or no text selected.");
        co_return std::nullopt;
    }
    Log::print(u"DEBUG: Cmd+C simulation succeeded.");
    co_return SelectedText { *text, application->bundleIdentifier };
}

/// Terminals and modal editors are never sent anything: their marked text counts, or nothing is
/// selected. Applications that do not copy at the shortcut, or not in a way that can be seen, get a
/// second chance: text that was marked in them since they are in front.
QCoro::Task<std::optional<QString>>
AccessibilityManager::getSelectionBySimulation(FrontApplication application,
                                               std::function<void()> nothingSelected)
{
    using Marked = CopyRequest::Marked;
    CopyRequest &copyRequest = m_dependencies.copyRequest;
    Pasteboard &pasteboard = m_dependencies.pasteboard;
    const bool isSentKeys = !application.isTerminal && !application.isModal;
    m_lastSimulationTime = m_dependencies.clock(); // a trigger during the wait is not another one
    if (isSentKeys)
        co_await copyRequest.whenReady();
    const qint64 before = pasteboard.changeCount();
    const qint64 start = m_dependencies.clock();
    m_lastSimulationTime = start;
    QFuture<void> seen;
    std::optional<QFuture<bool>> marked; // once it was asked for
    if (isSentKeys)
        seen = copyRequest.copySelection(application);
    else
        marked = copyRequest.copyMarkedText(
            application, application.isTerminal ? Marked::ever : Marked::sinceFocus);

    // A poll that had to wait for the owner takes the place of those that fell due meanwhile.
    const auto elapsed = [this, start] { return m_dependencies.clock() - start; };
    for (qint64 poll = 1; poll <= maxPolls; poll = qMax(poll + 1, elapsed() / pollInterval + 1)) {
        if (isFalse(marked) && (!isSentKeys || isDone(seen)))
            tellOnce(nothingSelected);
        co_await sleepFor(poll * pollInterval - elapsed());
        if (pasteboard.changeCount() <= before) {
            if (poll >= secondSourcePoll && !marked)
                marked = copyRequest.copyMarkedText(application, Marked::sinceFocus);
            continue;
        }
        const qint64 rest = maxPolls * pollInterval - elapsed();
        const auto text
            = co_await pasteboard.string(std::chrono::milliseconds(qMax(pollInterval, rest)));
        if (text && !text->isEmpty())
            co_return withNormalizedLineEnds(*text);
        tellOnce(nothingSelected); // it copied something else
    }
    co_return std::nullopt;
}

}
