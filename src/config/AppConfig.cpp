// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/AppConfig.h"

#include "base/TextRules.h"

#include <QSet>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <string>
#include <type_traits>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

// Not QJsonDocument, which builds the whole tree before anything can be taken out of it.
using Json = nlohmann::ordered_json;

constexpr auto bundleIdsKey = "excludedBundleIds";
constexpr auto actionsKey = "customActions";
constexpr int maxDepth = 64; ///< of nesting; the JSON library copies trees recursively

/// Calls the visitor with the key and the field of each setting.
template <typename Config, typename Visitor> void visitSettings(Config &config, Visitor &&visit)
{
    std::apply([&](const auto &...setting) { (visit(setting.key, config.*setting.field), ...); },
               settingRows);
}

// Reading. What does not fit ends it with a DecodingError, which stays in this file.

struct DecodingError
{
    QString text;
};

/// A value's place in the file, for example "customActions[3].type".
struct Place
{
    const char *key; ///< of the root object, or of the action
    qsizetype index = -1; ///< of the element in the array under the key
    qsizetype action = -1; ///< index of the action that the key belongs to

    [[noreturn]] void fail(const QString &problem) const
    {
        QString path = QLatin1StringView(key);
        if (index >= 0)
            path += u"[%1]"_s.arg(index);
        if (action >= 0)
            path.prepend(u"customActions[%1]."_s.arg(action));
        throw DecodingError { path + u": "_s + problem };
    }
};

void read(QString &field, const Json &value, const Place &place)
{
    if (!value.is_string())
        place.fail(u"must be a string"_s);
    field = exactText(value.get_ref<const std::string &>());
}

void read(bool &field, const Json &value, const Place &place)
{
    if (!value.is_boolean())
        place.fail(u"must be true or false"_s);
    field = value.get<bool>();
}

/// 120, 120.0 and 1.2e2 are whole numbers. An integer beyond 64 bits comes as a float, rounded, so
/// that the smallest 64-bit integer has to be written without fraction and exponent.
std::optional<qint64> wholeNumber(const Json &value)
{
    if (value.is_number_unsigned()) {
        const auto number = value.get<quint64>();
        return std::in_range<qint64>(number) ? std::optional(static_cast<qint64>(number))
                                             : std::nullopt;
    }
    if (value.is_number_integer())
        return value.get<qint64>();
    const double number = value.is_number_float() ? value.get<double>() : HUGE_VAL;
    if (number != std::trunc(number) || std::abs(number) >= 0x1p63)
        return std::nullopt;
    return static_cast<qint64>(number);
}

void read(qint64 &field, const Json &value, const Place &place)
{
    const std::optional<qint64> number = wholeNumber(value);
    if (!number)
        place.fail(u"must be a whole number of 64 bits"_s);
    field = *number;
}

[[noreturn]] void failOnValue(const QString &value, const Place &place)
{
    place.fail(u"unknown value \"%1\""_s.arg(value));
}

template <typename Enum>
requires std::is_enum_v<Enum>
void read(Enum &field, const Json &value, const Place &place)
{
    QString name;
    read(name, value, place);
    const auto &all = choices<Enum>;
    const auto found = std::find_if(all.begin(), all.end(), [&name](const Choice<Enum> &choice) {
        return choice.rawValue == name;
    });
    if (found == all.end())
        failOnValue(name, place);
    field = found->value;
}

template <typename T> void read(Observable<T> &field, const Json &value, const Place &place)
{
    T plain = field.value();
    read(plain, value, place);
    field = plain;
}

template <typename T> void read(std::optional<T> &field, const Json &value, const Place &place)
{
    read(field.emplace(), value, place);
}

template <typename T> void readRequired(T &field, const Json &object, const Place &place)
{
    const auto found = object.find(place.key);
    if (found == object.end())
        place.fail(u"missing"_s);
    read(field, *found, place);
}

template <typename T> void readOptional(T &field, const Json &object, const Place &place)
{
    const auto found = object.find(place.key);
    if (found != object.end() && !found->is_null())
        read(field, *found, place);
}

/// Turns a type of action that older versions had into a current one. False for unknown types.
bool migrate(ActionConfig &action, const QString &oldType)
{
    const bool isCommand = oldType == u"command";
    if (isCommand && action.templateText == Builtin::largeType) {
        action.type = ActionType::builtin;
    } else if (isCommand) {
        action.type = ActionType::shellScript;
    } else if (oldType == u"app") {
        action.type = ActionType::shellScript;
        action.templateText.prepend(u"# App action deprecated: "_s);
        action.isEnabled = false;
    } else if (oldType == u"copy") {
        action.type = ActionType::builtin;
        action.templateText = Builtin::copy.toString();
    } else if (oldType == u"count") {
        action.type = ActionType::builtin;
        action.templateText = Builtin::count.toString();
    } else {
        return false;
    }
    return true;
}

ActionConfig readAction(const Json &object, qsizetype index)
{
    if (!object.is_object())
        Place { actionsKey, index }.fail(u"must be an object"_s);
    const auto place = [index](const char *key) { return Place { key, -1, index }; };
    ActionConfig action;
    readRequired(action.id, object, place("id"));
    readRequired(action.title, object, place("title"));
    readRequired(action.iconName, object, place("iconName"));
    readOptional(action.regex, object, place("regex"));
    readOptional(action.isEnabled, object, place("isEnabled"));
    QString type;
    readRequired(type, object, place("type"));
    readRequired(action.templateText, object, place("template"));
    if (const std::optional<ActionType> current = actionTypeFrom(type))
        action.type = *current;
    else if (!migrate(action, type))
        failOnValue(type, place("type"));
    return action;
}

const Json &arrayIn(const Json &object, const Place &place)
{
    const auto found = object.find(place.key);
    if (found == object.end())
        place.fail(u"missing"_s);
    if (!found->is_array())
        place.fail(u"must be an array"_s);
    return *found;
}

AppConfig readConfig(const QByteArray &text)
{
    AppConfig config;
    std::string rootKey;
    QSet<QString> iconNames; // equal ones share their text
    // Each action leaves the document as soon as it is read: a tree of a long list would cost much
    // more memory than the list itself.
    const auto takeActions = [&](int depth, Json::parse_event_t event, Json &value) {
        if (depth >= maxDepth
            && (event == Json::parse_event_t::object_start
                || event == Json::parse_event_t::array_start))
            throw DecodingError { u"nested more than %1 deep"_s.arg(maxDepth) };
        if (depth == 1 && event == Json::parse_event_t::key)
            rootKey = value.get_ref<const std::string &>();
        const bool isElement = event == Json::parse_event_t::object_end
            || event == Json::parse_event_t::array_end || event == Json::parse_event_t::value;
        if (depth != 2 || !isElement || rootKey != actionsKey)
            return true;
        ActionConfig action = readAction(value, config.customActions.size());
        action.iconName = *iconNames.insert(action.iconName);
        config.customActions.append(std::move(action));
        return false;
    };
    const Json document = Json::parse(text.cbegin(), text.cend(), takeActions);
    if (!document.is_object())
        throw DecodingError { u"must be an object"_s };

    for (const Json &bundleId : arrayIn(document, { bundleIdsKey })) {
        const Place place { bundleIdsKey, config.excludedBundleIds.size() };
        read(config.excludedBundleIds.emplaceBack(), bundleId, place);
    }
    static_cast<void>(arrayIn(document, { actionsKey }));
    visitSettings(config, [&document](const char *key, auto &setting) {
        readOptional(setting, document, { key });
    });
    return config;
}

// Writing.

void write(std::string &out, bool value)
{
    out += value ? "true" : "false";
}

void write(std::string &out, qint64 value)
{
    out += std::to_string(value);
}

void write(std::string &out, const QString &text)
{
    out += Json(text.toStdString()).dump(-1, ' ', false, Json::error_handler_t::replace);
}

void write(std::string &out, ActionType type)
{
    write(out, infoOf(type).rawValue);
}

template <typename Enum>
requires std::is_enum_v<Enum>
void write(std::string &out, Enum value)
{
    const auto &all = choices<Enum>;
    write(out, std::find_if(all.begin(), all.end(), [value](const Choice<Enum> &choice) {
                   return choice.value == value;
               })->rawValue);
}

template <typename T> void write(std::string &out, const Observable<T> &value)
{
    write(out, value.value());
}

void write(std::string &out, const ActionConfig &action);

template <typename T> void write(std::string &out, const QList<T> &list)
{
    char separator = '[';
    for (const T &element : list) {
        out += std::exchange(separator, ',');
        write(out, element);
    }
    out += list.isEmpty() ? "[]" : "]";
}

/// Visitor that writes an object's members; optional ones only when they are set.
struct MemberWriter
{
    std::string &out;
    char separator = '{';

    template <typename T> void operator()(const char *key, const T &value)
    {
        out += std::exchange(separator, ',');
        out.append("\"").append(key).append("\":");
        write(out, value);
    }

    template <typename T> void operator()(const char *key, const std::optional<T> &value)
    {
        if (value)
            (*this)(key, *value);
    }
};

void write(std::string &out, const ActionConfig &action)
{
    MemberWriter member { out };
    member("id", action.id);
    member("title", action.title);
    member("iconName", action.iconName);
    member("type", action.type);
    member("template", action.templateText);
    member("regex", action.regex);
    member("isEnabled", action.isEnabled);
    out += '}';
}

}

Result<AppConfig> decodeConfig(const QByteArray &json)
{
    try {
        return readConfig(json);
    } catch (const DecodingError &error) {
        return Failure { error.text };
    } catch (const Json::exception &error) {
        return Failure { QString::fromUtf8(error.what()) };
    }
}

QByteArray encodeConfig(const AppConfig &config)
{
    std::string out;
    MemberWriter member { out };
    member(bundleIdsKey, config.excludedBundleIds);
    member(actionsKey, config.customActions);
    visitSettings(config, member);
    out += '}';
    return QByteArray::fromStdString(out);
}

}
