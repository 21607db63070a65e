// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/XSettings.h"

#include <QDataStream>
#include <QIODevice>

namespace Tessel {

namespace {

enum SettingType : quint8 { integerType, stringType, colorType };
constexpr int colorSize = 8;

/// Bytes that are followed by as many as make their number one of four.
QByteArray paddedBytes(QDataStream &in, quint32 length)
{
    if (length > in.device()->bytesAvailable()) {
        in.setStatus(QDataStream::ReadPastEnd);
        return {};
    }
    QByteArray bytes = in.device()->read(length);
    in.device()->skip((4 - length % 4) % 4);
    return bytes;
}

template <typename T> T number(QDataStream &in)
{
    T value = 0;
    in >> value;
    return value;
}

}

QHash<QByteArray, QVariant> parseXSettings(const QByteArray &property)
{
    QHash<QByteArray, QVariant> settings;
    QDataStream in(property);
    // As in the requests of the X protocol: 0 is LSBFirst.
    in.setByteOrder(property.startsWith('\0') ? QDataStream::LittleEndian : QDataStream::BigEndian);
    in.skipRawData(8); // the order, and a serial number
    for (auto left = number<quint32>(in); left > 0 && in.status() == QDataStream::Ok; --left) {
        const auto type = number<quint8>(in);
        in.skipRawData(1);
        const auto nameLength = number<quint16>(in);
        const QByteArray name = paddedBytes(in, nameLength);
        in.skipRawData(4); // the serial number of its last change
        QVariant value;
        if (type == integerType)
            value = number<qint32>(in);
        else if (type == stringType)
            value = paddedBytes(in, number<quint32>(in));
        else if (type != colorType || in.skipRawData(colorSize) != colorSize)
            break; // nobody knows where the next one begins
        if (value.isValid() && in.status() == QDataStream::Ok)
            settings.insert(name, value);
    }
    return settings;
}

DesktopLook lookOfXSettings(const QHash<QByteArray, QVariant> &settings)
{
    const auto text = [&settings](const char *name) {
        return QString::fromUtf8(settings.value(name).toByteArray());
    };
    DesktopLook look { isDarkTheme(text("Net/ThemeName")), sizeOfPangoFont(text("Gtk/FontName")) };
    if (settings.value("Gtk/ApplicationPreferDarkTheme").toInt() == 1)
        look.isDark = true;
    return look;
}

}
