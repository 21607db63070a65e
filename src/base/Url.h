// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tessel {

/// URLs as RFC 3986 has them.
namespace Url {

/// The scheme (section 3.1) that stands before the text's first colon; empty when there is none.
[[nodiscard]] QStringView schemeOf(QStringView text);

/// An absolute URL as it may be handed to a handler: RFC 3986 characters only. Non-ASCII ones are
/// percent-encoded (RFC 3987, section 3.1), and so are brackets, braces, quotation marks and the
/// like behind the host. Nothing when the text is not a URL.
[[nodiscard]] std::optional<QString> validated(const QString &text);

}

}
