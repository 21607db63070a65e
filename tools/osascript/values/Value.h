// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <concepts>
#include <memory>
#include <utility>
#include <variant>

namespace Tessel::Osascript {

class ObjectOwner;
class Value;
struct HandlerDefinition;
struct Reference;
struct ScriptObject;

/// The items of a list. Values that hold it share it, as `set` does in AppleScript.
struct List
{
    explicit List(QList<Value> values);
    ~List(); ///< without recursion, however deeply lists are nested
    Q_DISABLE_COPY_MOVE(List)

    QList<Value> items;
};

struct Field;

/// The fields of a record, shared like the items of a list. Names are compared without case.
struct Record
{
    explicit Record(QList<Field> values);
    ~Record(); ///< without recursion
    Q_DISABLE_COPY_MOVE(Record)

    [[nodiscard]] Value *find(QStringView name);

    QList<Field> fields;
};

struct Missing
{
};

/// `yes`, `Monday`, `command down` …
struct Constant
{
    QString name;
};

/// `text`, `integer`, `note` …
struct ClassName
{
    QString name;
};

struct File
{
    QString path; ///< POSIX
    bool isAlias = false;
};

/// Something that belongs to an application: the application itself, or one of its elements.
struct Object
{
    ObjectOwner *owner = nullptr;
    QString className; ///< "application" for the application itself
    QString key; ///< what the application finds it by: a name or an identifier
};

struct Handler
{
    const HandlerDefinition *definition = nullptr;
    ScriptObject *owner = nullptr;
    QString name = {};
};

using ListPointer = std::shared_ptr<List>;
using RecordPointer = std::shared_ptr<Record>;
/// The wall clock's time, kept as UTC so that no zone's rules touch the arithmetic.
using DatePointer = std::shared_ptr<QDateTime>;
using ReferencePointer = std::shared_ptr<const Reference>;

template <typename T, typename Variant> inline constexpr bool isAlternative = false;
template <typename T, typename... Ts>
inline constexpr bool isAlternative<T, std::variant<Ts...>> = (std::same_as<T, Ts> || ...);

/// Any value of a script, or nothing: what a command without a result leaves. Cheap to copy. Lists,
/// records and dates are shared between copies and can change; all else is immutable.
class Value final
{
public:
    using Data = std::variant<std::monostate, Missing, bool, qint64, double, QString, ListPointer,
                              RecordPointer, DatePointer, Constant, ClassName, File, Object,
                              ReferencePointer, ScriptObject *, Handler>;

    Value() = default;
    template <typename T>
    requires(isAlternative<T, Data>) explicit Value(T data)
        : m_data(std::in_place_type<T>, std::move(data))
    {
    }
    [[nodiscard]] static Value list(QList<Value> items);
    [[nodiscard]] static Value texts(const QStringList &items);
    [[nodiscard]] static Value record(QList<Field> fields);
    [[nodiscard]] static Value date(const QDateTime &wallClock);

    template <typename T> [[nodiscard]] bool is() const
    {
        return std::holds_alternative<T>(m_data);
    }
    /// Nothing when it is no T.
    template <typename T> [[nodiscard]] const T *as() const { return std::get_if<T>(&m_data); }
    /// Must be a T.
    template <typename T> [[nodiscard]] const T &get() const { return std::get<T>(m_data); }
    [[nodiscard]] const Data &data() const { return m_data; }

    [[nodiscard]] bool isNothing() const { return is<std::monostate>(); }
    [[nodiscard]] bool isNumber() const { return is<qint64>() || is<double>(); }
    [[nodiscard]] bool isList() const { return is<ListPointer>(); }
    [[nodiscard]] bool isText() const { return is<QString>(); }
    /// Must be a list.
    [[nodiscard]] const QList<Value> &items() const { return get<ListPointer>()->items; }

private:
    Data m_data;
};

struct Field
{
    QString name;
    Value value;
};

/// What `copy` makes: lists, records and dates that nobody else holds.
[[nodiscard]] Value deepCopy(const Value &value);

/// Whether the list or record can be reached from the value, which is when putting the value into
/// it would make it contain itself.
[[nodiscard]] bool contains(const Value &value, const Value &container);

/// Limits of what one text or list may hold; raise "Out of memory." beyond them.
void checkTextSize(qsizetype size);
void checkListSize(qsizetype size);

}
