// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "UserShortcuts.h"

#include "ChildLifetime.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>

#include <unistd.h>

using namespace Qt::StringLiterals;
using osascript::Failure;

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

/// Why a file or folder is not to be trusted; links count as what they lead to.
Failure distrust(const QFileInfo &info)
{
    if (info.ownerId() != geteuid() && info.ownerId() != 0)
        return info.filePath() + u" belongs to somebody else."_s;
    if (info.permissions() & (QFile::WriteGroup | QFile::WriteOther))
        return info.filePath() + u" can be written by others; “chmod go-w” ends that."_s;
    return {};
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
    if (distrust(QFileInfo(m_folder)))
        return names;
    for (const Entry &entry : known) {
        if (!distrust(QFileInfo(entry.path)))
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
        if (!file.fileName().endsWith(u'~') && !isKnown)
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

osascript::ShortcutResult UserShortcuts::run(const QString &name, const QString &input)
{
    const Outcome outcome = run(name, input.toUtf8());
    return { outcome.failure, QString::fromUtf8(outcome.output) };
}

UserShortcuts::Outcome UserShortcuts::run(const QString &name, const QByteArray &input)
{
    const QString wanted = nfc(name);
    const QList<Entry> known = entries();
    const auto entry = std::find_if(known.cbegin(), known.cend(),
                                    [&wanted](const Entry &e) { return e.name == wanted; });
    if (entry == known.cend())
        return { u"There is no shortcut “%1” in %2."_s.arg(wanted, m_folder), {} };
    for (const QString &path : { m_folder, entry->path }) {
        if (const auto reason = distrust(QFileInfo(path)))
            return { u"The shortcut “%1” is not run: "_s.arg(wanted) + *reason, {} };
    }
    return execute(*entry, input);
}

UserShortcuts::Outcome UserShortcuts::execute(const Entry &entry, const QByteArray &input) const
{
    QProcess process;
    endWithParent(process);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setProcessEnvironment(environmentFor(input, m_helperFolder));
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
