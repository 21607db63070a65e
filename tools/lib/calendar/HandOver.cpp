// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/calendar/HandOver.h"

#include "base/LocalizationManager.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace Tessel {

Result<void> handOver(const CalendarEntry &entry, Osascript::Desktop &desktop,
                      Osascript::Dialogs &dialogs)
{
    const Result<QString> path = writeCalendarFile(entry);
    if (!path)
        return path.error();
    const Result<QString> application = desktop.openAs(*path, u"text/calendar"_s);
    const QString title = notificationTitle(entry.summary);
    // What is done is done, whether or not it can be told.
    if (application) {
        static_cast<void>(
            dialogs.notify({ .text = localized(u"The entry was handed to %1."_s).arg(*application),
                             .title = title }));
        return {};
    }
    QFile::remove(*path);
    static_cast<void>(
        dialogs.notify({ .text = localized(u"No application opens calendar entries."_s),
                         .title = localized(u"No calendar application"_s),
                         .subtitle = title,
                         .topic = u"calendar"_s }));
    return Failure { u"No calendar application: "_s + application.error().reason };
}

}
