// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ChildProcess.h"
#include "support/UrlRecorder.h"

#include <QList>
#include <QRect>
#include <QSize>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace Tessel::Desktop {

class XClipboard;
class XUser;

struct DesktopOptions
{
    // Pixels of the root window; the first is the primary one. A monitor may lie left of or above
    // the root window (negative origin): programs see it, but the pointer cannot get there.
    QList<QRect> monitors { QRect(0, 0, 1280, 800) };
    // XKB layouts, separated by commas, as for setxkbmap(1).
    QString keyboardLayout = QStringLiteral("us");
    // Xft.dpi of the X resources, from which toolkits take their scale; 0 leaves it unset.
    int dpi = 0;
    bool windowManager = true; // openbox
    bool compositor = false; // picom
    bool sessionBus = true;
};

// A private desktop: an X server with a window manager, a session bus without activatable services,
// a home of its own and a handler for addresses. Everything that was started in it, and everything
// that those programs left behind, is ended by the destructor.
class DesktopSession final
{
public:
    DesktopSession();
    ~DesktopSession();
    Q_DISABLE_COPY_MOVE(DesktopSession)

    // Returns when the desktop is ready to be used; false with a reason in errorString().
    [[nodiscard]] bool start(const DesktopOptions &options = {});
    [[nodiscard]] QString errorString() const { return m_error; }

    [[nodiscard]] QString display() const { return m_display; }
    [[nodiscard]] QString homePath() const { return m_folder.filePath(QStringLiteral("home")); }
    [[nodiscard]] QString cachePath() const { return homePath() + QStringLiteral("/.cache"); }
    [[nodiscard]] QString configPath() const { return homePath() + QStringLiteral("/.config"); }
    [[nodiscard]] QString dataPath() const { return homePath() + QStringLiteral("/.local/share"); }
    [[nodiscard]] QString runtimePath() const { return m_folder.filePath(QStringLiteral("run")); }
    [[nodiscard]] QString temporaryPath() const { return m_folder.filePath(QStringLiteral("tmp")); }

    // What programs of this desktop get. Variables of the test's own environment are left out but
    // for PATH and the options of sanitizers.
    [[nodiscard]] QProcessEnvironment environment() const { return m_environment; }
    void setVariable(const QString &name, const QString &value);

    // The program runs in homePath() and belongs to the session. A program that could not be
    // started is not running.
    ChildProcess &launch(const QString &program, const QStringList &arguments = {});
    ChildProcess &launch(const QString &program, const QStringList &arguments,
                         const QProcessEnvironment &environment);

    // Starts the settings service of XFCE's programs, which the session's bus does not activate.
    void launchXfceSettings();

    // Replaces the keyboard layout of the running server.
    [[nodiscard]] bool setKeyboardLayout(const QString &layout);
    [[nodiscard]] bool startCompositor();

    // Valid after start().
    [[nodiscard]] XUser &user() const { return *m_user; }
    [[nodiscard]] XClipboard &clipboard() const { return *m_clipboard; }
    [[nodiscard]] const UrlRecorder &urlRecorder() const { return m_urlRecorder; }

private:
    [[nodiscard]] bool fail(const QString &reason);
    [[nodiscard]] bool prepareFolders();
    void prepareEnvironment();
    [[nodiscard]] bool startServer(const QSize &size);
    [[nodiscard]] bool defineMonitors(const QList<QRect> &monitors);
    [[nodiscard]] bool startBus();
    [[nodiscard]] bool startWindowManager();
    [[nodiscard]] bool run(const QString &program, const QStringList &arguments);
    bool killStragglers();

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QString m_display;
    QString m_error;
    UrlRecorder m_urlRecorder;
    std::vector<std::unique_ptr<ChildProcess>> m_children; // in the order of their start
    std::unique_ptr<XUser> m_user;
    std::unique_ptr<XClipboard> m_clipboard;
};

}
