// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PanelKeys.h"
#include "bar/PanelLayout.h"
#include "base/KeyCodes.h"
#include "platform/PopupHost.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_PanelLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arranges()
    {
        const PanelLayout::Layout layout = PanelLayout::arrange({ 38, 38, 80, 38, 38, 38, 38 });
        // Rows of 5 and 2: 38 + 2 + 38 + 2 + 80 + 2 + 38 + 2 + 38 wide, 38 + 2 + 38 high.
        QCOMPARE(layout.window, QSize(240 + 24 + 40, 78 + 16 + 40));
        QCOMPARE(layout.bar, QRect(22, 20, 12 + 240 + 8, 8 + 78 + 8));
        QCOMPARE(layout.buttons.size(), 7);
        QCOMPARE(layout.buttons[3], QRect(34 + 162, 28, 38, 38));
        QCOMPARE(layout.buttons[6], QRect(74, 68, 38, 38));
    }

    void places()
    {
        // The window is 262 x 94: its margin ends 20 below the bar, which is 10 above the pointer.
        const QRect screen(0, 30, 1920, 1050);
        const QRect otherScreen(-1920, -1080, 1920, 1080);
        const std::tuple<QPoint, std::optional<QRect>, QPoint> cases[] = {
            { { 960, 540 }, screen, { 829, 456 } },
            { { 5, 5 }, {}, { -126, -79 } },
            { { 111, 540 }, screen, { -20, 456 } }, // as far left as it goes
            { { 112, 540 }, screen, { -19, 456 } },
            { { 1809, 540 }, screen, { 1678, 456 } }, // right
            { { 960, 144 }, screen, { 829, 60 } }, // just fits above the pointer
            { { 960, 143 }, screen, { 829, 173 } },
            { { 960, 2000 }, screen, { 829, 1916 } },
            { { 500, 90 }, QRect(0, 0, 1000, 100), { 369, 120 } }, // neither above nor below
            { { 2500, 540 }, screen, { 1678, 456 } },
            { { -960, -970 }, otherScreen, { -1091, -940 } },
            { { 50, 500 }, QRect(0, 0, 200, 800), { -42, 416 } }, // wider than the screen
        };
        for (const auto &[pointer, frame, corner] : cases)
            QCOMPARE(PanelLayout::place(pointer, QSize(262, 94), frame), corner);
    }

    void keys()
    {
        QCOMPARE(PanelLayout::shortcutCharacter(19), 'B');
        QCOMPARE(PanelLayout::shortcutCharacter(20), '\0');
        constexpr qint64 keyQ = 12, key1 = 18, keyH = 4, keyPad5 = 87;
        using Kind = PanelKeyDecision::Kind;
        struct Case
        {
            PopupKey key;
            bool isEnabled;
            Kind kind;
            int button = -1;
        };
        const Case cases[] = {
            { { key1, u"1"_s, false }, true, Kind::pick, 0 },
            { { keyQ, u"Q"_s, false }, true, Kind::pick, 5 },
            { { keyPad5, u"5"_s, false }, true, Kind::pick, 4 },
            { { keyQ, u"й"_s, false }, true, Kind::pick, 5 },
            { { key1, u"&"_s, false }, true, Kind::pick, 0 }, // AZERTY
            { { keyQ, u"a"_s, false }, true, Kind::pick, 10 },
            { { keyH, u"h"_s, false }, true, Kind::ignore },
            { { key1, u"1"_s, false }, false, Kind::ignore },
            { { KeyCodes::keyEscape, u"\x1b"_s, false }, false, Kind::hide },
            { { KeyCodes::keyComma, u","_s, true }, true, Kind::openSettings },
            { { KeyCodes::keyComma, u","_s, false }, true, Kind::ignore },
        };
        for (const auto &[key, isEnabled, kind, button] : cases)
            QVERIFY2((decidePanelKey(key, isEnabled) == PanelKeyDecision { kind, button }),
                     qUtf8Printable(key.characters));
    }
};

QTEST_APPLESS_MAIN(tst_PanelLayout)
#include "tst_PanelLayout.moc"
