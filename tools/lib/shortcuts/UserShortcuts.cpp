// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/shortcuts/UserShortcuts.h"

#include "base/RunCommand.h"
#include "base/TextRules.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto inputVariable = u"SHORTCUT_INPUT"_s;

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

constexpr int maxLinks = 40; // as many as the kernel follows

/// Fails when somebody else could have changed a link, file or folder. In a sticky folder, as the
/// one for temporary files is, others cannot touch what is not theirs.
Result<void> checkOwnership(const QString &path)
{
    struct stat status = {};
    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        return Failure { path + u": "_s + qt_error_string(errno) };
    if (status.st_uid != geteuid() && status.st_uid != 0)
        return Failure { path + u" belongs to somebody else."_s };
    const bool isSticky = S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
    const bool isShared = !S_ISLNK(status.st_mode) && (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    if (isShared && !isSticky)
        return Failure { path + u" can be written by others; “chmod go-w” ends that."_s };
    return {};
}

/// The same for the path, all folders above it and what links on the way lead to: whoever can
/// rename one of them decides what is found at the path.
Result<void> checkTrust(const QString &path, int links = maxLinks)
{
    for (QString next = QDir::cleanPath(path);; next = QFileInfo(next).path()) {
        if (auto result = checkOwnership(next); !result)
            return result;
        const QFileInfo info(next);
        if (info.isSymLink() && links == 0)
            return Failure { path + u" leads to itself."_s };
        if (info.isSymLink()) {
            if (auto result = checkTrust(info.symLinkTarget(), links - 1); !result)
                return result;
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

/// Whether the variable with the input is named where it is looked for, in a script's text.
bool namesInputVariable(const QString &path)
{
    constexpr qint64 maxScript = 1 << 20;
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
        && file.read(maxScript).contains(inputVariable.toLatin1());
}

void leaveInputVariableOut(CommandRequest &request, const QString &path)
{
    request.environment[inputVariable] = std::nullopt;
    if (namesInputVariable(path))
        std::fputs("SHORTCUT_INPUT is not set: the text is too large or has a NUL character. "
                   "Standard input has it.\n",
                   stderr);
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
        if (!entry.isOwn || checkTrust(entry.path))
            names += entry.name;
    }
    return names;
}

/// Sorted by name.
QList<UserShortcuts::Entry> UserShortcuts::entries()
{
    offerSamples();
    QList<Entry> entries;
    for (const bool isOwn : { true, false }) {
        const QDir folder(isOwn ? m_folder : sampleFolder(m_helperFolder) + u"/builtin"_s);
        const QFileInfoList files
            = folder.entryInfoList(QDir::Files | QDir::Executable, QDir::Name);
        for (const QFileInfo &file : files) {
            const QString name = nfc(file.completeBaseName());
            const bool isKnown = std::any_of(entries.cbegin(), entries.cend(),
                                             [&name](const Entry &e) { return e.name == name; });
            if (!file.fileName().endsWith(u'~') && !hasControls(name) && !isKnown)
                entries.append({ name, file.filePath(), isOwn });
        }
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
    if (!outcome.result)
        return outcome.result.error();
    return exactText(outcome.output);
}

UserShortcuts::Outcome UserShortcuts::run(const QString &name, const QByteArray &input)
{
    const QString wanted = nfc(name);
    const QList<Entry> known = entries();
    const auto entry = std::find_if(known.cbegin(), known.cend(),
                                    [&wanted](const Entry &e) { return e.name == wanted; });
    if (entry == known.cend())
        return { Failure { u"There is no shortcut “%1” in %2."_s.arg(wanted, m_folder) } };
    const auto trust = entry->isOwn ? checkTrust(entry->path) : Result<void>();
    if (!trust)
        return { Failure { u"The shortcut “%1” is not run: "_s.arg(wanted)
                           + trust.error().reason } };
    return execute(*entry, input);
}

UserShortcuts::Outcome UserShortcuts::execute(const Entry &entry, const QByteArray &input) const
{
    const QString path = qEnvironmentVariable("PATH", u"/usr/local/bin:/usr/bin:/bin"_s);
    CommandRequest request { .program = entry.path,
                             .environment = { { u"PATH"_s, m_helperFolder + u':' + path },
                                              { inputVariable, exactText(input) } },
                             .input = input,
                             .errorOutput = CommandRequest::Output::inherited,
                             .endsWithParent = true };
    if (isShellScript(entry.path)) {
        request.program = u"/bin/sh"_s;
        request.arguments = { entry.path };
    }
    if (!canBeHandedOver(request))
        leaveInputVariableOut(request, entry.path);
    const auto result = runCommand(request);
    if (!result)
        return { Failure { u"The shortcut “%1” cannot be run: "_s.arg(entry.name)
                           + result.error().reason } };
    Outcome outcome { {}, result->output };
    if (result->isEndedBySignal)
        outcome.result = Failure { u"The shortcut “%1” was ended by a signal."_s.arg(entry.name) };
    else if (result->exitStatus != 0)
        outcome.result = Failure {
            u"The shortcut “%1” failed with status %2."_s.arg(entry.name).arg(result->exitStatus)
        };
    return outcome;
}

}
