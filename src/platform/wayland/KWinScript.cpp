// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinScript.h"

#include "platform/wayland/BusObject.h"

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const BusObject scripting { u"org.kde.KWin"_s, u"/Scripting"_s, u"org.kde.kwin.Scripting"_s };

}

KWinScript::KWinScript(QString name, const QString &text)
    : m_name(std::move(name))
{
    if (!m_file.open() || m_file.write(text.toUtf8()) < 0 || !m_file.flush())
        return;
    // A script is removed only when KWin is back in its event loop: one step at a time. That
    // "start" runs all that are loaded and do not run yet spares the path of this one, which
    // KWin 5.27 may have given to another one already.
    scripting.call("unloadScript", { m_name }, this, [this](const QVariantList &) {
        scripting.call("loadScript", { m_file.fileName(), m_name }, this,
                       [](const QVariantList &) { scripting.send("start", {}); });
    });
}

KWinScript::~KWinScript()
{
    scripting.send("unloadScript", { m_name });
}

}
