// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/Finder.h"

#include "osascript/applications/UserFolders.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/ValueProperties.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

Finder::Finder(Host &host)
    : Application(u"Finder"_s, host)
{
}

Object Finder::objectAt(const QString &path)
{
    return element(QFileInfo(path).isDir() ? u"folder"_s : u"file"_s, path);
}

/// The desktop's folder contains what no other folder is named for.
QList<Object> Finder::elements(const Object &container, const QString &className)
{
    const bool isFolder = className == u"folder";
    const bool isAny = className == u"item";
    if (!isFolder && !isAny && className != u"file")
        return Application::elements(container, className);
    const bool isOfFolder = container.className == u"folder";
    const QDir folder(isOfFolder ? container.key : userFolder(u"desktop"));
    const QDir::Filters kinds
        = isAny ? QDir::Files | QDir::Dirs : QDir::Filters(isFolder ? QDir::Dirs : QDir::Files);
    QList<Object> objects;
    for (const QFileInfo &entry :
         folder.entryInfoList(kinds | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase))
        objects.append(objectAt(entry.absoluteFilePath()));
    return objects;
}

QString Finder::nameOf(const Object &object) const
{
    return object.className == u"application" ? object.key : QFileInfo(object.key).fileName();
}

Value Finder::property(const Object &object, const QString &name)
{
    if (object.className == u"application") {
        const bool isFolder = name == u"home" || name == u"desktop";
        return isFolder ? Value(objectAt(userFolder(name))) : Application::property(object, name);
    }
    if (name == u"container")
        return Value(objectAt(QFileInfo(object.key).absolutePath()));
    if (name == u"name extension" || name == u"URL")
        return valueProperty(Value(File { object.key }), name, {});
    if (name == u"POSIX path" || name == u"text")
        return Value(object.key);
    return name == u"alias" ? Value(File { object.key, true })
                            : Application::property(object, name);
}

QString Finder::pathOf(const Value &value)
{
    const auto *object = value.as<Object>();
    return object ? object->key : textOf(value);
}

void Finder::activate()
{
    check(host().desktop.open(userFolder(u"home"), {}));
}

Value Finder::perform(const Invocation &invocation)
{
    const bool reveals = invocation.is(u"reveal");
    if (!reveals && !invocation.is(u"open"))
        return Application::perform(invocation);
    const Value application = invocation.argument(u"using");
    const auto *with = application.as<Object>();
    for (const Value &item : toItems(invocation.direct)) {
        const QString path = pathOf(item);
        check(reveals ? host().desktop.reveal(path)
                      : host().desktop.open(path, with ? with->owner->name() : QString()));
    }
    return {};
}

}
