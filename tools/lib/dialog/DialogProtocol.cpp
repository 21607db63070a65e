// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/dialog/DialogProtocol.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace Tessel {

using Osascript::DialogAnswer;
using Osascript::DialogRequest;
using Osascript::ListRequest;

namespace {

const auto kindKey = u"kind"_s;
const auto listKind = u"list"_s;

QStringList strings(const QJsonValue &array)
{
    QStringList list;
    for (const QJsonValue item : array.toArray())
        list += item.toString();
    return list;
}

}

QJsonObject DialogProtocol::toJson(const DialogRequest &request)
{
    QJsonObject json {
        { kindKey, u"dialog"_s },
        { u"message"_s, request.message },
        { u"detail"_s, request.detail },
        { u"title"_s, request.title },
        { u"buttons"_s, QJsonArray::fromStringList(request.buttons) },
        { u"defaultButton"_s, request.defaultButton },
        { u"cancelButton"_s, request.cancelButton },
        { u"hiddenAnswer"_s, request.hiddenAnswer },
        { u"icon"_s, int(request.icon) },
    };
    if (request.defaultAnswer)
        json.insert(u"defaultAnswer"_s, *request.defaultAnswer);
    if (request.givingUpAfter)
        json.insert(u"givingUpAfter"_s, qint64(request.givingUpAfter->count()));
    return json;
}

DialogRequest DialogProtocol::dialogRequest(const QJsonObject &json)
{
    DialogRequest request;
    request.message = json[u"message"].toString();
    request.detail = json[u"detail"].toString();
    request.title = json[u"title"].toString();
    request.buttons = strings(json[u"buttons"]);
    request.defaultButton = json[u"defaultButton"].toString();
    request.cancelButton = json[u"cancelButton"].toString();
    request.hiddenAnswer = json[u"hiddenAnswer"].toBool();
    request.icon = DialogRequest::Icon(json[u"icon"].toInt());
    if (json.contains(u"defaultAnswer"))
        request.defaultAnswer = json[u"defaultAnswer"].toString();
    if (json.contains(u"givingUpAfter"))
        request.givingUpAfter = std::chrono::milliseconds(json[u"givingUpAfter"].toInteger());
    return request;
}

QJsonObject DialogProtocol::toJson(const ListRequest &request)
{
    return {
        { kindKey, listKind },
        { u"items"_s, QJsonArray::fromStringList(request.items) },
        { u"title"_s, request.title },
        { u"prompt"_s, request.prompt },
        { u"defaultItems"_s, QJsonArray::fromStringList(request.defaultItems) },
        { u"okButton"_s, request.okButton },
        { u"cancelButton"_s, request.cancelButton },
        { u"multipleSelections"_s, request.multipleSelections },
        { u"emptySelection"_s, request.emptySelection },
    };
}

bool DialogProtocol::isList(const QJsonObject &request)
{
    return request[kindKey] == listKind;
}

ListRequest DialogProtocol::listRequest(const QJsonObject &json)
{
    return {
        .items = strings(json[u"items"]),
        .title = json[u"title"].toString(),
        .prompt = json[u"prompt"].toString(),
        .defaultItems = strings(json[u"defaultItems"]),
        .okButton = json[u"okButton"].toString(),
        .cancelButton = json[u"cancelButton"].toString(),
        .multipleSelections = json[u"multipleSelections"].toBool(),
        .emptySelection = json[u"emptySelection"].toBool(),
    };
}

QJsonObject DialogProtocol::dialogAnswer(int button, const QString &text)
{
    return { { u"button"_s, button }, { u"text"_s, text } };
}

DialogAnswer DialogProtocol::dialogAnswer(const QJsonObject &json, const DialogRequest &request)
{
    const int button = json[u"button"].toInt(-1);
    return { request.buttons.value(button), json[u"text"].toString(), button < 0 };
}

QJsonObject DialogProtocol::listAnswer(const std::optional<QList<int>> &chosen)
{
    if (!chosen)
        return {};
    QJsonArray positions;
    for (const int position : *chosen)
        positions.append(position);
    return { { u"chosen"_s, positions } };
}

std::optional<QStringList> DialogProtocol::listAnswer(const QJsonObject &json,
                                                      const ListRequest &request)
{
    if (!json.contains(u"chosen"))
        return {};
    QStringList items;
    for (const QJsonValue position : json[u"chosen"].toArray())
        items += request.items.value(position.toInt());
    return items;
}

}
