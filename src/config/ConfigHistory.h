// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArrayList>
#include <QTimer>

#include <optional>

namespace Tessel {

/// The last five configurations that were good, for the user to bring one back by hand:
/// "config-1.json", the newest, to "config-5.json". Nobody else can read them. Main thread only.
class ConfigHistory final
{
public:
    /// `folder` is made when it is needed; empty: nothing is kept.
    explicit ConfigHistory(QString folder);
    ~ConfigHistory();
    Q_DISABLE_COPY_MOVE(ConfigHistory)

    /// Keeps the content of a file, unless it is the newest already. That happens a second later,
    /// or when the program ends, so that no start waits for it.
    void add(const QByteArray &json);

    /// Makes a copy of the newest that later ones do not push out, only the next such call does.
    /// Its path; nothing when none was kept so far.
    [[nodiscard]] std::optional<QString> setNewestAside();

private:
    void write();
    [[nodiscard]] Result<void> keep(const QByteArray &json) const;
    [[nodiscard]] QString path(int number) const;

    QString m_folder;
    QByteArrayList m_waiting; ///< oldest first
    QTimer m_timer;
};

}
