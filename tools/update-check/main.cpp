// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/LocalizationManager.h"
#include "update-check/CheckResult.h"
#include "update-check/FeedAddress.h"
#include "update-check/FeedDownload.h"
#include "update-check/FeedSignature.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QNetworkProxyFactory>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <optional>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 maxFeedSize = 1 << 20;
constexpr qint64 maxSignatureSize = 1 << 10;

struct Question
{
    QUrl feed;
    QByteArray publicKey;
    QString inUse;
    QString seen;
    int timeout = 0; ///< milliseconds, for everything
};

Question questionFrom(const QCoreApplication &app)
{
    const QCommandLineOption feed(u"feed"_s, u"The address of the appcast."_s, u"URL"_s);
    const QCommandLineOption key(u"key"_s, u"The Ed25519 key of its signer."_s, u"Base64"_s);
    const QCommandLineOption current(u"current"_s, u"The version in use."_s, u"version"_s);
    const QCommandLineOption seen(u"seen"_s, u"The highest version of earlier checks."_s,
                                  u"version"_s);
    const QCommandLineOption timeout(u"timeout"_s, u"The time for everything."_s, u"milliseconds"_s,
                                     u"15000"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Fetches a signed appcast and prints, as JSON, whether it has a newer version."_s);
    parser.addHelpOption();
    parser.addOptions({ feed, key, current, seen, timeout });
    parser.process(app);
    return { QUrl(parser.value(feed), QUrl::StrictMode), parser.value(key).toLatin1(),
             parser.value(current), parser.value(seen), parser.value(timeout).toInt() };
}

CheckResult failed(const Failure &failure)
{
    return { CheckResult::Status::error, {}, failure.reason };
}

CheckResult answer(const Question &question, const QByteArray &feed, const QByteArray &signature)
{
    if (!isSignedBy(question.publicKey, signature, feed))
        return failed({ localized(u"The signature of the update feed is not valid."_s) });
    const Result<Release> newest = parseAppcast(feed);
    return newest ? compareRelease(*newest, question.inUse, question.seen) : failed(newest.error());
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    LocalizationManager::shared().takeInheritedLanguage();
    const Question question = questionFrom(app);
    QNetworkProxyFactory::setUseSystemConfiguration(true);

    std::optional<CheckResult> result; // the first one counts
    const auto finish = [&result](const CheckResult &outcome) {
        if (!result)
            result = outcome;
        QCoreApplication::quit();
    };
    FeedDownload download(question.feed);
    QTimer::singleShot(question.timeout, &app, [&finish] {
        finish(failed({ localized(u"The server did not answer in time."_s) }));
    });
    QTimer::singleShot(0, &app, [&] {
        download.fetch(question.feed, maxFeedSize, [&](const Result<QByteArray> &feed) {
            if (!feed)
                return finish(failed(feed.error()));
            download.fetch(signatureAddress(question.feed), maxSignatureSize,
                           [&finish, &question, feed](const Result<QByteArray> &signature) {
                               finish(signature ? answer(question, *feed, *signature)
                                                : failed(signature.error()));
                           });
        });
    });
    QCoreApplication::exec();
    std::fputs(toJson(*result).constData(), stdout);
    std::fflush(stdout);
    // Not by way of Qt's network thread, which takes its time with headers that never end.
    std::_Exit(result->status == CheckResult::Status::error ? 1 : 0);
}
