// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/DesktopNotification.h"
#include "base/Result.h"
#include "base/ShortcutModifiers.h"

#include <QStringList>

#include <chrono>
#include <optional>

/// What a script can ask of the computer, as narrow interfaces, so that the language knows no
/// desktop. Every call may block; all are made from the one thread that runs the script. Reasons of
/// failures are in plain English.
namespace Tessel::Osascript {

class Clipboard
{
public:
    virtual ~Clipboard() = default;
    /// The clipboard's text; nothing when it has none or its owner does not answer.
    virtual std::optional<QString> text() = 0;
    /// Returns when the text is on the clipboard, where it stays after the process has ended.
    virtual Result<void> setText(const QString &text) = 0;
};

using Modifiers = ShortcutModifiers;

class Keyboard
{
public:
    virtual ~Keyboard() = default;
    /// Types the text, whatever the layout is.
    virtual Result<void> type(const QString &text, Modifiers modifiers) = 0;
    /// Presses and releases the key with this virtual key code (as in KeyCodes.h).
    virtual Result<void> press(int keyCode, Modifiers modifiers) = 0;
};

struct DialogRequest
{
    enum class Icon { none, note, caution, stop };

    QString message;
    QString detail; ///< smaller text under the message, as alerts have it
    QString title;
    QStringList buttons; ///< from left to right, one to three
    QString defaultButton; ///< one of them, or empty: none
    QString cancelButton; ///< one of them, or empty: none
    std::optional<QString> defaultAnswer; ///< shows a text field with this in it
    bool hiddenAnswer = false;
    Icon icon = Icon::none;
    std::optional<std::chrono::milliseconds> givingUpAfter;
};

struct DialogAnswer
{
    QString button; ///< empty when the dialog gave up
    QString text; ///< of the text field
    bool gaveUp = false;
};

struct ListRequest
{
    QStringList items;
    QString title;
    QString prompt;
    QStringList defaultItems;
    QString okButton;
    QString cancelButton;
    bool multipleSelections = false;
    bool emptySelection = false;
};

class Dialogs
{
public:
    virtual ~Dialogs() = default;
    /// Nothing when there is no display to show it on. Closing the window is the cancel button, or
    /// the only button.
    virtual std::optional<DialogAnswer> ask(const DialogRequest &request) = 0;
    /// The chosen items; an inner nothing when the user cancelled; an outer one without a display.
    virtual std::optional<std::optional<QStringList>> choose(const ListRequest &request) = 0;
    virtual Result<void> notify(const DesktopNotification &notification) = 0;
    virtual void beep() = 0;
    virtual Result<void> say(const QString &text) = 0;
};

struct Process
{
    QString name; ///< as the desktop shows it
    QString identifier; ///< of the desktop entry or of the window's class
    qint64 id = 0; ///< 0: the desktop does not tell
    bool isFrontmost = false;
    bool isVisible = false;
};

class Desktop
{
public:
    virtual ~Desktop() = default;
    /// The applications with a window, the frontmost first.
    virtual QList<Process> processes() = 0;
    /// Whether an application of this name is installed (a desktop entry's name or identifier,
    /// whatever the case).
    virtual bool isInstalled(const QString &application) = 0;
    virtual bool isRunning(const QString &application) = 0;
    /// Brings its windows to the front, starts it when it does not run.
    virtual Result<void> activate(const QString &application) = 0;
    virtual Result<void> launch(const QString &application) = 0;
    virtual Result<void> quit(const QString &application) = 0;
    /// Gives a URL or an absolute path to its default handler, or to the application named.
    virtual Result<void> open(const QString &target, const QString &application) = 0;
    /// Opens a file with the application for that very MIME type, not one for a type that it is a
    /// kind of, and gives the application's name.
    virtual Result<QString> openAs(const QString &path, const QString &mimeType) = 0;
    /// Shows the file in the file manager.
    virtual Result<void> reveal(const QString &path) = 0;
};

class ShortcutLibrary
{
public:
    virtual ~ShortcutLibrary() = default;
    virtual QStringList names() = 0; ///< in NFC, sorted
    virtual Result<QString> run(const QString &name, const QString &input) = 0;
};

struct Host
{
    Clipboard &clipboard;
    Keyboard &keyboard;
    Dialogs &dialogs;
    Desktop &desktop;
    ShortcutLibrary &shortcuts;
};

}
