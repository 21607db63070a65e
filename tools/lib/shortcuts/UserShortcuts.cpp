// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/shortcuts/UserShortcuts.h"

#include "lib/support/ChildLifetime.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

using Distrust = std::optional<QString>;

namespace {

const auto inputVariable = u"SHORTCUT_INPUT"_s;
/// Of a variable with its name and the ending zero (execve(2), MAX_ARG_STRLEN).
constexpr qsizetype longestVariable = 128 << 10;

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QString sampleFolder(const QString &helperFolder)
{
    // The sources count only for the programs of the build folder.
    if (helperFolder == QStringLiteral(TESSEL_BUILD_HELPERS))
        return QStringLiteral(TESSEL_SOURCE_SAMPLES);
    return QDir::cleanPath(helperFolder + u"/../../share/tessel/shortcuts"_s);
}

QString nfc(const QString &text)
{
    return text.normalized(QString::NormalizationForm_C);
}

constexpr int mostLinks = 40; // as many as the kernel follows

/// Why somebody else could have changed a link, file or folder. In a sticky folder, as the one for
/// temporary files is, others cannot touch what is not theirs.
Distrust distrustOf(const QString &path)
{
    struct stat status = {};
    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        return path + u": "_s + qt_error_string(errno);
    if (status.st_uid != geteuid() && status.st_uid != 0)
        return path + u" belongs to somebody else."_s;
    const bool isSticky = S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
    const bool isShared = !S_ISLNK(status.st_mode) && (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    if (isShared && !isSticky)
        return path + u" can be written by others; “chmod go-w” ends that."_s;
    return {};
}

/// The same for the path, all folders above it and what links on the way lead to: whoever can
/// rename one of them decides what is found at the path.
Distrust distrust(const QString &path, int links = mostLinks)
{
    for (QString next = QDir::cleanPath(path);; next = QFileInfo(next).path()) {
        if (auto reason = distrustOf(next))
            return reason;
        const QFileInfo info(next);
        if (info.isSymLink() && links == 0)
            return path + u" leads to itself."_s;
        if (info.isSymLink()) {
            if (auto reason = distrust(info.symLinkTarget(), links - 1))
                return reason;
        }
        if (info.isRoot())
            return {};
    }
}

/// A name with a line break would be two in a list.
bool hasControls(const QString &name)
{
    return std::any_of(name.cbegin(), name.cend(),
                       [](QChar c) { return c.category() == QChar::Other_Control; });
}

/// Whether the file is text that names no interpreter: execve() refuses it, and a shell runs it
/// then. What has a NUL in its first line is not text (sh(1p), ENOEXEC).
bool isShellScript(const QString &path)
{
    QFile file(path);
    const QByteArray start = file.open(QIODevice::ReadOnly) ? file.read(256) : QByteArray();
    const QByteArray firstLine = start.left(start.indexOf('\n'));
    return !start.startsWith("#!") && !start.isEmpty() && !firstLine.contains('\0');
}

bool fitsVariable(const QByteArray &input)
{
    return inputVariable.size() + 1 + input.size() + 1 <= longestVariable && !input.contains('\0');
}

QProcessEnvironment environmentFor(const QByteArray &input, const QString &helperFolder)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PATH"_s,
                       helperFolder + u':'
                           + environment.value(u"PATH"_s, u"/usr/local/bin:/usr/bin:/bin"_s));
    environment.remove(inputVariable);
    if (fitsVariable(input))
        environment.insert(inputVariable, QString::fromUtf8(input));
    else
        std::fputs("SHORTCUT_INPUT is not set: the text is too large or has a NUL character. "
                   "Standard input has it.\n",
                   stderr);
    return environment;
}

}

UserShortcuts::UserShortcuts(QString helperFolder, QString folder)
    : m_helperFolder(std::move(helperFolder))
    , m_folder(std::move(folder))
{
}

QString UserShortcuts::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + u"/tessel/shortcuts"_s;
}

QStringList UserShortcuts::names()
{
    QStringList names;
    const QList<Entry> known = entries();
    for (const Entry &entry : known) {
        if (!distrust(entry.path))
            names += entry.name;
    }
    return names;
}

/// Sorted by name.
QList<UserShortcuts::Entry> UserShortcuts::entries()
{
    offerSamples();
    QList<Entry> entries;
    const QFileInfoList files
        = QDir(m_folder).entryInfoList(QDir::Files | QDir::Executable, QDir::Name);
    for (const QFileInfo &file : files) {
        const QString name = nfc(file.completeBaseName());
        const bool isKnown = std::any_of(entries.cbegin(), entries.cend(),
                                         [&name](const Entry &e) { return e.name == name; });
        if (!file.fileName().endsWith(u'~') && !hasControls(name) && !isKnown)
            entries.append({ name, file.filePath() });
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry &a, const Entry &b) { return a.name < b.name; });
    return entries;
}

void UserShortcuts::offerSamples()
{
    const QFileInfo folder(m_folder);
    if (folder.exists() || !QDir().mkpath(folder.path()) || !QDir().mkdir(m_folder, ownerOnly))
        return;
    const QFileInfoList samples = QDir(sampleFolder(m_helperFolder)).entryInfoList(QDir::Files);
    for (const QFileInfo &sample : samples) {
        const QString copy = m_folder + u'/' + sample.fileName();
        if (QFile::copy(sample.filePath(), copy))
            QFile::setPermissions(copy, ownerOnly);
    }
}

Result<QString> UserShortcuts::run(const QString &name, const QString &input)
{
    const Outcome outcome = run(name, input.toUtf8());
    if (outcome.failure)
        return Failure { *outcome.failure };
    return QString::fromUtf8(outcome.output);
}

UserShortcuts::Outcome UserShortcuts::run(const QString &name, const QByteArray &input)
{
    const QString wanted = nfc(name);
    const QList<Entry> known = entries();
    const auto entry = std::find_if(known.cbegin(), known.cend(),
                                    [&wanted](const Entry &e) { return e.name == wanted; });
    if (entry == known.cend())
        return { u"There is no shortcut “%1” in %2."_s.arg(wanted, m_folder), {} };
    if (const auto reason = distrust(entry->path))
        return { u"The shortcut “%1” is not run: "_s.arg(wanted) + *reason, {} };
    return execute(*entry, input);
}

UserShortcuts::Outcome UserShortcuts::execute(const Entry &entry, const QByteArray &input) const
{
    QProcess process;
    endWithParent(process);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setProcessEnvironment(environmentFor(input, m_helperFolder));
    if (isShellScript(entry.path))
        process.start(u"/bin/sh"_s, { entry.path });
    else
        process.start(entry.path, QStringList());
    if (!process.waitForStarted(-1))
        return { u"The shortcut “%1” cannot be run: "_s.arg(entry.name) + process.errorString(),
                 {} };
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    Outcome outcome { {}, process.readAllStandardOutput() };
    if (process.exitStatus() != QProcess::NormalExit)
        outcome.failure = u"The shortcut “%1” was ended by a signal."_s.arg(entry.name);
    else if (process.exitCode() != 0)
        outcome.failure
            = u"The shortcut “%1” failed with status %2."_s.arg(entry.name).arg(process.exitCode());
    return outcome;
}

}
