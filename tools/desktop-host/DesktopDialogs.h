// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/Host.h"

#include <QJsonObject>

class DisplayConnection;

/// Dialogs by tessel-dialog, notifications by tessel-notify, speech by the speech program that is
/// installed (espeak-ng, espeak or spd-say).
class DesktopDialogs final : public osascript::Dialogs
{
public:
    DesktopDialogs(DisplayConnection &display, QString helperFolder);

    std::optional<osascript::DialogAnswer> ask(const osascript::DialogRequest &request) override;
    std::optional<std::optional<QStringList>>
    choose(const osascript::ListRequest &request) override;
    osascript::Failure notify(const QString &text, const QString &title, const QString &subtitle,
                              const QString &file) override;
    void beep() override;
    osascript::Failure say(const QString &text) override;

private:
    [[nodiscard]] std::optional<QJsonObject> show(const QJsonObject &request) const;

    DisplayConnection &m_display;
    QString m_helperFolder;
};
