// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ShortcutRecorderControl.h"

#include "base/KeyCodes.h"
#include "base/LocalizationManager.h"
#include "settings/KeyNames.h"
#include "windows/Theme.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr double radius = CornerRadius::control;
constexpr int padding = 8;

QString prompt()
{
    return localized(u"Type shortcut..."_s);
}

}

ShortcutRecorderControl::ShortcutRecorderControl(qint64 keyCode, qint64 modifierFlags,
                                                 QWidget *parent)
    : QAbstractButton(parent)
    , m_keyCode(keyCode)
    , m_modifierFlags(modifierFlags & KeyCodes::modifierMask)
{
    setFocusPolicy(Qt::StrongFocus);
    const int promptWidth = fontMetrics().horizontalAdvance(prompt()) + 2 * padding;
    setFixedSize(std::max(roomFor(120), promptWidth), roomFor(24));
    describe();
    connect(this, &QAbstractButton::clicked, this, [this] { // by assistive technology
        setFocus(Qt::MouseFocusReason);
        setRecording(true);
    });
}

QString ShortcutRecorderControl::shownText() const
{
    return m_isRecording ? prompt() : shortcutText(m_keyCode, m_modifierFlags);
}

/// In words, for those who do not see the symbols or do not know them. A screen reader reads a
/// description again when it changes.
void ShortcutRecorderControl::describe()
{
    const QString shortcut = spelledShortcut(m_keyCode, m_modifierFlags);
    const QString invitation = localized(u"Click to record shortcut"_s);
    setAccessibleDescription(m_isRecording ? shownText() : shortcut + u". "_s + invitation);
    setToolTip(shortcut + u'\n' + invitation);
}

bool ShortcutRecorderControl::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && m_isRecording) {
        event->accept(); // the keys of our own windows can be recorded too
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (m_isRecording && !movesFocus(*key)) {
            keyPressEvent(key); // else QWidget would keep Tab for itself
            return true;
        }
    }
    return QAbstractButton::event(event);
}

/// Who came by Tab wants to go on by Tab.
bool ShortcutRecorderControl::movesFocus(const QKeyEvent &event) const
{
    return m_cameByTab && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)
        && !(event.modifiers() & ~Qt::ShiftModifier);
}

void ShortcutRecorderControl::mousePressEvent(QMouseEvent *)
{
    m_cameByTab = false;
    setFocus(Qt::MouseFocusReason);
    setRecording(true);
}

void ShortcutRecorderControl::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (!m_isRecording) // the focus came back with the window
        return setRecording(event->key() == Qt::Key_Space || event->key() == Qt::Key_Return);
    const quint32 scanCode = event->nativeScanCode();
    const auto keyCode = KeyCodes::virtualFromScanCode(scanCode);
    if (event->isAutoRepeat() || !keyCode || KeyCodes::isModifierOrLock(scanCode)
        || KeyCodes::isModifierOrLockSymbol(event->nativeVirtualKey()))
        return;
    if (*keyCode != KeyCodes::keyEscape) {
        m_keyCode = *keyCode;
        m_modifierFlags = KeyCodes::modifierBits(event->modifiers());
        if (onShortcutChanged)
            onShortcutChanged(m_keyCode, m_modifierFlags);
    }
    setRecording(false);
    clearFocus();
}

void ShortcutRecorderControl::focusInEvent(QFocusEvent *event)
{
    QAbstractButton::focusInEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return; // nobody asked for it when the window comes back
    m_cameByTab
        = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    setRecording(true);
}

void ShortcutRecorderControl::focusOutEvent(QFocusEvent *event)
{
    setRecording(false);
    QAbstractButton::focusOutEvent(event);
}

void ShortcutRecorderControl::hideEvent(QHideEvent *)
{
    setRecording(false);
}

void ShortcutRecorderControl::setRecording(bool isRecording)
{
    if (m_isRecording == isRecording)
        return;
    m_isRecording = isRecording;
    if (isRecording)
        grabKeyboard();
    else
        releaseKeyboard();
    describe();
    update();
}

void ShortcutRecorderControl::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isMarked = m_isRecording || hasFocus();
    painter.setPen(palette().color(isMarked ? QPalette::Highlight : QPalette::Mid));
    painter.setBrush(palette().base());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.setPen(palette().color(m_isRecording ? QPalette::PlaceholderText : QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter, shownText());
}

}
