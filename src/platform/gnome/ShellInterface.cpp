// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellInterface.h"

#include "base/KeyCodes.h"

#include <QDBusArgument>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr quint32 evdevOffset = 8; ///< of native scan codes

struct Modifier
{
    qint64 bit;
    quint32 key;
    QLatin1String name; ///< of an accelerator (gtk_accelerator_parse)
};
constexpr Modifier modifierTable[] = {
    { KeyCodes::shift, KEY_LEFTSHIFT, QLatin1String("<Shift>") },
    { KeyCodes::control, KEY_LEFTCTRL, QLatin1String("<Control>") },
    { KeyCodes::option, KEY_LEFTALT, QLatin1String("<Alt>") },
    { KeyCodes::command, KEY_LEFTMETA, QLatin1String("<Super>") },
};

WaylandWindow read(const QDBusArgument &argument)
{
    WaylandWindow window;
    quint32 processId = 0;
    argument.beginStructure();
    argument >> window.handle >> window.applicationId >> window.title >> processId
        >> window.isMinimized;
    argument.endStructure();
    window.processId = processId;
    return window;
}

}

BusObject ShellInterface::object()
{
    return { u"org.gnome.Shell"_s, path, name };
}

WaylandWindow ShellInterface::windowOf(const QVariant &value)
{
    const auto argument = value.value<QDBusArgument>();
    return argument.currentSignature() == u"(tssub)" ? read(argument) : WaylandWindow();
}

QList<WaylandWindow> ShellInterface::windowsOf(const QVariant &value)
{
    QList<WaylandWindow> windows;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"a(tssub)")
        return windows;
    argument.beginArray();
    while (!argument.atEnd())
        windows.append(read(argument));
    argument.endArray();
    return windows;
}

/// By its key code, so that layouts do not matter.
QString ShellInterface::acceleratorOf(const KeyChord &chord)
{
    const auto key = KeyCodes::scanCodeFromVirtual(chord.keyCode);
    if (!key)
        return {};
    QString accelerator;
    for (const Modifier &modifier : modifierTable) {
        if (chord.modifiers & modifier.bit)
            accelerator += modifier.name;
    }
    return accelerator + u"0x%1"_s.arg(*key, 2, 16, QChar(u'0'));
}

QVariant ShellInterface::keysOf(quint32 scanCode, qint64 modifiers)
{
    QList<uint> keys;
    for (const Modifier &modifier : modifierTable) {
        if (modifiers & modifier.bit)
            keys.append(modifier.key);
    }
    keys.append(scanCode - evdevOffset);
    return QVariant::fromValue(keys);
}

}
