// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/UrlRecorder.h"

#include "support/TextFile.h"

#include <QTest>

namespace Tessel::Desktop {

namespace {

constexpr char handledTypes[] = "x-scheme-handler/http;x-scheme-handler/https;"
                                "x-scheme-handler/mailto;x-scheme-handler/tessel-test;";

QString defaultApplications()
{
    QString list = QStringLiteral("[Default Applications]\n");
    const auto types = QString::fromLatin1(handledTypes).split(u';', Qt::SkipEmptyParts);
    for (const auto &type : types)
        list += type + QStringLiteral("=url-recorder.desktop\n");
    return list;
}

}

bool UrlRecorder::install(const QString &binFolder, const QString &dataHome,
                          const QString &configHome)
{
    const QString script = binFolder + QStringLiteral("/url-recorder");
    m_recordFile = binFolder + QStringLiteral("/opened-urls");
    const auto entry = QStringLiteral("[Desktop Entry]\n"
                                      "Type=Application\n"
                                      "Name=URL recorder\n"
                                      "NoDisplay=true\n"
                                      "Exec=%1 %u\n"
                                      "MimeType=%2\n")
                           .arg(script, QString::fromLatin1(handledTypes));
    const auto command
        = QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$1\" >>'%1'\n").arg(m_recordFile);
    return writeFile(script, command)
        && QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner)
        && writeFile(dataHome + QStringLiteral("/applications/url-recorder.desktop"), entry)
        && writeFile(configHome + QStringLiteral("/mimeapps.list"), defaultApplications());
}

QStringList UrlRecorder::urls() const
{
    QFile file(m_recordFile);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

QStringList UrlRecorder::waitForUrls(int count, std::chrono::milliseconds timeout) const
{
    const auto enough = [this, count] { return urls().size() >= count; };
    [[maybe_unused]] const bool all = QTest::qWaitFor(enough, static_cast<int>(timeout.count()));
    return urls();
}

}
