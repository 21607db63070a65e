// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellSelections.h"

#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellInterface.h"

#include <QDBusUnixFileDescriptor>

#include <fcntl.h>

namespace Tessel {

ShellSelections::ShellSelections(const ShellBridge &bridge)
    : m_bridge(bridge)
{
    connect(&bridge, &ShellBridge::selectionChanged, this, &ShellSelections::take);
    connect(&bridge, &ShellBridge::detached, this, [this] { m_mimeTypes = {}; });
}

void ShellSelections::take(uint number, const QStringList &formats)
{
    if (number >= m_mimeTypes.size())
        return;
    QList<QByteArray> &types = m_mimeTypes[number];
    types.clear();
    for (const QString &format : formats)
        types.append(format.toUtf8());
    const bool isClipboard = number == ShellInterface::numberOf(Selection::clipboard);
    if (isClipboard && !types.isEmpty())
        ++m_changeCount;
    Q_EMIT changed(isClipboard ? Selection::clipboard : Selection::primary);
}

const QList<QByteArray> &ShellSelections::mimeTypes(Selection selection) const
{
    return m_mimeTypes[ShellInterface::numberOf(selection)];
}

Descriptor ShellSelections::receive(Selection selection, const QByteArray &mimeType) const
{
    std::array<int, 2> ends { -1, -1 };
    if (!m_bridge.isAttached() || mimeTypes(selection).isEmpty()
        || pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return {};
    Descriptor from(ends[0]);
    const Descriptor to(ends[1]); // the message has a copy
    m_bridge.send("Receive",
                  { ShellInterface::numberOf(selection), QString::fromUtf8(mimeType),
                    QVariant::fromValue(QDBusUnixFileDescriptor(to.number())) });
    return from;
}

void ShellSelections::setClipboard(const QString &text)
{
    m_bridge.send("SetClipboard", { text.toUtf8() });
}

}
