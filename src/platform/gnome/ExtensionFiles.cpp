// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ExtensionFiles.h"

#include "base/LocalizationManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto extensionFolder = u"gnome-shell/extensions/"_s + ExtensionFiles::uuid();

/// The build folder counts only for the program in it (HelperFolder.cpp).
QString shippedFolder()
{
    const QString built = QStringLiteral(TESSEL_BUILD_EXTENSION);
    const QString program = QDir::cleanPath(QCoreApplication::applicationDirPath());
    const bool isBuilt = QFileInfo(built).path() == program;
    return isBuilt ? built
                   : QDir::cleanPath(program + u"/../share/tessel/gnome-shell-extension"_s);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

bool copyAll(const QString &from, const QString &to)
{
    const QStringList names = QDir(from).entryList(QDir::Files);
    return QDir().mkpath(to) && std::all_of(names.cbegin(), names.cend(), [&](const QString &name) {
               return QFile::copy(from + u'/' + name, to + u'/' + name);
           });
}

}

ExtensionFiles::ExtensionFiles()
    : ExtensionFiles(shippedFolder(),
                     QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/'
                         + extensionFolder)
{
}

ExtensionFiles::ExtensionFiles(QString shipped, QString copy)
    : m_shipped(std::move(shipped))
    , m_copy(std::move(copy))
{
}

QString ExtensionFiles::shippedFor(const QString &shellVersion) const
{
    const int version = shellVersion.section(u'.', 0, 0).toInt();
    int best = 0;
    for (const QString &first : QDir(m_shipped).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (first.toInt() <= version)
            best = qMax(best, first.toInt());
    }
    return best > 0 ? m_shipped + u'/' + QString::number(best) : QString();
}

bool ExtensionFiles::areThere() const
{
    const auto systems = QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                extensionFolder, QStandardPaths::LocateDirectory);
    return QFileInfo(m_copy).isDir() || !systems.isEmpty();
}

bool ExtensionFiles::isCopyOld(const QString &shellVersion) const
{
    const QString shipped = shippedFor(shellVersion);
    const QFileInfo copy(m_copy);
    if (shipped.isEmpty() || !copy.isDir() || copy.isSymLink())
        return false;
    const QStringList names = QDir(shipped).entryList(QDir::Files);
    return std::any_of(names.cbegin(), names.cend(), [&](const QString &name) {
        return contentOf(shipped + u'/' + name) != contentOf(m_copy + u'/' + name);
    });
}

/// What is half done lies in a folder beside it that goes in any case.
Result<void> ExtensionFiles::install(const QString &shellVersion) const
{
    const QString shipped = shippedFor(shellVersion);
    if (shipped.isEmpty())
        return Failure {
            localized(u"Tessel has no extension for GNOME Shell %1."_s).arg(shellVersion)
        };
    const QFileInfo copy(m_copy);
    if (copy.isSymLink())
        return Failure { localized(u"%1 is a link, which stays as it is."_s).arg(m_copy) };
    QDir().mkpath(copy.path());
    const QTemporaryDir beside(copy.path() + u"/.tessel-XXXXXX"_s);
    if (!beside.isValid() || !copyAll(shipped, beside.filePath(u"new"_s))
        || (copy.exists() && !QDir().rename(m_copy, beside.filePath(u"old"_s)))
        || !QDir().rename(beside.filePath(u"new"_s), m_copy))
        return Failure { localized(u"%1 cannot be written."_s).arg(copy.path()) };
    return {};
}

}
