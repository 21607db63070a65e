// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ChildProcess.h"

#include <QStringList>

namespace Tessel::Desktop {

// The default handler of web, mail and "tessel-test:" addresses in a private home: it writes down
// what it was asked to open.
class UrlRecorder final
{
public:
    // Writes the handler, its desktop entry and mimeapps.list (freedesktop.org "MIME applications")
    // into the folders, which must exist. False when a file cannot be written.
    [[nodiscard]] bool install(const QString &binFolder, const QString &dataHome,
                               const QString &configHome);

    // In the order in which they were opened.
    [[nodiscard]] QStringList urls() const;
    // Waits for at least so many. Gives what there is after the timeout.
    [[nodiscard]] QStringList waitForUrls(int count,
                                          std::chrono::milliseconds timeout = defaultTimeout) const;

private:
    QString m_recordFile;
};

}
