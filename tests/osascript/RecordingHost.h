// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

namespace Tessel {

/// A desktop of fixed contents that writes what is asked of it to standard error, one line each
/// that starts with "» ". The clipboard starts with $OSASCRIPT_CLIPBOARD; dialogs are answered with
/// $OSASCRIPT_ANSWER: a button, or for lists what is chosen, divided by bars; without it with the
/// default. "(none)" is a dialog without a display.
class RecordingHost final : Osascript::Clipboard,
                            Osascript::Keyboard,
                            Osascript::Dialogs,
                            Osascript::Desktop,
                            Osascript::ShortcutLibrary
{
public:
    RecordingHost();
    [[nodiscard]] Osascript::Host host() { return { *this, *this, *this, *this, *this }; }

private:
    std::optional<QString> text() override;
    Result<void> setText(const QString &text) override;
    Result<void> type(const QString &text, Osascript::Modifiers modifiers) override;
    Result<void> press(int keyCode, Osascript::Modifiers modifiers) override;
    std::optional<Osascript::DialogAnswer> ask(const Osascript::DialogRequest &request) override;
    std::optional<std::optional<QStringList>>
    choose(const Osascript::ListRequest &request) override;
    Result<void> notify(const DesktopNotification &notification) override;
    void beep() override;
    Result<void> say(const QString &text) override;
    QList<Osascript::Process> processes() override;
    bool isInstalled(const QString &application) override;
    bool isRunning(const QString &application) override;
    Result<void> activate(const QString &application) override;
    Result<void> launch(const QString &application) override;
    Result<void> quit(const QString &application) override;
    Result<void> open(const QString &target, const QString &application) override;
    Result<QString> openAs(const QString &path, const QString &mimeType) override;
    Result<void> reveal(const QString &path) override;
    QStringList names() override;
    Result<QString> run(const QString &name, const QString &input) override;

    std::optional<QString> m_clipboard;
    QString m_answer;
};

}
