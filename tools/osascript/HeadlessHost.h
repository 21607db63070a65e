// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Host.h"

namespace osascript {

/// A computer without a desktop: the language works, everything else says that it cannot.
class HeadlessHost final : Clipboard, Keyboard, Dialogs, Desktop, ShortcutLibrary
{
public:
    [[nodiscard]] Host host() { return { *this, *this, *this, *this, *this }; }

private:
    [[nodiscard]] static QString reason() { return QStringLiteral("There is no desktop here"); }

    std::optional<QString> text() override { return std::nullopt; }
    Failure setText(const QString & /*text*/) override { return reason(); }
    Failure type(const QString & /*text*/, Modifiers /*modifiers*/) override { return reason(); }
    Failure press(int /*keyCode*/, Modifiers /*modifiers*/) override { return reason(); }
    std::optional<DialogAnswer> ask(const DialogRequest & /*request*/) override { return {}; }
    std::optional<std::optional<QStringList>> choose(const ListRequest & /*request*/) override
    {
        return {};
    }
    Failure notify(const QString & /*text*/, const QString & /*title*/,
                   const QString & /*subtitle*/, const QString & /*file*/) override
    {
        return reason();
    }
    void beep() override { }
    Failure say(const QString & /*text*/) override { return reason(); }
    QList<Process> processes() override { return {}; }
    bool isInstalled(const QString & /*application*/) override { return false; }
    bool isRunning(const QString & /*application*/) override { return false; }
    Failure activate(const QString & /*application*/) override { return reason(); }
    Failure launch(const QString & /*application*/) override { return reason(); }
    Failure quit(const QString & /*application*/) override { return reason(); }
    Failure open(const QString & /*target*/, const QString & /*application*/) override
    {
        return reason();
    }
    Failure reveal(const QString & /*path*/) override { return reason(); }
    QStringList names() override { return {}; }
    ShortcutResult run(const QString & /*name*/, const QString & /*input*/) override
    {
        return { reason(), {} };
    }
};

}
