// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

namespace Tessel {

/// How the user wants windows to look.
class Appearance : public QObject
{
    Q_OBJECT

public:
    /// Of the desktop's font where nobody says otherwise, in points.
    static constexpr double standardFontSize = 10;

    using QObject::QObject;

    [[nodiscard]] virtual bool isDark() const = 0;
    [[nodiscard]] virtual double fontSize() const = 0; ///< of the desktop's font, in points

Q_SIGNALS:
    void changed();
};

/// The appearance alone, for helpers that show a window; follows the desktop at once. Needs the
/// application object.
[[nodiscard]] std::unique_ptr<Appearance> makeAppearance();

}
