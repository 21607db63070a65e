// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/TesselProcess.h"

#include "config/DefaultActions.h"
#include "files/Files.h"

#include <QJsonDocument>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

TesselProcess::TesselProcess(Session &session)
    : m_session(session)
{
}

QJsonObject TesselProcess::action(const QString &id, const QString &type,
                                  const QString &templateText)
{
    return { { u"id"_s, id },
             { u"title"_s, id },
             { u"iconName"_s, u"phosphor_star"_s },
             { u"type"_s, type },
             { u"template"_s, templateText } };
}

QJsonObject TesselProcess::urlAction(const QString &id, const QString &urlTemplate)
{
    return action(id, u"url"_s, urlTemplate);
}

QJsonObject TesselProcess::defaultAction(const QString &title)
{
    for (const ActionConfig &each : DefaultActions::all()) {
        if (each.title == title)
            return action(title, infoOf(each.type).rawValue, each.templateText);
    }
    return {};
}

QString TesselProcess::path()
{
    return QStringLiteral(TESSEL_PROGRAM);
}

QString TesselProcess::configFile() const
{
    return m_session.configPath() + u"/GlintClone/config.json"_s;
}

bool TesselProcess::writeConfiguration()
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

bool TesselProcess::start()
{
    if (!writeConfiguration())
        return false;
    m_process = &m_session.launch(path());
    return m_process->waitForOutput(QRegularExpression(u"Tessel started\\."_s)).hasMatch();
}

QJsonObject TesselProcess::configuration() const
{
    return QJsonDocument::fromJson(readFile(configFile())).object();
}

void TesselProcess::awaitTrigger() const
{
    const qint64 rest = m_sinceCapture.isValid() ? 1050 - m_sinceCapture.elapsed() : 0;
    if (rest > 0)
        QTest::qWait(int(rest));
}
