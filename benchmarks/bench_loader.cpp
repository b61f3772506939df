// Loading a folder of plugins, beside QPluginLoader doing no more than it must.

#include "pluginsfolder.h"
#include "ratioreporter.h"

#include <NARV/INTERNAL/PluginLoader>

#include <QElapsedTimer>
#include <QJsonObject>
#include <QPluginLoader>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace NARV::INTERNAL;

static const PluginsFolder &folder()
{
    static const PluginsFolder plugins;
    return plugins;
}

//! Has the allocator put together what the last iteration freed, which would otherwise happen while
//! the next one is timed.
static void settle()
{
    benchmark::DoNotOptimize(QByteArray(1 << 20, Qt::Uninitialized));
}

static void loadFromDir(benchmark::State &state)
{
    const QString path = folder().path();
    for (auto _ : state) {
        PluginLoader loader;
        settle();
        QElapsedTimer timer;
        timer.start();
        const bool ok = loader.loadFromDir(path, {});
        state.SetIterationTime(double(timer.nsecsElapsed()) * 1e-9);
        if (!ok || loader.pluginData().size() != PluginsFolder::pluginCount)
            state.SkipWithError("not all plugins were loaded");
    }
}
BENCHMARK(loadFromDir)->UseManualTime();

// Really loaded and unloaded each time, as the library does it.
static void rawLoad(benchmark::State &state)
{
    const QStringList libraries = folder().libraries();
    for (auto _ : state) {
        std::vector<std::unique_ptr<QPluginLoader>> loaders;
        settle();
        QElapsedTimer timer;
        timer.start();
        for (const QString &path : libraries) {
            loaders.push_back(std::make_unique<QPluginLoader>(path));
            loaders.back()->setLoadHints({});
            benchmark::DoNotOptimize(loaders.back()->metaData());
            if (!loaders.back()->instance())
                state.SkipWithError("a plugin was not loaded");
        }
        state.SetIterationTime(double(timer.nsecsElapsed()) * 1e-9);
        for (const auto &loader : loaders)
            loader->unload();
    }
}
BENCHMARK(rawLoad)->UseManualTime();

int main(int argc, char **argv)
{
    return runBenchmarks(
        argc, argv, {{"loading 50 plugins / raw QPluginLoader", "loadFromDir", "rawLoad", 1.2}});
}
