// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "capture/SelectionDetector.h"

#include "base/KeyCodes.h"
#include "base/Log.h"
#include "capture/AccessibilityManager.h"
#include "capture/ActionBar.h"
#include "config/ConfigManager.h"
#include "platform/PopupHost.h"
#include "platform/Workspace.h"

#include <QCoroFuture>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// Our own copy keystroke, and what is typed right after it, are not the user's wish.
constexpr qint64 selfSuppression = 1000; // milliseconds

void printCapture(const SelectedText &selected)
{
    const QString rule(50, u'-');
    Log::print(rule);
    Log::print(u"SELECTED TEXT: "_s + selected.text);
    Log::print(u"BOUNDS: (%1, %2, 0, 0)"_s.arg(selected.pointer.x()).arg(selected.pointer.y()));
    Log::print(rule);
}

}

SelectionDetector::SelectionDetector(Dependencies dependencies)
    : m_dependencies(dependencies)
{
}

SelectionDetector::~SelectionDetector() = default;

void SelectionDetector::startMonitoring()
{
    m_keyMonitor = m_dependencies.eventMonitor.addGlobalMonitor(
        InputEvent::Kind::keyDown | InputEvent::Kind::scrollWheel,
        [this](const InputEvent &event) { handleKeyOrScroll(event); });
    Log::print(u"Global keyboard monitor started (Trigger: F2).");
    m_clickMonitor = m_dependencies.eventMonitor.addGlobalMonitor(
        InputEvent::Kind::leftMouseUp, [this](const InputEvent &) { m_dependencies.bar.hide(); });
}

void SelectionDetector::handleKeyOrScroll(const InputEvent &event)
{
    const auto sinceSimulation = m_dependencies.accessibility.millisecondsSinceSimulation();
    if (sinceSimulation && *sinceSimulation < selfSuppression)
        return;
    if (event.kind == InputEvent::Kind::keyDown) {
        const qint64 modifiers = event.modifiers & KeyCodes::modifierMask;
        if (event.keyCode == m_dependencies.config.triggerKeyCode
            && modifiers == m_dependencies.config.triggerModifiers) {
            Log::print(u"DEBUG: Hotkey pressed (Code: %1, Modifiers: %2)"_s.arg(event.keyCode)
                           .arg(modifiers));
            checkSelection();
            return;
        }
        if (event.keyCode == KeyCodes::keyEscape) {
            Log::print(u"DEBUG: Escape pressed. Force hiding panel.");
            m_dependencies.bar.hide();
            return;
        }
    }
    m_dependencies.bar.hide();
}

void SelectionDetector::checkSelection()
{
    Log::print(u"DEBUG: checkSelection() called");
    if (!m_dependencies.workspace.missingAccess().isEmpty()) {
        Log::print(u"Accessibility permissions missing.");
        return;
    }
    runTriggerCycle();
}

QCoro::Task<> SelectionDetector::runTriggerCycle()
{
    const QPointer<SelectionDetector> self(this);
    const auto selected = co_await m_dependencies.accessibility.getSelectedTextInfo();
    if (!self)
        co_return;
    if (!selected) {
        m_dependencies.bar.hide();
        co_return;
    }
    if (selected->bundleId
        && m_dependencies.config.excludedBundleIds.contains(*selected->bundleId)) {
        Log::print(u"DEBUG: App excluded: "_s + *selected->bundleId);
        co_return;
    }
    printCapture(*selected);
    const PopupLocation location = co_await m_dependencies.popupHost.locate();
    if (!self)
        co_return;
    Log::print(
        u"DEBUG: Mouse Location: (%1, %2)"_s.arg(location.pointer.x()).arg(location.pointer.y()));
    m_dependencies.bar.show(location, selected->text,
                            m_dependencies.config.enableKeyboardShortcuts);
}

}
