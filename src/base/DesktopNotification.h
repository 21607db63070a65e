// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"

namespace Tessel {

/// What the desktop is to show outside of our windows. Shown by tessel-notify, so that nobody else
/// loads D-Bus for it or waits for the desktop's answer.
struct DesktopNotification
{
    QString text = {};
    QString title = {}; ///< empty: the text is
    QString subtitle = {};
    QString file = {}; ///< a path or URL that it offers to open; empty: nothing
    QString topic = {}; ///< takes the place of the last one of that topic; empty: of none
    QString preferences = {}; ///< the button that shows the program's; empty: there is none

    friend bool operator==(const DesktopNotification &, const DesktopNotification &) = default;
};

/// Runs tessel-notify in the folder of helpers; it ends with 0 once the notification is shown, and
/// takes at most six seconds.
[[nodiscard]] CommandRequest notificationCommand(const DesktopNotification &notification,
                                                 const QString &folder);

/// Reads what the command gets on standard input; what is missing stays empty.
[[nodiscard]] DesktopNotification notificationFrom(const QByteArray &input);

/// What a notification shows of a text: its first line with anything in it, in at most 80
/// characters.
[[nodiscard]] QString notificationTitle(const QString &text);

}
