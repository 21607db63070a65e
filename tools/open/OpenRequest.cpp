// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "open/OpenRequest.h"

#include "base/Url.h"

#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// A URL as it is, else an absolute path. A file that exists is never taken for a URL.
QString targetFrom(const QString &argument)
{
    const bool isUrl = !Url::schemeOf(argument).isEmpty() && !QFileInfo::exists(argument);
    return isUrl ? argument : QDir::cleanPath(QDir::current().absoluteFilePath(argument));
}

/// Takes the letters of one argument; those with a value take it from the next ones.
bool takeOptions(OpenRequest &request, const QString &letters, QStringList &rest)
{
    const QString withoutEffect = u"gnFjW"_s; // how the application starts is its own matter
    for (const QChar letter : letters) {
        if ((letter == u'a' || letter == u'b') && !rest.isEmpty())
            request.application = rest.takeFirst();
        else if (letter == u't' || letter == u'e')
            request.opensAsText = true;
        else if (letter == u'R')
            request.reveals = true;
        else if (!withoutEffect.contains(letter))
            return false;
    }
    return true;
}

}

std::optional<OpenRequest> OpenRequest::parse(const QStringList &arguments)
{
    OpenRequest request;
    bool takesOptions = true;
    for (QStringList rest = arguments; !rest.isEmpty();) {
        const QString argument = rest.takeFirst();
        if (takesOptions && argument == u"--args")
            request.arguments = std::exchange(rest, {});
        else if (takesOptions && argument == u"--")
            takesOptions = false;
        else if (!takesOptions || argument == u"-" || !argument.startsWith(u'-'))
            request.targets += targetFrom(argument);
        else if (!takeOptions(request, argument.mid(1), rest))
            return {};
    }
    const bool hasApplication = !request.application.isEmpty() || request.opensAsText;
    const bool isComplete = !request.targets.isEmpty() || (hasApplication && !request.reveals);
    const bool takesArguments = hasApplication && !request.reveals;
    if (!isComplete || (!request.arguments.isEmpty() && !takesArguments))
        return {};
    return request;
}

}
