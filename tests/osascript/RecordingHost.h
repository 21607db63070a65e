// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <Host.h>

/// A desktop of fixed contents that writes what is asked of it to standard error, one line each
/// that starts with "» ". The clipboard starts with $OSASCRIPT_CLIPBOARD; dialogs are answered with
/// $OSASCRIPT_ANSWER: a button, or for lists what is chosen, divided by bars; without it with the
/// default. "(none)" is a dialog without a display.
class RecordingHost final : osascript::Clipboard,
                            osascript::Keyboard,
                            osascript::Dialogs,
                            osascript::Desktop,
                            osascript::ShortcutLibrary
{
public:
    RecordingHost();
    [[nodiscard]] osascript::Host host() { return { *this, *this, *this, *this, *this }; }

private:
    using Failure = osascript::Failure;

    std::optional<QString> text() override;
    Failure setText(const QString &text) override;
    Failure type(const QString &text, osascript::Modifiers modifiers) override;
    Failure press(int keyCode, osascript::Modifiers modifiers) override;
    std::optional<osascript::DialogAnswer> ask(const osascript::DialogRequest &request) override;
    std::optional<std::optional<QStringList>>
    choose(const osascript::ListRequest &request) override;
    Failure notify(const QString &text, const QString &title, const QString &subtitle,
                   const QString &file) override;
    void beep() override;
    Failure say(const QString &text) override;
    QList<osascript::Process> processes() override;
    bool isInstalled(const QString &application) override;
    bool isRunning(const QString &application) override;
    Failure activate(const QString &application) override;
    Failure launch(const QString &application) override;
    Failure quit(const QString &application) override;
    Failure open(const QString &target, const QString &application) override;
    Failure reveal(const QString &path) override;
    QStringList names() override;
    osascript::ShortcutResult run(const QString &name, const QString &input) override;

    std::optional<QString> m_clipboard;
    QString m_answer;
};
