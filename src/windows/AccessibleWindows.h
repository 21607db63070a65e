// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace Tessel {

/// Tells assistive technology what our windows are: Qt takes each for a mere pane. To be called
/// once; nothing is made before such a program looks.
void describeWindowsToAssistiveTechnology();

/// For a popup, which never has the focus that a screen reader follows, when it has been shown: has
/// it read out by the window's name and this description.
void announcePopup(QWidget &popup, const QString &description = {});

}
