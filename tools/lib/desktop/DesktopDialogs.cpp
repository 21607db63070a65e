// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopDialogs.h"

#include "lib/desktop/DisplayConnection.h"
#include "lib/dialog/DialogProtocol.h"
#include "lib/support/RunProgram.h"

#include <QJsonDocument>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

QByteArray bytes(const QJsonObject &json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

Result<void> withoutOutput(const Result<QByteArray> &result)
{
    return result ? Result<void>() : result.error();
}

}

DesktopDialogs::DesktopDialogs(DisplayConnection &display, QString helperFolder)
    : m_display(display)
    , m_helperFolder(std::move(helperFolder))
{
}

/// Nothing when the dialog was not answered, be it for want of a display.
std::optional<QJsonObject> DesktopDialogs::show(const QJsonObject &request) const
{
    const auto result = runProgram(m_helperFolder + u"/tessel-dialog"_s, {}, bytes(request));
    if (!result)
        return {};
    return QJsonDocument::fromJson(*result).object();
}

std::optional<Osascript::DialogAnswer> DesktopDialogs::ask(const Osascript::DialogRequest &request)
{
    const auto answer = show(DialogProtocol::toJson(request));
    return answer ? std::optional(DialogProtocol::dialogAnswer(*answer, request)) : std::nullopt;
}

std::optional<std::optional<QStringList>>
DesktopDialogs::choose(const Osascript::ListRequest &request)
{
    const auto answer = show(DialogProtocol::toJson(request));
    if (!answer)
        return {};
    return std::make_optional(DialogProtocol::listAnswer(*answer, request));
}

Result<void> DesktopDialogs::notify(const DesktopNotification &notification)
{
    const CommandRequest command = notificationCommand(notification, m_helperFolder);
    return withoutOutput(runProgram(command.program, {}, *command.input));
}

void DesktopDialogs::beep()
{
    if (HelperPlatform *desktop = m_display.platform().valueOr(nullptr))
        desktop->ringBell();
}

Result<void> DesktopDialogs::say(const QString &text)
{
    for (const QString &name : { u"espeak-ng"_s, u"espeak"_s }) {
        const QString program = QStandardPaths::findExecutable(name);
        if (!program.isEmpty())
            return withoutOutput(runProgram(program, { u"--stdin"_s }, text.toUtf8()));
    }
    const QString client = QStandardPaths::findExecutable(u"spd-say"_s);
    if (!client.isEmpty())
        return withoutOutput(runProgram(client, { u"--wait"_s, u"--"_s, text }));
    return Failure { u"No program to speak with is installed (espeak-ng, espeak or spd-say)."_s };
}

}
