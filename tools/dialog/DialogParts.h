// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

class QPushButton;
class QWidget;

namespace Tessel {

/// What the dialogs are made of. Texts are shown as they are, never as rich text or mnemonics.
namespace DialogParts {

/// Of texts and of what stands below them, in pixels.
constexpr int textWidth = 380;

/// A label, or for long texts a box that scrolls. Words that are too wide are broken. The text can
/// be selected.
[[nodiscard]] QWidget *textView(const QString &text, QFont::Weight weight = QFont::Normal);

/// Too long a text is cut in the middle; assistive technology gets all of it.
[[nodiscard]] QPushButton *button(const QString &text);

/// What the buttons of a dialog say, in the user's language when they are those that AppleScript
/// itself gives a dialog. What a script has named stays as it is.
[[nodiscard]] QStringList shownNames(const QStringList &buttons);

void setTitle(QWidget *window, const QString &title);

/// Shows the window, in front and with the keyboard as far as the window manager lets it.
void present(QWidget *window);

}

}
