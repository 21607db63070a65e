// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

#include <QJsonObject>

namespace Tessel {

class DisplayConnection;

/// Dialogs by tessel-dialog, notifications by tessel-notify, speech by the speech program that is
/// installed (espeak-ng, espeak or spd-say).
class DesktopDialogs final : public Osascript::Dialogs
{
public:
    DesktopDialogs(DisplayConnection &display, QString helperFolder);

    std::optional<Osascript::DialogAnswer> ask(const Osascript::DialogRequest &request) override;
    std::optional<std::optional<QStringList>>
    choose(const Osascript::ListRequest &request) override;
    Result<void> notify(const DesktopNotification &notification) override;
    void beep() override;
    Result<void> say(const QString &text) override;

private:
    [[nodiscard]] std::optional<QJsonObject> show(const QJsonObject &request) const;

    DisplayConnection &m_display;
    QString m_helperFolder;
};

}
