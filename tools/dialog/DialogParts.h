// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QPushButton;
class QWidget;

/// What the dialogs are made of. Texts are shown as they are, never as rich text or mnemonics.
namespace DialogParts {

/// A label, or for long texts a box that scrolls. The text can be selected.
[[nodiscard]] QWidget *textView(const QString &text);

/// Too long a text is cut in the middle; assistive technology gets all of it.
[[nodiscard]] QPushButton *button(const QString &text);

void setTitle(QWidget *window, const QString &title);

/// Shows the window, in front and with the keyboard as far as the window manager lets it.
void present(QWidget *window);

}
