// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/RecordingHost.h"
#include "osascript/language/Parser.h"
#include "osascript/runtime/Evaluator.h"
#include "osascript/values/Printer.h"

#include <QRegularExpression>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// Scripts that neither loop nor reach for anything outside are run, too.
bool isHarmless(const QString &script)
{
    static const QRegularExpression harm(
        u"^\\s*(on|to)\\b|repeat|delay|script|app|folder|display|choose|open|notes|calendar|"
        "clipboard|beep|say|log|run"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::MultilineOption);
    return !harm.match(script).hasMatch();
}

}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    static const Osascript::Vocabulary vocabulary;
    static RecordingHost recording;
    const QString script = QString::fromUtf8(data, qsizetype(size));
    try {
        static_cast<void>(Osascript::Parser(script, vocabulary).parse());
        Osascript::Host host = recording.host();
        if (isHarmless(script))
            static_cast<void>(printed(Osascript::Evaluator(host).run(script, {})));
    } catch (const Osascript::ScriptError &error) {
        Q_ASSERT(!error.message.isEmpty()
                 || error.phase == Osascript::ScriptError::Phase::execution);
        Q_ASSERT(!error.where || (error.where->start >= 0 && error.where->end <= script.size()));
    }
    return 0;
}
