// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinShortcut.h"

#include "base/KeyCodes.h"
#include "platform/EventMonitor.h"

#include <QTest>

using namespace Tessel;
using namespace KeyCodes;

class tst_KWinShortcut : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysAsKGlobalAccelHasThem()
    {
        const QList<std::pair<KeyChord, int>> rows {
            { { keyF2, 0 }, Qt::Key_F2 },
            { { keyF2, shift | control }, Qt::Key_F2 | int(Qt::SHIFT | Qt::CTRL) },
            { { 17, command | shift }, Qt::Key_T | int(Qt::META | Qt::SHIFT) },
            { { 18, option }, Qt::Key_1 | int(Qt::ALT) },
            { { 18, option | shift }, Qt::Key_Exclam | int(Qt::ALT) },
            { { 50, option }, Qt::Key_QuoteLeft | int(Qt::ALT) },
            { { 83, shift }, Qt::Key_1 | int(Qt::KeypadModifier | Qt::ShiftModifier) },
            { { 74, 0 }, 0 }, // mute: no key that KWin gives away
        };
        for (const auto &[chord, shortcut] : rows)
            QCOMPARE(kwinShortcut(chord), shortcut);
    }
};

QTEST_GUILESS_MAIN(tst_KWinShortcut)
#include "tst_KWinShortcut.moc"
