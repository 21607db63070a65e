// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/DesktopEntries.h"

namespace Tessel {

/// The application that opens files of the type by default, else one that is associated with it
/// (MIME Applications Associations 1.0.1). Only associations with the type itself count, not those
/// with what it is a kind of: an editor for all text is no application for calendar entries. What
/// cannot be started is passed over.
[[nodiscard]] std::optional<DesktopEntry> applicationFor(const QString &mimeType,
                                                         DesktopEntries &entries);

/// Identifiers of applications for the type, as the contents of mimeapps.list files in order of
/// precedence say; the most preferred first. `declaring` are those whose entries name the type.
[[nodiscard]] QStringList associatedApplications(const QString &mimeType,
                                                 const QList<QByteArray> &lists,
                                                 const QStringList &declaring);

}
