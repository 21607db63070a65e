// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <functional>

namespace Tessel {

/// Whether a key is down in a window that is about to give the keyboard back: neither what the key
/// repeats nor its release may reach the application below. A key that repeats is released and
/// pressed again at once, and a release may never come, so both take a while to count.
class HeldKey final
{
public:
    HeldKey();

    void press(); ///< repetitions too
    void release();
    [[nodiscard]] bool isDown() const { return m_isDown.isActive(); }

    /// Runs it when the key is up, at once when none is down. A later call replaces it.
    void whenUp(std::function<void()> run);

    /// A key that nothing waits for does not count any longer.
    void reset();

private:
    QTimer m_isDown;
    std::function<void()> m_run;
};

}
