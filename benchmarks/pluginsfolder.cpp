#include "pluginsfolder.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QDir>
#include <QFileInfo>

using NARV::INTERNAL::PluginPlatform;

PluginsFolder::PluginsFolder()
{
    QFile library(QStringLiteral(PLUGIN_FILE));
    if (!library.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", PLUGIN_FILE);
    const QByteArray content = library.readAll();
    for (int i = 0; i < pluginCount; ++i)
        write(content, i);
}

void PluginsFolder::write(QByteArray content, int number)
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
