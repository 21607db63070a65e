// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeTextClipboard.h"

#include "platform/gnome/ShellCalls.h"
#include "platform/gnome/ShellInterface.h"
#include "platform/wayland/WaylandSelectionTransfer.h"

#include <QDBusUnixFileDescriptor>

#include <array>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// The clipboard as it is at the moment.
class Snapshot final : public WaylandSelections
{
public:
    Snapshot()
    {
        const auto reply = ShellCalls::call("Formats", { number });
        const QStringList formats = reply.value_or(QVariantList()).value(0).toStringList();
        for (const QString &format : formats)
            m_mimeTypes.append(format.toUtf8());
    }

    [[nodiscard]] qint64 changeCount() const override { return 0; }
    [[nodiscard]] const QList<QByteArray> &mimeTypes(Selection) const override
    {
        return m_mimeTypes;
    }
    [[nodiscard]] Descriptor receive(Selection, const QByteArray &mimeType) const override;

private:
    static constexpr uint number = ShellInterface::numberOf(Selection::clipboard);

    QList<QByteArray> m_mimeTypes;
};

Descriptor Snapshot::receive(Selection, const QByteArray &mimeType) const
{
    std::array<int, 2> ends { -1, -1 };
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return {};
    Descriptor from(ends[0]);
    const Descriptor to(ends[1]); // the message has a copy
    const auto asked
        = ShellCalls::call("Receive",
                           { number, QString::fromUtf8(mimeType),
                             QVariant::fromValue(QDBusUnixFileDescriptor(to.number())) });
    return asked ? std::move(from) : Descriptor();
}

}

std::optional<QByteArray> GnomeTextClipboard::text()
{
    const Snapshot clipboard;
    return WaylandSelectionTransfer(clipboard, WaylandSelections::Selection::clipboard, 2s, 30s)
        .wait();
}

Result<void> GnomeTextClipboard::take(const QByteArray &text)
{
    if (ShellCalls::call("SetClipboard", { text }))
        return {};
    return Failure { u"GNOME Shell did not take the text."_s };
}

}
