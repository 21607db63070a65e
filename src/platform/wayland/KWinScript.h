// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTemporaryFile>

namespace Tessel {

/// A script that runs in KWin (https://develop.kde.org/docs/plasma/kwin/api/), over D-Bus. Needs
/// buses that are ready (DesktopBus.h).
class KWinScript final : public QObject
{
    Q_OBJECT

public:
    /// Loads and starts it, in place of one with the same name that is still there.
    KWinScript(QString name, const QString &text);
    ~KWinScript() override; ///< ends it

private:
    QString m_name;
    QTemporaryFile m_file; ///< KWin reads it a moment after it was started
};

}
