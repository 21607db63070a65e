// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/FeedSignature.h"

#include <memory>

#include <openssl/evp.h>

namespace Tessel {

// libcrypto, since Qt's TLS needs it at run time anyway: a second library would add nothing.

namespace {

constexpr qsizetype keySize = 32;
constexpr qsizetype signatureSize = 64;

using Key = std::unique_ptr<EVP_PKEY, decltype([](EVP_PKEY *key) { EVP_PKEY_free(key); })>;
using Context
    = std::unique_ptr<EVP_MD_CTX, decltype([](EVP_MD_CTX *context) { EVP_MD_CTX_free(context); })>;

/// Empty unless the text is Base64 of so many bytes.
QByteArray decoded(const QByteArray &base64, qsizetype size)
{
    const auto result
        = QByteArray::fromBase64Encoding(base64.trimmed(), QByteArray::AbortOnBase64DecodingErrors);
    return result && (*result).size() == size ? *result : QByteArray();
}

const unsigned char *octets(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

}

bool isSignedBy(const QByteArray &publicKey, const QByteArray &signature, const QByteArray &data)
{
    const QByteArray rawKey = decoded(publicKey, keySize);
    const QByteArray rawSignature = decoded(signature, signatureSize);
    if (rawKey.isEmpty() || rawSignature.isEmpty())
        return false;
    const Key key(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, octets(rawKey), size_t(keySize)));
    const Context context(EVP_MD_CTX_new());
    return key && context
        && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) == 1
        && EVP_DigestVerify(context.get(), octets(rawSignature), size_t(signatureSize),
                            octets(data), size_t(data.size()))
        == 1;
}

}
