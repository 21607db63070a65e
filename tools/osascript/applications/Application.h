// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"
#include "osascript/terms/Terms.h"
#include "osascript/values/ObjectOwner.h"
#include "osascript/values/Value.h"

namespace Tessel::Osascript {

/// A command with its values.
struct Invocation
{
    const CommandTerm *command = nullptr;
    Value direct = {}; ///< nothing when there is none
    QList<Field> arguments = {}; ///< by label
    Value target = {}; ///< what is told: an object, or nothing

    /// Nothing when it is not given.
    [[nodiscard]] Value argument(QStringView label) const;
    [[nodiscard]] bool is(QStringView words) const { return command->words == words; }
};

/// What an application lets scripts see and do. This class knows what every application does; the
/// adapters add elements, properties and commands. All raise script errors.
///
/// An application of the desktop that has an adapter's name is activated and quit in its place.
/// Without one, the adapter is always running.
class Application : public ObjectOwner
{
public:
    Application(QString name, Host &host);
    ~Application() override = default;
    Q_DISABLE_COPY_MOVE(Application)

    [[nodiscard]] QString name() const final { return m_name; }
    [[nodiscard]] Value object(); ///< the application itself

    /// All elements of the class in the container.
    [[nodiscard]] virtual QList<Object> elements(const Object &container, const QString &className);
    /// Of an object of this application; nothing when it has no such property.
    [[nodiscard]] virtual Value property(const Object &object, const QString &name);
    /// False when the property cannot be set.
    [[nodiscard]] virtual bool setProperty(const Object &object, const QString &name,
                                           const Value &value);
    [[nodiscard]] QString nameOf(const Object &object) const override;
    /// Whether the element is there without being among elements(): calendars that only have to be
    /// named.
    [[nodiscard]] virtual bool acceptsName(const QString &className) const;
    [[nodiscard]] virtual Value perform(const Invocation &invocation);
    /// The script has ended without an error.
    virtual void finish() { }

protected:
    [[nodiscard]] Host &host() const { return m_host; }
    [[nodiscard]] Object element(const QString &className, const QString &key);
    /// How an adapter is activated: it shows what it has, if anything.
    virtual void activate() { }
    [[noreturn]] void failNotUnderstanding(const Invocation &invocation) const;
    /// The text of an argument, or of a field of the properties.
    [[nodiscard]] static QString textOf(const Value &value);

private:
    QString m_name;
    Host &m_host;
};

/// The application that the object belongs to: nothing else owns objects.
[[nodiscard]] Application &applicationOf(const Object &object);

}
