// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayTrigger.h"

#include "base/KeyCodes.h"
#include "platform/wayland/WaylandKeys.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// sway must have done it before it sees that we are gone, after which it reads no more of us.
constexpr auto patienceAtEnd = 200ms;

/// One press on a keyboard that belongs to a group may be told twice, at once.
constexpr qint64 onePress = 20; // milliseconds

/// What a binding is to do, by which its event is known.
constexpr auto command = "nop com.tessel.app";

/// The keyboards that sway groups (sway-input(5), keyboard_grouping) have the group's bindings; one
/// of sway 1.7 has no name. A group passes on what is bound for its keyboards only.
const QList<QByteArray> groups { "0:0:wlr_keyboard_group", "0:0:" };

bool isVirtual(const QByteArray &keyboard)
{
    return keyboard.contains("virtual_keyboard") || keyboard.contains("virtual-keyboard");
}

/// sway ends a command at these, unless they are quoted; names of devices may have them.
QByteArray quoted(const QByteArray &argument)
{
    return argument.contains(',') || argument.contains(';') ? '"' + argument + '"' : argument;
}

/// As sway-input(5) names keyboards and sway(5) modifiers and codes of keys.
QList<QByteArray> bindingsOf(const KeyChord &chord, const QList<QByteArray> &keyboards)
{
    const std::pair<qint64, const char *> names[] = { { KeyCodes::command, "Mod4+" },
                                                      { KeyCodes::control, "Ctrl+" },
                                                      { KeyCodes::option, "Mod1+" },
                                                      { KeyCodes::shift, "Shift+" } };
    QByteArray modifiers;
    for (const auto &[bit, name] : names)
        modifiers += chord.modifiers & bit ? name : "";
    QList<QByteArray> bindings;
    for (quint32 key = 8; key <= 255; ++key) {
        if (KeyCodes::virtualFromScanCode(key) != chord.keyCode)
            continue;
        for (const QByteArray &keyboard : keyboards)
            bindings
                += quoted("--input-device=" + keyboard) + ' ' + modifiers + QByteArray::number(key);
    }
    return bindings;
}

/// Several commands in one, for the mode in which the keyboard is for typing, whatever the mode is
/// now. sway 1.7 removes no quotes there.
QByteArray commandsFor(const QList<QByteArray> &bindings, const QByteArray &before,
                       const QByteArray &after)
{
    QByteArray commands;
    for (const QByteArray &binding : bindings)
        commands += (binding.startsWith('"') ? "" : "mode default ") + before + ' ' + binding
            + after + ';';
    return commands;
}

/// Where is noted what is bound, for the next start, should this one crash.
QString notePath()
{
    return qEnvironmentVariable("SWAYSOCK") + QStringLiteral(".com.tessel.app");
}

}

SwayTrigger::SwayTrigger(std::unique_ptr<SwayIpc> sway, WaylandKeys &keys)
    : m_sway(std::move(sway))
    , m_keys(keys)
    , m_keyboards(groups)
{
    connect(m_sway.get(), &SwayIpc::happened, this, &SwayTrigger::handle);
    if (QFile left(notePath()); left.open(QFile::ReadOnly))
        m_bound = left.readAll().split('\n');
    unbind();
    m_sway->ask(SwayIpc::Request::subscribe, R"(["binding","input","workspace"])");
    findKeyboards();
}

SwayTrigger::~SwayTrigger()
{
    unbind();
    m_sway->waitForAnswers(patienceAtEnd);
    QFile::remove(notePath());
}

void SwayTrigger::set(const KeyChord &chord)
{
    if (m_chord == chord)
        return;
    unbind();
    m_chord = chord;
    bind();
}

void SwayTrigger::setWatching(bool isWatching)
{
    if (std::exchange(m_isWatching, isWatching) == isWatching)
        return;
    isWatching ? bind() : unbind();
}

TriggerRoute SwayTrigger::route() const
{
    return m_isRefused ? TriggerRoute::unbound : TriggerRoute::kept;
}

void SwayTrigger::passOn()
{
    if (const quint32 key = std::exchange(m_keptKey, 0))
        m_keys.press(key, m_chord.modifiers);
}

void SwayTrigger::handle(SwayIpc::Event event, const QJsonObject &details)
{
    const QString change = details[QLatin1String("change")].toString();
    if (event == SwayIpc::Event::binding) {
        handlePress(details[QLatin1String("binding")].toObject());
    } else if (event == SwayIpc::Event::input && change == u"added") {
        findKeyboards();
    } else if (event == SwayIpc::Event::workspace && change == u"reload") {
        m_bound.clear(); // sway has, too
        bind();
    }
}

void SwayTrigger::handlePress(const QJsonObject &binding)
{
    if (binding[QLatin1String("command")].toString() != QLatin1String(command))
        return;
    if (m_sincePress.isValid() && m_sincePress.elapsed() < onePress)
        return;
    m_sincePress.start();
    m_keptKey = quint32(binding[QLatin1String("input_code")].toInt());
    Q_EMIT pressed();
}

void SwayTrigger::findKeyboards()
{
    m_sway->ask(SwayIpc::Request::getInputs, {}, [this](const QJsonDocument &inputs) {
        QList<QByteArray> keyboards = groups;
        const QJsonArray list = inputs.array();
        for (const auto input : list) {
            const QByteArray keyboard = input[QLatin1String("identifier")].toString().toUtf8();
            if (input[QLatin1String("type")] == QLatin1String("keyboard") && !isVirtual(keyboard)
                && !keyboards.contains(keyboard))
                keyboards += keyboard;
        }
        if (keyboards == m_keyboards)
            return;
        unbind();
        m_keyboards = keyboards;
        bind();
    });
}

void SwayTrigger::bind()
{
    if (!m_isWatching)
        return;
    m_bound = bindingsOf(m_chord, m_keyboards);
    if (m_bound.isEmpty())
        return;
    if (QFile file(notePath()); file.open(QFile::WriteOnly))
        file.write(m_bound.join('\n'));
    m_sway->ask(SwayIpc::Request::runCommand,
                commandsFor(m_bound, "bindcode --no-repeat --no-warn", QByteArray(" ") + command),
                [this](const QJsonDocument &answers) {
                    const QJsonArray results = answers.array();
                    const bool isRefused = std::none_of(
                        results.begin(), results.end(), [](const QJsonValue &result) {
                            return result[QLatin1String("success")].toBool();
                        });
                    if (std::exchange(m_isRefused, isRefused) != isRefused)
                        Q_EMIT routeChanged();
                });
}

void SwayTrigger::unbind()
{
    if (!m_bound.isEmpty())
        m_sway->ask(SwayIpc::Request::runCommand, commandsFor(m_bound, "unbindcode", {}));
    m_bound.clear();
}

}
