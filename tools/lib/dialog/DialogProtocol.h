// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

#include <QJsonObject>

namespace Tessel {

/// What a script and tessel-dialog say to each other: one JSON object each, on standard input and
/// standard output. The request has the members of the structures of Host.h and "kind", "dialog" or
/// "list". Choices come back as positions, so that buttons and items are what the script said. Any
/// text gets through, half surrogate pairs included.
namespace DialogProtocol {

/// tessel-dialog exits with this when there is no display.
inline constexpr int exitWithoutDisplay = 3;

[[nodiscard]] QJsonObject toJson(const Osascript::DialogRequest &request);
[[nodiscard]] QJsonObject toJson(const Osascript::ListRequest &request);
[[nodiscard]] bool isList(const QJsonObject &request);
[[nodiscard]] Osascript::DialogRequest dialogRequest(const QJsonObject &json);
[[nodiscard]] Osascript::ListRequest listRequest(const QJsonObject &json);

/// A button's position; -1: the dialog gave up.
[[nodiscard]] QJsonObject dialogAnswer(int button, const QString &text);
[[nodiscard]] Osascript::DialogAnswer dialogAnswer(const QJsonObject &json,
                                                   const Osascript::DialogRequest &request);

/// The positions of the chosen items; nothing when the user cancelled.
[[nodiscard]] QJsonObject listAnswer(const std::optional<QList<int>> &chosen);
[[nodiscard]] std::optional<QStringList> listAnswer(const QJsonObject &json,
                                                    const Osascript::ListRequest &request);

}

}
