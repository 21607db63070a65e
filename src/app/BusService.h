// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>

namespace Tessel {

/// What other programs can have this one do, over the session bus: com.tessel.app at
/// /com/tessel/app. Comes when the bus can be used.
class BusService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.tessel.app")
    // clang-format off
    Q_CLASSINFO("D-Bus Introspection",
        "  <interface name=\"com.tessel.app\">\n"
        "    <!-- Does what the trigger key does: captures the selected text and shows the bar.\n"
        "         Not within a second after a capture. For key bindings of the desktop. -->\n"
        "    <method name=\"Trigger\"/>\n"
        "  </interface>\n")
    // clang-format on

public:
    /// The object is what gets the path.
    explicit BusService(QObject *object);

public Q_SLOTS:
    void Trigger() { Q_EMIT triggerRequested(); } // NOLINT(readability-identifier-naming)

Q_SIGNALS:
    void triggerRequested();

private:
    void appear();
};

}
