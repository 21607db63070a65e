// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace Tessel {

/// The program's announcements. Main thread only; receivers are called at once.
class NotificationCenter final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The process-wide instance.
    static NotificationCenter &defaultCenter();

Q_SIGNALS:
    void configDidChange(); ///< the configuration was written to its file
    void themeDidChange(); ///< follows each configDidChange
    void languageDidChange(); ///< the interface language was applied
    void actionsDidReload(); ///< the action manager has a new list
};

}
