// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

namespace Tessel {

/// The arguments of the process for an application object, which they have to outlive, with Qt's
/// plugin for windows as the last one. In the environment, children would get it too.
class QtArguments final
{
public:
    /// An empty plugin leaves the choice to Qt.
    QtArguments(int argc, char *argv[], QByteArray plugin)
        : m_plugin(std::move(plugin))
        , m_values(argv, argv + argc)
    {
        if (!m_plugin.isEmpty())
            m_values += { m_option.data(), m_plugin.data() };
        m_count = int(m_values.size());
        m_values += nullptr;
    }
    Q_DISABLE_COPY_MOVE(QtArguments)

    [[nodiscard]] int &count() { return m_count; }
    [[nodiscard]] char **values() { return m_values.data(); }

private:
    QByteArray m_option = "-platform";
    QByteArray m_plugin;
    QList<char *> m_values;
    int m_count = 0;
};

}
