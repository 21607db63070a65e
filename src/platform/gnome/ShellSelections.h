// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandSelections.h"

#include <array>

namespace Tessel {

class ShellBridge;

/// The selections as the shell's extension tells of them.
class ShellSelections final : public WaylandSelections
{
    Q_OBJECT

public:
    explicit ShellSelections(const ShellBridge &bridge);

    [[nodiscard]] qint64 changeCount() const override { return m_changeCount; }
    [[nodiscard]] const QList<QByteArray> &mimeTypes(Selection selection) const override;
    [[nodiscard]] Descriptor receive(Selection selection,
                                     const QByteArray &mimeType) const override;

    void setClipboard(const QString &text);

private:
    void take(uint number, const QStringList &formats);

    const ShellBridge &m_bridge;
    std::array<QList<QByteArray>, 2> m_mimeTypes; ///< by the shell's numbers
    qint64 m_changeCount = 0;
};

}
