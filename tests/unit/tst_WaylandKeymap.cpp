// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/KeySymbols.h"
#include "platform/wayland/WaylandKeymap.h"

#include <QSet>
#include <QTest>

#include <linux/input-event-codes.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

class tst_WaylandKeymap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// What a US keyboard has is where it has it, the rest on typing keys; X11 programs have no
    /// keys above 255, though the US layout has the euro there.
    void typesAnything()
    {
        QString lacking = u"€éñß안녕привет‘’😀"_s;
        while (lacking.toUcs4().size() < WaylandKeymap::maxFurther)
            lacking += QChar(char16_t(0x4e00 + lacking.size()));
        const auto keymap = WaylandKeymap::make(KeySymbols::ofText(lacking));
        QVERIFY(keymap && !keymap->text().isEmpty());
        QSet<std::pair<quint32, bool>> places;
        for (const quint32 symbol : KeySymbols::ofText(lacking)) {
            const auto stroke = keymap->stroke(symbol);
            QVERIFY2(stroke && stroke->group == 1, qPrintable(QString::number(symbol, 16)));
            QVERIFY(stroke->scanCode < KEY_SPACE + 8);
            places.insert({ stroke->scanCode, stroke->shift });
        }
        QCOMPARE(places.size(), WaylandKeymap::maxFurther);
        struct Key
        {
            char32_t character;
            quint32 code;
            bool shift;
        };
        for (const Key &key :
             { Key { U'a', KEY_A, false }, Key { U'Z', KEY_Z, true }, Key { U'<', KEY_COMMA, true },
               Key { U'(', KEY_9, true }, Key { U'\n', KEY_ENTER, false } }) {
            const auto stroke = keymap->stroke(KeySymbols::ofCharacter(key.character));
            QVERIFY(stroke && stroke->group == 0);
            QCOMPARE(stroke->scanCode, key.code + 8);
            QCOMPARE(stroke->shift, key.shift);
        }
        QVERIFY(!keymap->stroke(KeySymbols::ofCharacter(U'☃')));
    }

    void knowsWhatLayoutsHaveInCommon()
    {
        const auto keymap = WaylandKeymap::read(
            "xkb_keymap { xkb_keycodes { include \"evdev\" }; xkb_types { include \"complete\" };"
            "xkb_compat { include \"complete\" }; xkb_symbols { include \"pc+us+ru:2\" }; };");
        QVERIFY(keymap && keymap->groups() == 2);
        for (const char32_t character : U"1!\n"sv)
            QVERIFY(keymap->commonStroke(KeySymbols::ofCharacter(character), 2));
        for (const char32_t character : U"a@"sv) {
            QVERIFY(keymap->commonStroke(KeySymbols::ofCharacter(character), 1));
            QVERIFY(!keymap->commonStroke(KeySymbols::ofCharacter(character), 2));
        }
        QVERIFY(keymap->stroke(KeySymbols::ofCharacter(U'ж')));
        QVERIFY(!keymap->commonStroke(KeySymbols::ofCharacter(U'ж'), 1));
    }
};

QTEST_GUILESS_MAIN(tst_WaylandKeymap)
#include "tst_WaylandKeymap.moc"
