// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ExtensionSetup.h"

#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "platform/DesktopBus.h"
#include "platform/gnome/ExtensionFiles.h"
#include "platform/gnome/ShellBridge.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QPromise>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto untilAttached = 3s;

const BusObject extensions { u"org.gnome.Shell"_s, u"/org/gnome/Shell"_s,
                             u"org.gnome.Shell.Extensions"_s };
const BusObject properties { extensions.service, extensions.path,
                             u"org.freedesktop.DBus.Properties"_s };
/// The name of the interface is a service's that need not run; the shell itself has the object.
const BusObject screenSaver { extensions.service, u"/org/gnome/ScreenSaver"_s,
                              u"org.gnome.ScreenSaver"_s };
const auto switchOfAll = u"UserExtensionsEnabled"_s;

QString paragraphs(const QStringList &texts)
{
    return texts.join(u"\n\n"_s);
}

QString reason()
{
    return localized(u"Tessel needs an extension in GNOME Shell to see the selected text in every "
                     "application, and to place its bar."_s);
}

QString meanwhile()
{
    return localized(
        u"Without it, Tessel works with marked text only, whichever application that is in, and "
        "the bar opens where GNOME puts new windows. The settings say how to press the trigger."_s);
}

QString loginNeeded()
{
    return paragraphs({ reason(),
                        localized(u"It is installed: log out and in again, as GNOME Shell looks "
                                  "for extensions only then."_s) });
}

}

ExtensionState extensionState(const QVariantMap &info, bool hasFiles)
{
    // ExtensionState of the shell's misc/extensionUtils.js.
    enum { active = 1, error = 3, outOfDate = 4, activating = 8 };
    if (info.isEmpty())
        return hasFiles ? ExtensionState::waiting : ExtensionState::absent;
    const int state = info[u"state"_s].toInt();
    if (state == error || state == outOfDate)
        return ExtensionState::refused;
    const bool isOn = state == active || state == activating || info[u"enabled"_s].toBool();
    return isOn ? ExtensionState::enabled : ExtensionState::off;
}

ExtensionSetup::ExtensionSetup(const ShellBridge &bridge)
    : m_bridge(bridge)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(untilAttached);
    connect(&m_patience, &QTimer::timeout, this, &ExtensionSetup::check);
    connect(&bridge, &ShellBridge::attached, this, [this] {
        setState(ExtensionState::enabled);
        renewCopy();
    });
    connect(&bridge, &ShellBridge::detached, this, [this] {
        setState(ExtensionState::unknown);
        m_patience.start();
    });
}

ExtensionSetup::~ExtensionSetup() = default;

void ExtensionSetup::start()
{
    m_files = std::make_unique<ExtensionFiles>();
    DesktopBus::whenReady(this, [this] {
        m_patience.start();
        QDBusConnection::sessionBus().connect({}, {}, screenSaver.interface, u"ActiveChanged"_s,
                                              this, SLOT(setLocked(bool)));
    });
}

void ExtensionSetup::setLocked(bool isLocked)
{
    if (!isLocked)
        m_patience.start();
}

void ExtensionSetup::check()
{
    if (m_bridge.isAttached())
        return;
    screenSaver.ask("GetActive", {}, this, [this](const QVariantList &isLocked) {
        if (!isLocked.value(0).toBool())
            askShell();
    });
}

void ExtensionSetup::askShell()
{
    properties.ask("GetAll", { extensions.interface }, this, [this](const QVariantList &all) {
        const auto values = qdbus_cast<QVariantMap>(all.value(0));
        m_shellVersion = values[u"ShellVersion"_s].toString();
        m_takesExtensions = values.value(switchOfAll, true).toBool();
        if (m_shellVersion.isEmpty())
            return setState(ExtensionState::impossible);
        extensions.ask("GetExtensionInfo", { ExtensionFiles::uuid() }, this,
                       [this](const QVariantList &reply) {
                           const auto info = qdbus_cast<QVariantMap>(reply.value(0));
                           if (!m_bridge.isAttached())
                               setState(extensionState(info, m_files->areThere()));
                       });
    });
}

/// The shell has read the old one, and reads the new one at the next login.
void ExtensionSetup::renewCopy()
{
    properties.ask("Get", { extensions.interface, u"ShellVersion"_s }, this,
                   [this](const QVariantList &reply) {
                       const QString version
                           = reply.value(0).value<QDBusVariant>().variant().toString();
                       if (!m_files->isCopyOld(version))
                           return;
                       if (const auto renewed = m_files->install(version); !renewed)
                           Log::print(u"WARNING: "_s + renewed.error().reason);
                   });
}

void ExtensionSetup::setState(ExtensionState state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT changed();
}

bool ExtensionSetup::isMissing() const
{
    return m_state != ExtensionState::unknown && m_state != ExtensionState::enabled;
}

std::optional<DesktopSetup> ExtensionSetup::offer()
{
    switch (m_state) {
    case ExtensionState::unknown:
    case ExtensionState::enabled:
        return {};
    case ExtensionState::off:
        return offerTo(localized(u"Switch On"_s), localized(u"It is switched off."_s));
    case ExtensionState::waiting:
        return DesktopSetup { loginNeeded() };
    case ExtensionState::refused:
        if (m_files->isCopyOld(m_shellVersion))
            return offerTo(localized(u"Install Extension"_s),
                           localized(u"The right one for GNOME Shell %1 is not installed. Once it "
                                     "is, log out and in again."_s)
                               .arg(m_shellVersion));
        return whyNot(localized(u"GNOME Shell %1 does not take it."_s));
    case ExtensionState::absent:
        if (!m_files->shippedFor(m_shellVersion).isEmpty())
            return offerTo(localized(u"Install Extension"_s),
                           localized(u"It is not installed. Once it is, log out and in again."_s));
        return whyNot(localized(u"There is none for GNOME Shell %1."_s));
    case ExtensionState::impossible:
        break;
    }
    const QString finding
        = localized(u"This desktop shows programs neither keys nor selected text."_s);
    return DesktopSetup { paragraphs({ finding, meanwhile() }) };
}

/// `finding`: has a place for the shell's version.
DesktopSetup ExtensionSetup::whyNot(const QString &finding) const
{
    return { paragraphs({ reason(), finding.arg(m_shellVersion), meanwhile() }) };
}

DesktopSetup ExtensionSetup::offerTo(const QString &button, const QString &finding)
{
    QStringList texts { reason(), finding, meanwhile() };
    if (!m_takesExtensions)
        texts.insert(2,
                     localized(u"All extensions are switched off now: others that you had come "
                               "back with it."_s));
    return { paragraphs(texts), button, [this] { return carryOut(); } };
}

QFuture<QString> ExtensionSetup::carryOut()
{
    if (m_state != ExtensionState::off) {
        if (const auto installed = m_files->install(m_shellVersion); !installed)
            return QtFuture::makeReadyFuture(installed.error().reason);
    }
    if (!m_takesExtensions)
        properties.send(
            "Set", { extensions.interface, switchOfAll, QVariant::fromValue(QDBusVariant(true)) });
    auto promise = std::make_shared<QPromise<QString>>();
    promise->start();
    // The shell's own EnableExtension does not remember one that it does not know yet.
    m_tool.run(
        { .program = u"gnome-extensions"_s, .arguments = { u"enable"_s, ExtensionFiles::uuid() } },
        [this, promise](const Result<CommandResult> &enabling) {
            promise->addResult(resultOf(enabling));
            promise->finish();
        });
    return promise->future();
}

QString ExtensionSetup::resultOf(const Result<CommandResult> &enabling)
{
    if (!enabling)
        return enabling.error().reason;
    if (enabling->exitStatus != 0)
        return QString::fromUtf8(enabling->errorOutput).trimmed();
    m_patience.start();
    if (m_state == ExtensionState::off)
        return {};
    m_state = ExtensionState::waiting; // which need not be said twice
    return loginNeeded();
}

}
