// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/Host.h"

class DisplayConnection;

/// The CLIPBOARD selection. Text is put there by pbcopy, which stays to hand it out.
class DesktopClipboard final : public osascript::Clipboard
{
public:
    DesktopClipboard(DisplayConnection &display, QString helperFolder);

    std::optional<QString> text() override;
    osascript::Failure setText(const QString &text) override;

private:
    DisplayConnection &m_display;
    QString m_helperFolder;
};
