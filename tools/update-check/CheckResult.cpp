// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/CheckResult.h"

#include "base/LocalizationManager.h"
#include "update-check/Version.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace Tessel {

CheckResult compareRelease(const Release &release, QStringView inUse, QStringView seen)
{
    using enum CheckResult::Status;
    if (!seen.isEmpty() && std::is_lt(compareVersions(release.version, seen)))
        return { stale, release,
                 localized(u"The update feed is older than one that was seen before."_s) };
    return { std::is_gt(compareVersions(release.version, inUse)) ? newer : current, release, {} };
}

QByteArray toJson(const CheckResult &result)
{
    static constexpr const char *statusNames[] { "newer", "current", "stale", "error" };
    const QJsonObject object { { u"status"_s,
                                 QLatin1StringView(statusNames[size_t(result.status)]) },
                               { u"version"_s, result.release.version },
                               { u"displayVersion"_s, result.release.displayVersion },
                               { u"link"_s, result.release.link },
                               { u"notes"_s, result.release.notes },
                               { u"message"_s, result.message } };
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

}
