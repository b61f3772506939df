// Loading a folder of plugins, beside QPluginLoader doing no more than it must.

#include "metadatagenerator.h"
#include "ratioreporter.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/PluginPlatform>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace NARV::INTERNAL;

static constexpr int pluginCount = 50;

namespace {

//! A plugins folder of fifty plugins: copies of one library, each with an id of its own.
class PluginsFolder
{
public:
    PluginsFolder()
    {
        QFile library(QStringLiteral(PLUGIN_FILE));
        if (!library.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", PLUGIN_FILE);
        const QByteArray content = library.readAll();
        for (int i = 0; i < pluginCount; ++i)
            write(content, i);
    }

    QString path() const { return m_dir.path(); }
    const QStringList &libraries() const { return m_libraries; }

private:
    void write(QByteArray content, int number)
    {
        QByteArray id = PLUGIN_ID;
        id.replace(0, 8, QByteArray::number(10000000 + number));
        content.replace(PLUGIN_ID, id);
        const QString folder = m_dir.filePath(QString::fromLatin1(id));
        const QString path = PluginPlatform::running().libraryPath(folder, QString::fromLatin1(id));
        QFile file(path);
        QDir().mkpath(QFileInfo(path).path());
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(path));
        m_libraries += path;
    }

    QTemporaryDir m_dir;
    QStringList m_libraries;
};

const PluginsFolder &folder()
{
    static const PluginsFolder plugins;
    return plugins;
}

} // namespace

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
        if (!ok || loader.pluginData().size() != pluginCount)
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
