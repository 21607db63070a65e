// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "files/Files.h"
#include "support/Session.h"

#include <QDirIterator>

#include <optional>

namespace Tessel {

/// A desktop with the program up and perhaps an editor on it, of either window system.
template <typename DesktopType, typename Program, typename EditorType> struct BasicStage
{
    DesktopType session;
    Program tessel { session };
    std::optional<EditorType> editor;

    [[nodiscard]] auto &user() const { return session.user(); }

    template <typename... Options> [[nodiscard]] bool start(const Options &...options)
    {
        const bool isUp = session.start(options...) && tessel.start();
        if (!isUp)
            qInfo("%s", qPrintable(session.errorString()));
        return isUp;
    }

    /// An editor with this text, all of it selected.
    template <typename Kind> [[nodiscard]] bool open(const QString &text, Kind kind)
    {
        return editor.emplace(session, kind).open(text) && editor->selectAll();
    }

    [[nodiscard]] bool logs(const QString &pattern)
    {
        return tessel.process().waitForOutput(QRegularExpression(pattern)).hasMatch();
    }

    /// A file in the home; empty when there is none.
    [[nodiscard]] QByteArray file(const QString &name) const
    {
        return readFile(session.homePath() + u'/' + name);
    }

    /// The content of the only file below a folder of the home; nothing when there is none.
    [[nodiscard]] std::optional<QString> onlyFile(const QString &folder) const
    {
        QDirIterator files(session.homePath() + u'/' + folder, QDir::Files);
        if (!files.hasNext())
            return {};
        const QByteArray content = readFile(files.next());
        return files.hasNext() ? std::nullopt : std::optional(QString::fromUtf8(content));
    }

    /// A calendar program, which leaves what it is to open in the folder "got" of the home.
    [[nodiscard]] bool installCalendar() const
    {
        const QString handler = session.homePath() + QStringLiteral("/calendar");
        return writeProgram(handler, QStringLiteral("cp \"$1\" \"$HOME/got/entry.ics\"\n"))
            && QDir().mkpath(session.homePath() + QStringLiteral("/got"))
            && writeFile(session.dataPath() + QStringLiteral("/applications/calendar.desktop"),
                         QStringLiteral("[Desktop Entry]\nType=Application\nName=Calendar\n"
                                        "Exec=%1 %f\nMimeType=text/calendar;\n")
                             .arg(handler))
            && writeFile(session.configPath() + QStringLiteral("/mimeapps.list"),
                         QStringLiteral("[Default Applications]\n"
                                        "text/calendar=calendar.desktop\n"));
    }

    [[nodiscard]] QStringList openedUrl() const { return session.urlRecorder().waitForUrls(1); }
};

}
