// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/EditingKeys.h"

#include "base/KeyCodes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <cstring>

namespace Tessel {

namespace {

/// The key of an editing command, on layouts without Latin letters by its place; 0: none.
int editingKey(const QKeyEvent &event)
{
    constexpr const char *editing = "ZXCVA";
    constexpr auto others = Qt::ControlModifier | Qt::AltModifier;
    if (event.modifiers() & others)
        return 0;
    const int key = event.key();
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return std::strchr(editing, key) ? key : 0;
    const auto keyCode = KeyCodes::virtualFromScanCode(event.nativeScanCode());
    const auto letter = keyCode ? KeyCodes::ansiCharacter(*keyCode) : std::nullopt;
    return letter && std::strchr(editing, *letter) ? *letter : 0;
}

bool typesIn(const QWidget &widget, const QKeyEvent &event)
{
    const QString text = event.text();
    return event.type() == QEvent::KeyPress && !text.isEmpty() && text.at(0).isPrint()
        && widget.testAttribute(Qt::WA_InputMethodEnabled);
}

class EditingKeys final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
            return false;
        const auto *widget = qobject_cast<const QWidget *>(watched);
        const auto &key = *static_cast<const QKeyEvent *>(event);
        // What has taken the keyboard wants the keys themselves.
        if (!widget || !(key.modifiers() & Qt::MetaModifier) || QWidget::keyboardGrabber())
            return false;
        if (const int letter = editingKey(key)) {
            QKeyEvent command(key.type(), letter,
                              key.modifiers() ^ (Qt::MetaModifier | Qt::ControlModifier),
                              key.nativeScanCode(), key.nativeVirtualKey(), key.nativeModifiers(),
                              {}, key.isAutoRepeat());
            QCoreApplication::sendEvent(watched, &command);
            event->setAccepted(command.isAccepted());
            return true;
        }
        return typesIn(*widget, key);
    }
};

}

void installEditingKeys()
{
    qApp->installEventFilter(new EditingKeys(qApp));
}

}
