// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <functional>

namespace Tessel {

/// Shows a shortcut, and records another while it has the focus: the next key with its modifiers,
/// as virtual key code and modifier bits (KeyCodes.h). Escape keeps the shortcut. It reads keys,
/// not characters, so neither layout nor input method matters, and takes them before the window
/// manager sees them. To assistive technology it is a button whose description has the shortcut.
class ShortcutRecorderControl final : public QAbstractButton
{
    Q_OBJECT

public:
    ShortcutRecorderControl(qint64 keyCode, qint64 modifierFlags, QWidget *parent = nullptr);

    std::function<void(qint64 keyCode, qint64 modifierFlags)> onShortcutChanged;

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] bool movesFocus(const QKeyEvent &event) const;
    void setRecording(bool isRecording);
    void describe();

    qint64 m_keyCode;
    qint64 m_modifierFlags;
    bool m_isRecording = false;
    bool m_cameByTab = false;
};

}
