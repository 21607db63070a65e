// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/PopupHost.h"

#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <set>

namespace Tessel {

/// The keys of the one popup that has the keyboard, which a surface has as a whole or not at all:
/// what the popup does not want is told as a key that went elsewhere.
class PopupKeys final : public QObject
{
    Q_OBJECT

public:
    using Wants = std::function<bool(const PopupKey &)>;
    enum class Kept { untilReleased, untilIdle };

    explicit PopupKeys(std::function<void(const InputEvent &)> elsewhere);

    /// Null: none.
    [[nodiscard]] QWindow *window() const { return m_window; }

    /// `untilIdle`: or until no key was pressed for a minute.
    void take(QWindow *window, const Wants &wants, Kept kept = Kept::untilReleased);

    /// A key that is down stays with the window: its release would reach the application otherwise.
    void release(QWindow *window);

    void giveBack(); ///< now
    void forget(const QWindow *window); ///< without given(): the window goes

    [[nodiscard]] bool eventFilter(QObject *window, QEvent *event) override;

Q_SIGNALS:
    void given(QWindow *window); ///< back; it has no keyboard any more

private:
    void press(const QKeyEvent &event);

    std::function<void(const InputEvent &)> m_elsewhere;
    QPointer<QWindow> m_window;
    Wants m_wants; ///< empty: nothing any more
    std::set<quint32> m_down; ///< native scan codes
    QTimer m_idle; ///< since the last key
};

}
