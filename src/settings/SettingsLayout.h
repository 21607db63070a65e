// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "windows/Theme.h"

#include <QBoxLayout>
#include <QLabel>
#include <QScrollArea>

namespace Tessel {

/// What the settings' tabs are put together from. Sizes of fonts and distances are in pixels.
namespace SettingsLayout {

/// Gives the widget a layout without margins.
QBoxLayout *stack(QWidget *widget, Qt::Orientation orientation, int spacing);

/// The widgets from left to right, at the leading edge.
[[nodiscard]] QWidget *row(int spacing, const QList<QWidget *> &widgets);

/// What is as large as the window, but scrolls where that is smaller than the content can be.
[[nodiscard]] QScrollArea *scrolled(QWidget *content);

/// The size of a window, or what fits of it into the work area together with a frame.
[[nodiscard]] QSize fitted(const QSize &preferred, const QSize &workArea);

/// A title with the widgets below it.
[[nodiscard]] QWidget *section(const QString &title, const QList<QWidget *> &widgets);

[[nodiscard]] QWidget *separator();
[[nodiscard]] QLabel *label(const QString &text, int pixels = FontSize::text,
                            QFont::Weight weight = QFont::Normal);
/// Names the control, for assistive technology too.
[[nodiscard]] QLabel *labelOf(QWidget *control, const QString &text);
[[nodiscard]] QLabel *secondaryLabel(const QString &text, int pixels,
                                     QFont::Weight weight = QFont::Normal);

}

}
