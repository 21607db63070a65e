// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/Applications.h"

#include "osascript/applications/CalendarApplication.h"
#include "osascript/applications/Finder.h"
#include "osascript/applications/Mail.h"
#include "osascript/applications/Notes.h"
#include "osascript/applications/Shortcuts.h"
#include "osascript/applications/SystemEvents.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

Applications::Applications(Host &host)
    : m_host(host)
{
}

Application *Applications::find(const QString &written)
{
    const QString name = bareName(written).toString();
    const Suite suite = suiteOf(name);
    // All names of an adapter are one application.
    const QString key
        = suite == Suite::application ? name.toLower() : QString::number(static_cast<int>(suite));
    std::unique_ptr<Application> &application = m_applications[key];
    if (!application)
        application = make(name);
    return application.get();
}

std::unique_ptr<Application> Applications::make(const QString &name)
{
    switch (suiteOf(name)) {
    case Suite::systemEvents:
        return std::make_unique<SystemEvents>(m_host);
    case Suite::notes:
        return std::make_unique<Notes>(m_host);
    case Suite::shortcuts:
        return std::make_unique<Shortcuts>(m_host);
    case Suite::finder:
        return std::make_unique<Finder>(m_host);
    case Suite::calendar:
        return std::make_unique<CalendarApplication>(u"Calendar"_s, m_host);
    case Suite::reminders:
        return std::make_unique<CalendarApplication>(u"Reminders"_s, m_host);
    case Suite::mail:
        return std::make_unique<Mail>(m_host);
    default:
        return m_host.desktop.isInstalled(name) ? std::make_unique<Application>(name, m_host)
                                                : nullptr;
    }
}

Value Applications::property(const Object &object, const QString &name) const
{
    Application &application = applicationOf(object);
    return ask(application, [&] { return application.property(object, name); });
}

bool Applications::setProperty(const Object &object, const QString &name, const Value &value) const
{
    Application &application = applicationOf(object);
    return ask(application, [&] { return application.setProperty(object, name, value); });
}

void Applications::finish()
{
    for (const auto &entry : m_applications) {
        if (Application *application = entry.second.get())
            ask(*application, [&] { application->finish(); });
    }
}

}
