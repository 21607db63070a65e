// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/TesselProgram.h"

#include "bar/PanelLayout.h"
#include "files/Files.h"

#include <QJsonDocument>
#include <QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

TesselProgram::TesselProgram(DesktopSession &session)
    : m_session(session)
{
}

QJsonObject TesselProgram::action(const QString &id, const QString &type,
                                  const QString &templateText)
{
    return { { u"id"_s, id },
             { u"title"_s, id },
             { u"iconName"_s, u"phosphor_star"_s },
             { u"type"_s, type },
             { u"template"_s, templateText } };
}

QJsonObject TesselProgram::urlAction(const QString &id, const QString &urlTemplate)
{
    return action(id, u"url"_s, urlTemplate);
}

QString TesselProgram::path()
{
    return QStringLiteral(TESSEL_PROGRAM);
}

QString TesselProgram::configFile() const
{
    return m_session.configPath() + u"/GlintClone/config.json"_s;
}

bool TesselProgram::writeConfiguration()
{
    if (actions.isEmpty())
        actions = { urlAction(u"open"_s, u"tessel-test://open?{text}"_s) };
    // The standard actions come back by themselves; disabled they stay out of the way.
    for (const char *id : { "search", "copy", "translate", "count", "largetype" }) {
        QJsonObject standard = urlAction(QString::fromLatin1(id), u"none://"_s);
        const bool isGiven = std::any_of(actions.begin(), actions.end(), [id](const auto &action) {
            return action.toObject().value(u"id"_s) == QLatin1String(id);
        });
        standard.insert(u"isEnabled"_s, false);
        if (!isGiven)
            actions.append(standard);
    }
    QJsonObject config = settings;
    config.insert(u"customActions"_s, actions);
    if (!config.contains(u"excludedBundleIds"_s))
        config.insert(u"excludedBundleIds"_s, QJsonArray());
    return writeFile(configFile(), QJsonDocument(config).toJson());
}

bool TesselProgram::start()
{
    if (!writeConfiguration())
        return false;
    m_process = &m_session.launch(path());
    return m_process->waitForOutput(QRegularExpression(u"Tessel started\\."_s)).hasMatch();
}

std::optional<WindowInfo> TesselProgram::summon()
{
    awaitTrigger();
    m_session.user().tap(XKB_KEY_F2);
    return waitForBar();
}

std::optional<WindowInfo> TesselProgram::bar() const
{
    return m_session.user().findWindow([](const WindowInfo &window) {
        return window.overrideRedirect && window.className == u"Tessel"
            && window.title == u"Tessel";
    });
}

std::optional<WindowInfo> TesselProgram::waitForBar() const
{
    std::optional<WindowInfo> found;
    [[maybe_unused]] const bool came = QTest::qWaitFor(
        [&] {
            found = bar();
            return found.has_value();
        },
        int(defaultTimeout.count()));
    m_sinceCapture.start();
    return found;
}

bool TesselProgram::waitUntilBarGone() const
{
    return QTest::qWaitFor([this] { return !bar(); }, int(defaultTimeout.count()));
}

std::optional<WindowInfo> TesselProgram::waitForWindow(const QString &title) const
{
    return m_session.user().waitForWindow([&title](const WindowInfo &window) {
        return window.className == u"Tessel" && window.title == title;
    });
}

QJsonObject TesselProgram::configuration() const
{
    return QJsonDocument::fromJson(readFile(configFile())).object();
}

std::optional<WindowInfo> TesselProgram::openSettings()
{
    if (!summon())
        return {};
    m_session.user().tap(XKB_KEY_comma, { XKB_KEY_Control_L });
    const auto window = waitForWindow(u"Tessel Preferences"_s);
    return window && m_session.user().waitUntilUsable(window->id) ? window : std::nullopt;
}

void TesselProgram::awaitTrigger() const
{
    const qint64 rest = m_sinceCapture.isValid() ? 1050 - m_sinceCapture.elapsed() : 0;
    if (rest > 0)
        QTest::qWait(int(rest));
}

QPoint TesselProgram::button(const WindowInfo &bar, int index)
{
    const auto layout = PanelLayout::arrange(QList<int>(index + 1, PanelLayout::buttonSize));
    return bar.geometry.topLeft() + layout.buttons.last().center();
}
