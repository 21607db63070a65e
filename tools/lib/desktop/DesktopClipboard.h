// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

namespace Tessel {

class DisplayConnection;

/// The desktop's clipboard. Text is put there by pbcopy, which stays to hand it out.
class DesktopClipboard final : public Osascript::Clipboard
{
public:
    DesktopClipboard(DisplayConnection &display, QString helperFolder);

    std::optional<QString> text() override;
    Result<void> setText(const QString &text) override;

private:
    DisplayConnection &m_display;
    QString m_helperFolder;
};

}
