// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/FreedesktopWorkspace.h"

#include "base/Log.h"
#include "platform/freedesktop/XdgOpen.h"

#include <QCollator>
#include <QDeadlineTimer>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// What xdg-open takes at most to find that nothing opens a URL. Where it runs as long as the
/// handler does, a failure after that is the handler's own.
constexpr auto untilFailure = 10s;

}

FreedesktopWorkspace::FreedesktopWorkspace()
    : m_entries(DesktopEntries::standardFolders())
{
}

/// Several entries can lay claim to the same windows.
QString FreedesktopWorkspace::identifierForWindowsOf(const DesktopEntry &entry)
{
    const auto owner = m_entries.find({ entry.windowClass, entry.id });
    return owner ? owner->id : entry.id;
}

QList<InstalledApplication> FreedesktopWorkspace::installedApplications()
{
    QList<InstalledApplication> applications;
    for (const DesktopEntry &entry : m_entries.all()) {
        if (entry.isShown)
            applications.append({ identifierForWindowsOf(entry), entry.name, entry.icon });
    }
    QCollator order;
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(applications.begin(), applications.end(),
                     [&order](const InstalledApplication &one, const InstalledApplication &other) {
                         return order.compare(one.localizedName, other.localizedName) < 0;
                     });
    return applications;
}

std::optional<QString> FreedesktopWorkspace::bundleIdentifierOf(const QString &path)
{
    const auto entry = m_entries.read(path);
    return entry ? std::optional(identifierForWindowsOf(*entry)) : std::nullopt;
}

void FreedesktopWorkspace::open(const QString &url)
{
    m_openers.run(
        xdgOpenRequest(url),
        [this, url, inTime = QDeadlineTimer(untilFailure)](const Result<CommandResult> &opened) {
            if (!opened)
                Log::print(u"ERROR: "_s + opened.error().reason);
            if (!opened || (opened->exitStatus != 0 && !inTime.hasExpired()))
                nothingOpened(url);
        });
}

}
