// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"

#include <QCoroTask>
#include <QObject>

#include <memory>

namespace Tessel {

class AccessibilityManager;
class ConfigManager;
class ActionBar;
class PopupHost;
class Workspace;

/// Watches keyboard and mouse: the trigger key captures the selection and shows the bar; Escape,
/// other keys, scrolling and clicks in other applications hide it.
class SelectionDetector final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        ConfigManager &config;
        AccessibilityManager &accessibility;
        ActionBar &bar;
        EventMonitor &eventMonitor;
        PopupHost &popupHost;
        Workspace &workspace;
    };

    explicit SelectionDetector(Dependencies dependencies);
    ~SelectionDetector() override;

    void startMonitoring();

private:
    void handleKeyOrScroll(const InputEvent &event);
    void checkSelection();
    QCoro::Task<> runTriggerCycle();

    Dependencies m_dependencies;
    std::unique_ptr<EventMonitor::Subscription> m_clickMonitor;
    std::unique_ptr<EventMonitor::Subscription> m_keyMonitor; ///< goes first
};

}
