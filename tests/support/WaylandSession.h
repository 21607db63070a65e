// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/WaylandDesktop.h"

#include <QList>
#include <QMap>

namespace Tessel::Desktop {

struct WaylandOptions
{
    bool kwin = false; // in place of sway
    // An output of outputSize for each, from left to right. sway only, as what follows.
    QList<double> scales { 1.0 };
    QString keyboardLayout = QStringLiteral("us"); // as for setxkbmap(1)
    bool x11 = false; // X11 programs can be started
};

// A private Wayland desktop: sway, with every window floating in the top left corner and the bare
// desktop beside it, or KWin. It runs in another sway, which has no screen, so that the user's
// keyboard and mouse are real ones for it. sway is an ordinary user's also when the test is root's.
class WaylandSession final : public WaylandDesktop
{
public:
    // Returns when the desktop is ready to be used; false with a reason in errorString().
    [[nodiscard]] bool start(const WaylandOptions &options = {});

    [[nodiscard]] bool waitForFocus(const QString &application) override;
    [[nodiscard]] QImage screenshot() override;
    [[nodiscard]] QString primarySelection() override;
    [[nodiscard]] QString clipboard() override;

    void endCompositor();

private:
    [[nodiscard]] bool startSway(const QString &name, const QString &configuration,
                                 QProcessEnvironment own);
    void readOffer(const QString &folder);
    [[nodiscard]] bool startKWin();
    [[nodiscard]] QString focusedApplication();
    [[nodiscard]] QString outputOf(const QString &program, const QStringList &arguments);

    bool m_isKWin = false;
    QMap<QString, QString> m_offered; // variables for programs of the compositor started last
    QString m_outerSocket;
    ChildProcess *m_compositor = nullptr;
};

}
