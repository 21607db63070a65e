// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/Notices.h"
#include "platform/EventMonitor.h"

#include <QObject>

#include <memory>

namespace Tessel {

class MenuBarManager;
class SelectionDetector;
class UpdaterController;

/// Creates what lives as long as the program, once it is up.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    AppDelegate();
    ~AppDelegate() override;

    void applicationDidFinishLaunching();
    void showPreferences(); ///< once that is done
    void trigger(); ///< likewise

private:
    void speakToTheUser();
    [[nodiscard]] bool tellWhatIsMissing();
    void makeMenus();
    void serveBus(bool hasAccess);
    void showOutcomes();
    void welcome();
    void tellNothingOpened(const QString &url);

    Notices m_notices;
    std::unique_ptr<SelectionDetector> m_detector;
    std::unique_ptr<EventMonitor::Subscription> m_keysElsewhere;
    std::unique_ptr<MenuBarManager> m_menuBarManager;
    std::unique_ptr<UpdaterController> m_updaterController;
};

}
