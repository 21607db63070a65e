// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "notify/LastNotification.h"

#include <QDir>
#include <QSaveFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

LastNotification::LastNotification(const QString &topic, QString server)
    : m_server(std::move(server))
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!topic.isEmpty() && QDir(folder).isAbsolute())
        m_path = folder + u"/tessel-notification-"_s + topic;
}

uint LastNotification::id() const
{
    QFile file(m_path);
    if (m_path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return 0;
    const QStringList parts = QString::fromUtf8(file.read(100)).split(u' ');
    return parts.value(0) == m_server ? parts.value(1).toUInt() : 0;
}

void LastNotification::setId(uint id) const
{
    QSaveFile file(m_path);
    if (m_path.isEmpty() || !file.open(QIODevice::WriteOnly))
        return;
    file.write((m_server + u' ' + QString::number(id)).toUtf8());
    file.commit();
}

}
