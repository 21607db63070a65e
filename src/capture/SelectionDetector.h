// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QObject>

#include <memory>

namespace Tessel {

class AccessibilityManager;
class ActionBar;
class ConfigManager;
class NotificationCenter;
class PopupHost;
class Workspace;

/// Watches keyboard and mouse: the trigger key captures the selection and shows the bar; Escape,
/// other keys, scrolling and clicks in other applications hide it. The application gets the trigger
/// only when no bar comes of it: it would act on the selection.
class SelectionDetector final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        ConfigManager &config;
        NotificationCenter &notifications;
        AccessibilityManager &accessibility;
        ActionBar &bar;
        EventMonitor &eventMonitor;
        PopupHost &popupHost;
        Workspace &workspace;
    };

    explicit SelectionDetector(Dependencies dependencies);
    ~SelectionDetector() override;

    void startMonitoring();

public Q_SLOTS:
    /// Does what the trigger key does, on behalf of a key that the desktop keeps for itself. That
    /// may repeat it.
    void trigger();

private:
    void setTrigger();
    void handleKeyOrScroll(const InputEvent &event);
    [[nodiscard]] bool isDeaf() const;
    void checkSelection();
    void passTriggerOn();
    QCoro::Task<> runTriggerCycle();

    Dependencies m_dependencies;
    bool m_isPassedOn = false; ///< the application got the last trigger
    bool m_isKeyOurs = false; ///< the last trigger was a key that can be passed on
    QElapsedTimer m_sinceAsked; ///< by trigger()
    std::unique_ptr<EventMonitor::Subscription> m_clickMonitor;
    std::unique_ptr<EventMonitor::Subscription> m_keyMonitor; ///< goes first
};

}
