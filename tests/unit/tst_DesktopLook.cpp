// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/XSettings.h"

#include <QDataStream>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

/// What the settings of desktops say of light, dark and the font.
class tst_DesktopLook : public QObject
{
    Q_OBJECT

    /// A property with a colour, a string and an integer.
    static QByteArray property(QDataStream::ByteOrder order, const QByteArray &theme)
    {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setByteOrder(order);
        const auto padded = [&out](QByteArray text) {
            text.append((4 - text.size() % 4) % 4, '\0');
            out.writeRawData(text.constData(), int(text.size()));
        };
        const auto begin = [&](quint8 type, const QByteArray &name) {
            out << type << quint8(0) << quint16(name.size());
            padded(name);
            out << quint32(7);
        };
        out << quint8(order == QDataStream::BigEndian) << quint8(0) << quint16(0) << quint32(7)
            << quint32(3);
        begin(2, "Net/Colour");
        out << quint64(0);
        begin(1, "Net/ThemeName");
        out << quint32(theme.size());
        padded(theme);
        begin(0, "Gtk/ApplicationPreferDarkTheme");
        out << qint32(1);
        return bytes;
    }

private Q_SLOTS:
    void readsXSettings()
    {
        for (const auto order : { QDataStream::LittleEndian, QDataStream::BigEndian }) {
            const QByteArray whole = property(order, "Arc");
            const QHash<QByteArray, QVariant> all { { "Net/ThemeName", QByteArray("Arc") },
                                                    { "Gtk/ApplicationPreferDarkTheme", 1 } };
            QCOMPARE(parseXSettings(whole), all);
            QCOMPARE(lookOfXSettings(all).isDark, true);
            // Cut off anywhere, or with any byte as large as can be: only what was said, if at all.
            for (qsizetype i = 0; i < whole.size(); ++i) {
                const auto beginning = parseXSettings(whole.left(i));
                QVERIFY(beginning.isEmpty()
                        || (beginning.size() == 1 && beginning.contains("Net/ThemeName")));
                QVERIFY(parseXSettings(QByteArray(whole).replace(i, 1, "\xff")).size() <= 2);
            }
        }
    }

    void readsNames()
    {
        const std::pair<QString, std::optional<bool>> themes[] {
            { {}, std::nullopt },
            { u"Adwaita"_s, false },
            { u"Yaru-dark"_s, true },
            { u"BreezeDark"_s, true },
            { u"Mint-Y-Dark-Aqua"_s, true },
            { u"Arc-Darker"_s, false },
            { u"HighContrastInverse"_s, true },
        };
        for (const auto &[name, isDark] : themes)
            QVERIFY2(isDarkTheme(name) == isDark, qPrintable(name));
        const std::pair<QString, std::optional<double>> fonts[] {
            { u"Noto Sans Bold 10.5"_s, 10.5 }, { u"Cantarell 16px"_s, 12 },
            { u"Sans"_s, std::nullopt },        { u"Sans -3"_s, std::nullopt },
            { u"Sans nan"_s, std::nullopt },
        };
        for (const auto &[description, size] : fonts)
            QVERIFY2(sizeOfPangoFont(description) == size, qPrintable(description));
    }

    void readsKdeGlobals()
    {
        using Look = DesktopLook;
        QCOMPARE(
            lookOfKdeGlobals("[Colors:View]\nBackgroundNormal=1,2,3\n[Colors:Window]\n"
                             "BackgroundNormal=239,240,241\n[General]\nColorScheme=BreezeDark\n"
                             "font=Noto Sans,11.5,-1,5,50\n"),
            (Look { false, 11.5 }));
        QCOMPARE(lookOfKdeGlobals("[General]\nColorScheme=BreezeDark\nfont=Noto Sans,-1,16,5\n"),
                 (Look { true, 12 }));
        QCOMPARE(lookOfKdeGlobals("[Colors:Window]\nBackgroundNormal=9\n[General]\nfont=,,"),
                 Look());
    }
};

QTEST_APPLESS_MAIN(tst_DesktopLook)
#include "tst_DesktopLook.moc"
