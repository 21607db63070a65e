// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace Tessel {

/// A format in which a selection may have text: on X11 a target (ICCCM, section 2.6.2), on Wayland
/// a MIME type.
struct TextFormat
{
    const char *name;
    enum class Charset { utf8, latin1 } charset = Charset::utf8;
};

/// In order of preference. Whoever has text/plain alone has UTF-8 today.
inline constexpr TextFormat textFormats[] = {
    { "UTF8_STRING" },
    { "text/plain;charset=utf-8" },
    { "STRING", TextFormat::Charset::latin1 },
    { "text/plain" },
};

/// Offered by file managers for copied files, whose paths they offer as text as well.
inline constexpr const char *copiedFiles = "text/uri-list";

/// Offered by password managers, with this as its value (KDE's clipboard introduced it).
inline constexpr const char *passwordHint = "x-kde-passwordManagerHint";
inline constexpr const char *secretHint = "secret";

/// More is no text that somebody has selected.
inline constexpr qsizetype maxSelectionBytes = 64 << 20;

/// A text format with its name as an owner spells it.
struct OfferedFormat
{
    QByteArray name;
    TextFormat::Charset charset;
};

/// The preferred one of what is offered. The case of letters does not matter (RFC 2045, section 2).
[[nodiscard]] std::optional<OfferedFormat> textFormatOf(const QList<QByteArray> &offered);

[[nodiscard]] QByteArray toUtf8(const QByteArray &bytes, TextFormat::Charset charset);

/// Nothing when ISO 8859-1 lacks a character of the text, or when that is no UTF-8.
[[nodiscard]] std::optional<QByteArray> toLatin1(const QByteArray &utf8);

/// The text without the terminators that some owners count.
[[nodiscard]] QString selectedText(QByteArrayView utf8);

}
