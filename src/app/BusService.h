// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ActionManager.h"

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>

#include <functional>

namespace Tessel {

/// What other programs can have this one do, over the session bus: com.tessel.app at
/// /com/tessel/app, as packaging/com.tessel.app.xml describes it. Comes when the bus can be used.
class BusService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.tessel.app")
    Q_PROPERTY(QString State READ state)

public:
    /// What carries the methods out. None of them may wait.
    struct Handlers
    {
        std::function<void()> trigger;
        std::function<void()> showPreferences;
        std::function<void()> quit;
        std::function<ActionManager::Start(const QString &id, const QString &text)> startAction;
    };

    /// The object is what gets the path. Two services do not go together.
    BusService(QObject *object, Handlers handlers, QString state);

    [[nodiscard]] QString state() const { return m_state; }
    void setState(const QString &state); ///< one that the description has

    /// Has the program that is the given process show its preferences. Waits for two seconds at
    /// most; false when it does not answer there. Needs an application object.
    [[nodiscard]] static bool showPreferencesOf(qint32 process);

public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): the names are the bus's
    void Trigger() { m_handlers.trigger(); }
    void ShowPreferences() { m_handlers.showPreferences(); }
    void Quit() { m_handlers.quit(); }
    void RunAction(const QString &id, const QString &text, const QDBusMessage &call);
    // NOLINTEND(readability-identifier-naming)

private:
    void appear();

    Handlers m_handlers;
    QString m_state;
};

}
