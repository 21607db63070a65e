// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/HeldKey.h"

#include <utility>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto maxPress = 3s;
constexpr auto afterRelease = 50ms;

}

HeldKey::HeldKey()
{
    m_isDown.setSingleShot(true);
    QObject::connect(&m_isDown, &QTimer::timeout, &m_isDown, [this] {
        if (const auto run = std::exchange(m_run, {}))
            run();
    });
}

void HeldKey::press()
{
    m_isDown.start(maxPress);
}

void HeldKey::release()
{
    if (isDown())
        m_isDown.start(afterRelease);
}

void HeldKey::whenUp(std::function<void()> run)
{
    if (isDown())
        m_run = std::move(run);
    else
        run();
}

void HeldKey::reset()
{
    if (!m_run)
        m_isDown.stop();
}

}
