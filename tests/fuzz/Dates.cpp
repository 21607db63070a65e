// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "calendar-entry/DatePhrase.h"
#include "osascript/values/DateValue.h"

using namespace Tessel;

/// A date that is found is one, and is read again as it was from what scripts write.
extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    const QString text = QString::fromUtf8(data, qsizetype(size));
    const QDateTime now(QDate(2026, 11, 21), QTime(12, 0));
    const auto phrase = findDatePhrase(text, now);
    Q_ASSERT(!phrase || (phrase->date.isValid() && phrase->time.value_or(now.time()).isValid()));
    if (const auto date = Osascript::parseDate(text)) {
        Q_ASSERT(date->isValid());
        if (date->date().year() >= 1000)
            Q_ASSERT(Osascript::parseDate(Osascript::formatDate(*date)) == date);
    }
    return 0;
}
