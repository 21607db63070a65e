// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ExecStrings.h"

#include "base/LocalizationManager.h"
#include "base/PrivateVariables.h"

#include <algorithm>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// The process's own variables, byte for byte, but for those that are changed or private.
QList<QByteArray> environmentWith(const QMap<QString, std::optional<QString>> &wanted)
{
    auto changes = variablesOfChildren();
    changes.insert(wanted);
    QList<QByteArray> entries;
    for (char **entry = environ; entry && *entry; ++entry) {
        const QByteArray own(*entry);
        if (!changes.contains(QString::fromUtf8(own.left(own.indexOf('=')))))
            entries.append(own);
    }
    for (auto it = changes.cbegin(); it != changes.cend(); ++it) {
        if (*it)
            entries.append((it.key() + u'=' + **it).toUtf8());
    }
    return entries;
}

/// Of one string with its ending zero (MAX_ARG_STRLEN).
qsizetype maxStringSize()
{
    return 32 * qsizetype { sysconf(_SC_PAGESIZE) };
}

/// Of all strings and the pointers to them. The kernel takes no more than 6 MiB, however large the
/// stack is; some is left for the path and for the interpreter of a script.
qsizetype maxTotalSize()
{
    constexpr qsizetype most = 6 << 20;
    constexpr qsizetype reserve = 4 << 10;
    const qsizetype limit = sysconf(_SC_ARG_MAX);
    return (limit < 0 ? most : std::min(limit, most)) - reserve;
}

const QByteArray *tooLong(const QList<QByteArray> &strings)
{
    const auto found = std::find_if(strings.cbegin(), strings.cend(), [](const QByteArray &string) {
        return string.size() + 1 > maxStringSize();
    });
    return found == strings.cend() ? nullptr : &*found;
}

qsizetype totalSize(const QList<QByteArray> &strings)
{
    qsizetype size = 0;
    for (const QByteArray &string : strings)
        size += string.size() + 1 + qsizetype(sizeof(char *));
    return size;
}

bool hasNul(const QList<QByteArray> &strings)
{
    return std::any_of(strings.cbegin(), strings.cend(),
                       [](const QByteArray &string) { return string.contains('\0'); });
}

}

ExecStrings::ExecStrings(const QString &path, const CommandRequest &request)
    : arguments { path.toUtf8() }
    , environment(environmentWith(request.environment))
{
    for (const QString &argument : request.arguments)
        arguments.append(argument.toUtf8());
}

Result<void> ExecStrings::check() const
{
    if (hasNul(arguments) || hasNul(environment))
        return Failure { localized(
            u"The text contains a NUL character, which cannot be handed to a program."_s) };
    if (const QByteArray *variable = tooLong(environment))
        return Failure { localized(
                             u"The text is too large for the variable %1, which takes %2 KiB."_s)
                             .arg(QString::fromUtf8(variable->left(variable->indexOf('='))))
                             .arg(maxStringSize() >> 10) };
    if (tooLong(arguments) || totalSize(arguments) + totalSize(environment) > maxTotalSize())
        return Failure { localized(u"The text is too large to be handed to a program."_s) };
    return {};
}

std::vector<char *> nullTerminated(QList<QByteArray> &strings)
{
    std::vector<char *> pointers;
    for (QByteArray &string : strings)
        pointers.push_back(string.data());
    pointers.push_back(nullptr);
    return pointers;
}

}
