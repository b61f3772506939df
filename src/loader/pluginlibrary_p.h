#pragma once

#include <QJsonObject>

#include <memory>

class QObject;
class QPluginLoader;

namespace NARV::INTERNAL {

//! A plugin's library on its way in. Unless somebody takes it, it is unloaded and unmapped in the
//! end.
class PluginLibrary
{
public:
    //! Reads the metadata out of the file; none of the library's code runs.
    explicit PluginLibrary(const QString &path);
    ~PluginLibrary();

    const QString &path() const { return m_path; }
    qint64 readingNanoseconds() const { return m_readingNanoseconds; }
    //! Empty if the file is no plugin.
    QJsonObject metaData() const;

    //! Loads the library and returns its root object; null, and why in error, if that fails.
    QObject *instance(QString &error);
    //! The caller owns what holds the library from now on.
    QPluginLoader *take() { return m_loader.release(); }

private:
    Q_DISABLE_COPY(PluginLibrary)

    const QString m_path;
    std::unique_ptr<QPluginLoader> m_loader;
    qint64 m_readingNanoseconds;
};

} // namespace NARV::INTERNAL
