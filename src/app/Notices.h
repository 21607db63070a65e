// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/CommandRunner.h"
#include "platform/EventMonitor.h"

#include <QObject>

class QMessageBox;

namespace Tessel {

struct DesktopNotification;
struct DesktopSetup;

/// What somebody who has just installed the program is to know.
struct FirstStart
{
    QString trigger; ///< in words, "Ctrl+F2"
    TriggerRoute route = TriggerRoute::kept;
    QString binding; ///< what the user adds to the desktop's configuration; may be empty
    bool isInTray = true;
};

/// What the program says by itself, in notifications and windows that wait for nobody. Main thread
/// only.
class Notices final : public QObject
{
    Q_OBJECT

public:
    void notify(const DesktopNotification &notification);

    /// That the program cannot do its work here.
    void warn(const QString &text);

    /// In a window, until the user has closed one with the same text. A set-up that was begun may
    /// fail and is offered again.
    void tellOnce(const DesktopSetup &notice);

    /// Once in the user's life. In a window where the desktop has no notifications.
    void welcome(const FirstStart &facts);

Q_SIGNALS:
    void preferencesRequested();

private:
    static QMessageBox *window(const QString &text);
    void welcomeInWindow(const DesktopNotification &notification);

    CommandRunner m_notifier;
};

}
