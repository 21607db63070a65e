// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/GlintAction.h"
#include "actions/Pattern.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "base/TextRules.h"
#include "config/AppConfig.h"
#include "config/ConfigManager.h"
#include "config/DefaultActions.h"
#include "config/NotificationCenter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// The standard actions and as many as are missing, half of them with a regular expression.
AppConfig configWith(qsizetype actionCount)
{
    AppConfig config;
    config.customActions = DefaultActions::standard();
    for (qsizetype i = config.customActions.size(); i < actionCount; ++i) {
        ActionConfig action;
        action.id = u"3F2504E0-4F89-41D3-9A0C-%1"_s.arg(i, 12, 10, QChar(u'0'));
        action.title = u"Action %1"_s.arg(i);
        action.iconName = u"phosphor_magnifying-glass"_s;
        action.templateText = u"https://example.org/search?q={text}&n=%1"_s.arg(i);
        if (i % 4 == 0)
            action.regex = u"\\bitem-%1-[0-9]+"_s.arg(i);
        else if (i % 4 == 2)
            action.regex = u"[A-Z]{2,%1}:"_s.arg(i + 2);
        config.customActions.append(action);
    }
    return config;
}

QString prose(qsizetype size)
{
    const QString sentence = u"The quick brown fox jumps over the lazy dog, twice. "_s;
    return sentence.repeated(size / sentence.size() + 1).first(size);
}

/// A configuration manager on a file of its own.
class Store
{
public:
    explicit Store(qsizetype actionCount)
    {
        QDir(m_folder.path()).mkdir(u"GlintClone"_s);
        QFile file(m_folder.filePath(u"GlintClone/config.json"_s));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the configuration");
        file.write(encodeConfig(configWith(actionCount)));
    }

    [[nodiscard]] ConfigManager::Dependencies dependencies()
    {
        return { m_folder.path(), m_notifications, m_localization };
    }

private:
    QTemporaryDir m_folder;
    NotificationCenter m_notifications;
    LocalizationManager m_localization;
};

void decode(benchmark::State &state)
{
    const QByteArray json = encodeConfig(configWith(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(decodeConfig(json));
    state.SetBytesProcessed(state.iterations() * json.size());
}
BENCHMARK(decode)->Arg(9)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void encode(benchmark::State &state)
{
    const AppConfig config = configWith(state.range(0));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(encodeConfig(config));
}
BENCHMARK(encode)->Arg(9)->Arg(10000)->Unit(benchmark::kMillisecond);

void load(benchmark::State &state)
{
    Store store(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        const ConfigManager config(store.dependencies());
        benchmark::DoNotOptimize(config.customActions.size());
    }
}
BENCHMARK(load)->Arg(9)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void buildActions(benchmark::State &state)
{
    Store store(state.range(0));
    const ConfigManager config(store.dependencies());
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(getGlintActions(config.customActions, {}));
}
BENCHMARK(buildActions)->Arg(8)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

/// All checks of one key press.
void checkActions(benchmark::State &state)
{
    Store store(state.range(0));
    const ConfigManager config(store.dependencies());
    const QList<GlintAction> actions = getGlintActions(config.customActions, {});
    const QString text = prose(state.range(1));
    for ([[maybe_unused]] auto _ : state) {
        MatchBudget budget;
        for (const GlintAction &action : actions)
            benchmark::DoNotOptimize(action.check(text, budget));
    }
}
BENCHMARK(checkActions)
    ->ArgsProduct({ { 8, 100, 1000 }, { 1024, 1024 * 1024 } })
    ->Unit(benchmark::kMicrosecond);

void countCharacters(benchmark::State &state)
{
    const QString text = prose(state.range(0));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(characterCount(text));
}
BENCHMARK(countCharacters)->Arg(1024)->Arg(1024 * 1024)->Unit(benchmark::kMicrosecond);

}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Log::setSink([](QStringView) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
