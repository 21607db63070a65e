// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace Tessel {

/// Whether `signature` is the Ed25519 signature (RFC 8032) of exactly these bytes by the owner of
/// `publicKey`. Both are Base64 (RFC 4648 § 4): of 64 and of 32 bytes; white space around is fine.
/// Anything else counts as a wrong signature.
[[nodiscard]] bool isSignedBy(const QByteArray &publicKey, const QByteArray &signature,
                              const QByteArray &data);

}
