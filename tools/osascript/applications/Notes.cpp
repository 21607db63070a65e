// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/Notes.h"

#include "base/LocalizationManager.h"
#include "osascript/applications/NoteText.h"
#include "osascript/applications/UserFolders.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr int maxNames = 10000; // of notes with the same title

QString notesFolder()
{
    return userFolder(u"documents") + u"/Notes"_s;
}

/// A new file of this name, or with a number after it when there is one already.
bool createNew(QFile &file, const QString &folder, const QString &name)
{
    for (int number = 1; number < maxNames; ++number) {
        const QString suffix = number == 1 ? QString() : u' ' + QString::number(number);
        file.setFileName(folder + u'/' + name + suffix + u".md"_s);
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) // O_EXCL
            return true;
        if (!QFileInfo::exists(file.fileName()) && !QFileInfo(file.fileName()).isSymLink())
            return false;
    }
    return false;
}

struct Note
{
    QString title;
    QString text;
};

/// The first line with anything in it is the title, unless there is a name.
Note noteFrom(const Value &properties)
{
    const auto *record = properties.as<RecordPointer>();
    const auto field = [&](QStringView name) {
        const Value *value = record ? (*record)->find(name) : nullptr;
        return value ? toText(*value, {}) : QString();
    };
    const QString name = field(u"name");
    const QString text = noteText(field(u"body"));
    if (!name.isEmpty())
        return { name, u"# "_s + name.simplified() + (text.isEmpty() ? u""_s : u"\n\n"_s + text) };
    return { text.trimmed().section(u'\n', 0, 0), text };
}

}

Notes::Notes(Host &host)
    : Application(u"Notes"_s, host)
{
}

bool Notes::acceptsName(const QString &className) const
{
    return className == u"folder" || className == u"account";
}

QString Notes::pathOf(const Value &place) const
{
    const auto *object = place.as<Object>();
    const bool isOwn = object && object->className == u"folder" && object->key != u"Notes";
    return isOwn ? notesFolder() + u'/' + noteFileName(object->key) : notesFolder();
}

QList<Object> Notes::elements(const Object &container, const QString &className)
{
    if (className != u"note" && className != u"folder")
        return Application::elements(container, className);
    const QDir folder(pathOf(Value(container)));
    QList<Object> objects;
    if (className == u"folder") {
        for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            objects.append(element(className, name));
        return objects;
    }
    for (const QFileInfo &file : folder.entryInfoList({ u"*.md"_s }, QDir::Files, QDir::Time))
        objects.append(element(className, file.absoluteFilePath()));
    return objects;
}

QString Notes::nameOf(const Object &object) const
{
    return object.className == u"note" ? QFileInfo(object.key).completeBaseName() : object.key;
}

Value Notes::property(const Object &object, const QString &name)
{
    if (name == u"default account")
        return Value(element(u"account"_s, u"Notes"_s));
    if (object.className != u"note" || (name != u"body" && name != u"plaintext"))
        return Application::property(object, name);
    QFile file(object.key);
    if (!file.open(QIODevice::ReadOnly))
        failToGet(u"note "_s + quoted(nameOf(object)));
    return Value(QString::fromUtf8(file.readAll()));
}

Value Notes::make(const Invocation &invocation)
{
    const Value newClass = invocation.argument(u"new");
    const auto *className = newClass.as<ClassName>();
    if (!className || className->name != u"note")
        failNotUnderstanding(invocation);
    const Note note = noteFrom(invocation.argument(u"with properties"));
    const Value place = invocation.argument(u"at");
    const QString folder = pathOf(place.is<Object>() ? place : invocation.target);
    const QByteArray bytes = note.text.toUtf8() + '\n';
    QFile file;
    const bool isWritten = QDir().mkpath(folder)
        && createNew(file, folder, noteFileName(note.title)) && file.write(bytes) == bytes.size()
        && file.flush();
    if (!isWritten)
        fail(ScriptError::notAllowed,
             u"The note cannot be written to “"_s + folder + u"”: "_s + file.errorString() + u'.');
    file.close();
    const QString title = QFileInfo(file).completeBaseName();
    // The note is there, whether or not it can be announced.
    static_cast<void>(host().dialogs.notify(
        { .text = localized(u"The note was added."_s), .title = title, .file = file.fileName() }));
    return Value(element(u"note"_s, file.fileName()));
}

void Notes::activate()
{
    if (!QDir().mkpath(notesFolder()))
        fail(ScriptError::notAllowed, u"The folder “"_s + notesFolder() + u"” cannot be made."_s);
    check(host().desktop.open(notesFolder(), {}));
}

Value Notes::perform(const Invocation &invocation)
{
    if (invocation.is(u"make"))
        return make(invocation);
    const auto *note = invocation.direct.as<Object>();
    if (!invocation.is(u"show") || !note || note->className != u"note")
        return Application::perform(invocation);
    check(host().desktop.open(note->key, {}));
    return {};
}

}
