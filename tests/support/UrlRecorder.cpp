// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/UrlRecorder.h"

#include "files/Files.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr char handledTypes[] = "x-scheme-handler/http;x-scheme-handler/https;"
                                "x-scheme-handler/mailto;x-scheme-handler/tessel-test;";

QString defaultApplications()
{
    QString list = u"[Default Applications]\n"_s;
    const auto types = QString::fromLatin1(handledTypes).split(u';', Qt::SkipEmptyParts);
    for (const auto &type : types)
        list += type + u"=url-recorder.desktop\n"_s;
    return list;
}

}

bool UrlRecorder::install(const QString &binFolder, const QString &dataHome,
                          const QString &configHome)
{
    const QString script = binFolder + u"/url-recorder"_s;
    m_recordFile = binFolder + u"/opened-urls"_s;
    const auto entry = u"[Desktop Entry]\n"
                       "Type=Application\n"
                       "Name=URL recorder\n"
                       "NoDisplay=true\n"
                       "Exec=%1 %u\n"
                       "MimeType=%2\n"_s.arg(script, QString::fromLatin1(handledTypes));
    const auto command = u"printf '%s\\n' \"$1\" >>'%1'\n"_s.arg(m_recordFile);
    return writeProgram(script, command)
        && writeFile(dataHome + u"/applications/url-recorder.desktop"_s, entry)
        && writeFile(configHome + u"/mimeapps.list"_s, defaultApplications());
}

QStringList UrlRecorder::urls() const
{
    return QString::fromUtf8(readFile(m_recordFile)).split(u'\n', Qt::SkipEmptyParts);
}

QStringList UrlRecorder::waitForUrls(int count, std::chrono::milliseconds timeout) const
{
    const auto enough = [this, count] { return urls().size() >= count; };
    [[maybe_unused]] const bool all = QTest::qWaitFor(enough, static_cast<int>(timeout.count()));
    return urls();
}

}
