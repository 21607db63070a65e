// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/MimeApplications.h"

#include "platform/freedesktop/ExecLine.h"

#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qint64 maxFile = 1 << 20;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(maxFile) : QByteArray();
}

/// Section "File name and location", in that order.
QList<QByteArray> listsOnDisk()
{
    QStringList names;
    for (const QString &desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':'))
        names += desktop.isEmpty() ? QStringList() : QStringList(desktop.toLower() + u'-');
    names += QString();
    using Paths = QStandardPaths;
    const QStringList folders = Paths::standardLocations(Paths::GenericConfigLocation)
        + Paths::standardLocations(Paths::ApplicationsLocation);
    QList<QByteArray> contents;
    for (const QString &folder : folders) {
        for (const QString &name : std::as_const(names))
            contents += contentOf(folder + u'/' + name + u"mimeapps.list"_s);
    }
    return contents;
}

/// What a group of the file says of the type.
QStringList identifiersIn(const QByteArray &content, const QByteArray &group,
                          const QByteArray &mimeType)
{
    QStringList identifiers;
    bool inGroup = false;
    for (const QByteArray &line : content.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        const qsizetype equals = trimmed.indexOf('=');
        if (trimmed.startsWith('['))
            inGroup = trimmed == '[' + group + ']';
        else if (inGroup && equals > 0 && trimmed.left(equals).trimmed() == mimeType)
            identifiers += QString::fromUtf8(trimmed.mid(equals + 1)).split(u';');
    }
    for (QString &identifier : identifiers) {
        identifier = identifier.trimmed();
        if (identifier.endsWith(u".desktop"))
            identifier.chop(8);
    }
    identifiers.removeAll(QString());
    return identifiers;
}

bool canStart(const DesktopEntry &entry)
{
    const QStringList command = commandLine(entry);
    return !command.isEmpty() && !QStandardPaths::findExecutable(command.first()).isEmpty();
}

}

QStringList associatedApplications(const QString &mimeType, const QList<QByteArray> &lists,
                                   const QStringList &declaring)
{
    const QByteArray type = mimeType.toUtf8();
    QStringList defaults;
    QStringList added;
    QStringList removed;
    const auto add = [&](const QStringList &identifiers) {
        for (const QString &identifier : identifiers) {
            if (!removed.contains(identifier))
                added += identifier;
        }
    };
    for (const QByteArray &list : lists) {
        defaults += identifiersIn(list, "Default Applications", type);
        add(identifiersIn(list, "Added Associations", type));
        removed += identifiersIn(list, "Removed Associations", type);
    }
    add(declaring);
    return defaults + added;
}

std::optional<DesktopEntry> applicationFor(const QString &mimeType, DesktopEntries &entries)
{
    QStringList declaring;
    for (const DesktopEntry &entry : entries.all()) {
        if (declaresMimeType(contentOf(entry.file), mimeType.toUtf8()))
            declaring += entry.id;
    }
    for (const QString &id : associatedApplications(mimeType, listsOnDisk(), declaring)) {
        auto entry = entries.findNamed(id);
        if (entry && entry->id.compare(id, Qt::CaseInsensitive) == 0 && canStart(*entry))
            return entry;
    }
    return {};
}

}
