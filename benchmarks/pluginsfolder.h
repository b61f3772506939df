#pragma once

#include <QStringList>
#include <QTemporaryDir>

//! A plugins folder of fifty plugins: copies of one library, each with an id of its own.
class PluginsFolder
{
public:
    static constexpr int pluginCount = 50;

    PluginsFolder();

    QString path() const { return m_dir.path(); }
    const QStringList &libraries() const { return m_libraries; }

private:
    void write(QByteArray content, int number);

    QTemporaryDir m_dir;
    QStringList m_libraries;
};
