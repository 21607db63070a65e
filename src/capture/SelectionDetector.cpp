// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "capture/SelectionDetector.h"

#include "base/KeyCodes.h"
#include "base/Log.h"
#include "capture/AccessibilityManager.h"
#include "capture/ActionBar.h"
#include "config/ConfigManager.h"
#include "config/NotificationCenter.h"
#include "platform/PopupHost.h"
#include "platform/Workspace.h"

#include <QCoroFuture>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// Our own copy keystroke, and what is typed right after it, are not the user's wish.
constexpr qint64 selfSuppression = 1000; // milliseconds

/// Between what a key that is held repeats.
constexpr qint64 maxRepetition = 500; // milliseconds

void printCapture(const QString &text, QPoint pointer)
{
    const QString rule(50, u'-');
    Log::print(rule);
    Log::print(u"SELECTED TEXT: "_s + text);
    Log::print(u"BOUNDS: (%1, %2, 0, 0)"_s.arg(pointer.x()).arg(pointer.y()));
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
    setTrigger();
    connect(&m_dependencies.notifications, &NotificationCenter::configDidChange, this,
            &SelectionDetector::setTrigger);
    Log::print(u"Global keyboard monitor started (Trigger: F2).");
    m_clickMonitor = m_dependencies.eventMonitor.addGlobalMonitor(
        InputEvent::Kind::leftMouseUp, [this](const InputEvent &) { m_dependencies.bar.hide(); });
}

void SelectionDetector::setTrigger()
{
    m_dependencies.eventMonitor.setTrigger(
        { m_dependencies.config.triggerKeyCode, m_dependencies.config.triggerModifiers });
}

void SelectionDetector::handleKeyOrScroll(const InputEvent &event)
{
    const qint64 modifiers = event.modifiers & KeyCodes::modifierMask;
    const bool isTrigger = event.kind == InputEvent::Kind::keyDown
        && event.keyCode == m_dependencies.config.triggerKeyCode
        && modifiers == m_dependencies.config.triggerModifiers;
    if (isDeaf()) {
        if (isTrigger && m_isPassedOn)
            m_dependencies.eventMonitor.passTriggerOn(); // this one is the application's, too
        return;
    }
    if (event.kind == InputEvent::Kind::keyDown) {
        if (isTrigger) {
            Log::print(u"DEBUG: Hotkey pressed (Code: %1, Modifiers: %2)"_s.arg(event.keyCode)
                           .arg(modifiers));
            m_isPassedOn = false;
            m_isKeyOurs = true;
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

void SelectionDetector::trigger()
{
    const bool isRepetition = m_sinceAsked.isValid() && m_sinceAsked.elapsed() < maxRepetition;
    m_sinceAsked.start();
    if (isRepetition || isDeaf())
        return;
    m_isPassedOn = false;
    m_isKeyOurs = false;
    checkSelection();
}

bool SelectionDetector::isDeaf() const
{
    const auto sinceSimulation = m_dependencies.accessibility.millisecondsSinceSimulation();
    return sinceSimulation && *sinceSimulation < selfSuppression;
}

void SelectionDetector::checkSelection()
{
    Log::print(u"DEBUG: checkSelection() called");
    if (!m_dependencies.workspace.missingAccess().isEmpty()) {
        Log::print(u"Accessibility permissions missing.");
        passTriggerOn();
        return;
    }
    runTriggerCycle();
}

void SelectionDetector::passTriggerOn()
{
    m_isPassedOn = true;
    if (m_isKeyOurs)
        m_dependencies.eventMonitor.passTriggerOn();
}

QCoro::Task<> SelectionDetector::runTriggerCycle()
{
    const QPointer<SelectionDetector> self(this);
    // A variable: GCC 12 destroys a lambda in the expression that is awaited twice.
    const std::function<void()> nothingSelected = [self] {
        if (self)
            self->passTriggerOn();
    };
    PopupHost &popupHost = m_dependencies.popupHost;
    if (popupHost.isScreenLocked())
        co_return;
    const auto selected
        = co_await m_dependencies.accessibility.getSelectedTextInfo(nothingSelected);
    if (!self)
        co_return;
    if (!selected) {
        m_dependencies.bar.hide();
        passTriggerOn();
        co_return;
    }
    if (selected->bundleId
        && m_dependencies.config.excludedBundleIds.contains(*selected->bundleId)) {
        Log::print(u"DEBUG: App excluded: "_s + *selected->bundleId);
        passTriggerOn();
        co_return;
    }
    const PopupLocation location = co_await popupHost.locate();
    if (!self || popupHost.isScreenLocked())
        co_return;
    printCapture(selected->text, location.pointer);
    Log::print(
        u"DEBUG: Mouse Location: (%1, %2)"_s.arg(location.pointer.x()).arg(location.pointer.y()));
    m_dependencies.bar.show(location, selected->text,
                            m_dependencies.config.enableKeyboardShortcuts);
}

}
