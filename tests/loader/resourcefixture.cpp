#include "resourcefixture.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

using namespace NARV::INTERNAL;
using Step = PluginLoader::ResourceStep;

Tree treeOf(const QString &folder)
{
    Tree tree;
    const QDir root(folder);
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        const QFileInfo info = it.fileInfo();
        QByteArray &content = tree[root.relativeFilePath(info.filePath())];
        if (info.isSymLink())
            content = "->" + info.symLinkTarget().toLocal8Bit();
        else if (info.isFile() && file.open(QIODevice::ReadOnly))
            content = file.readAll();
    }
    return tree;
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QString ResourceFixture::id(int number)
{
    return u("00000000-0000-4000-8000-00000000000%1").arg(number);
}

QString ResourceFixture::out(const QString &name) const
{
    return m_dir->filePath(u("out")) + (name.isEmpty() ? QString() : QLatin1Char('/') + name);
}

QString ResourceFixture::library(int number) const
{
    return PluginPlatform::running().libraryPath(plugins() + QLatin1Char('/') + id(number),
                                                 id(number));
}

void ResourceFixture::init()
{
    startGuard();
    m_dir.emplace();
    QFile original(QStringLiteral(FIXTURES_DIR "/studio.so"));
    QVERIFY(original.open(QIODevice::ReadOnly));
    const QByteArray code = original.readAll();
    for (int i = 1; i <= pluginCount; ++i)
        writeFile(library(i), QByteArray(code).replace(id(0).toUtf8(), id(i).toUtf8()));
}

void ResourceFixture::cleanup()
{
    QCOMPARE(errors(), QStringList());
    checkGuard();
}

void ResourceFixture::loadPlugins(PluginLoader &loader)
{
    QVERIFY(loader.loadFromDir(plugins()));
    QVERIFY(loader.init());
}

QStringList ResourceFixture::errors()
{
    QStringList texts;
    for (const LogEntry &entry : takeLog()) {
        if (entry.type == QtCriticalMsg && entry.source.isEmpty() &&
            entry.category == u("RESOURCES_GENERATION"))
            texts += entry.message;
        else if (entry.type == QtCriticalMsg)
            texts += describe(entry);
    }
    return texts;
}

bool ResourceFixture::generate(const QString &language)
{
    static const char *const words[] = {"removed", "kept", "started", "generated", "failed"};
    PluginLoader loader;
    loadPlugins(loader);
    m_steps.clear();
    const auto take = [&](const QString &name, Step step) {
        const bool isPlugin = name.startsWith(id(0).chopped(1));
        if (step != Step::Started)
            m_steps += u(words[int(step)]) + QLatin1Char(' ') + (isPlugin ? name.right(1) : name);
    };
    return loader.generateStudioExtraResources(out(), language, take);
}

Tree ResourceFixture::cleanTree(const QString &language)
{
    const QTemporaryDir folder;
    PluginLoader loader;
    loadPlugins(loader);
    return loader.generateStudioExtraResources(folder.path(), language) ? treeOf(folder.path())
                                                                        : Tree();
}
