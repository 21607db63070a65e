// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ConfigHistory.h"

#include "base/Log.h"
#include "config/ConfigFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr int maxCopies = 5;
constexpr auto delay = 1s;
constexpr uint privateMode = 0600;

}

ConfigHistory::ConfigHistory(QString folder)
    : m_folder(std::move(folder))
{
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout([this] { write(); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &m_timer, [this] { write(); });
}

ConfigHistory::~ConfigHistory()
{
    write();
}

QString ConfigHistory::path(int number) const
{
    return m_folder + u"/config-%1.json"_s.arg(number);
}

void ConfigHistory::add(const QByteArray &json)
{
    if (m_folder.isEmpty() || (!m_waiting.isEmpty() && m_waiting.last() == json))
        return;
    m_waiting.append(json);
    if (m_waiting.size() > maxCopies)
        m_waiting.removeFirst();
    m_timer.start(delay);
}

void ConfigHistory::write()
{
    m_timer.stop();
    for (const QByteArray &json : std::exchange(m_waiting, {})) {
        if (const Result<void> kept = keep(json); !kept) {
            Log::print(u"WARNING: no copy of the configuration was kept: "_s + kept.error().reason);
            return;
        }
    }
}

Result<void> ConfigHistory::keep(const QByteArray &json) const
{
    if (ConfigFile::read(path(1)).valueOr({}) == json)
        return {};
    QDir().mkpath(m_folder);
    QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // A copy is complete before the others move up.
    if (Result<void> written = ConfigFile::write(path(0), json, privateMode); !written)
        return written;
    for (int number = maxCopies; number-- > 0;) {
        if (std::rename(QFile::encodeName(path(number)).constData(),
                        QFile::encodeName(path(number + 1)).constData())
                != 0
            && errno != ENOENT)
            return Failure { qt_error_string(errno) };
    }
    return {};
}

std::optional<QString> ConfigHistory::setNewestAside()
{
    write();
    const std::optional<QByteArray> newest = ConfigFile::read(path(1)).valueOr({});
    if (!newest)
        return {};
    const QString aside = m_folder + u"/config-before-defaults.json"_s;
    return ConfigFile::write(aside, *newest, privateMode) ? aside : path(1);
}

}
