#include "loader/pluginlibrary_p.h"

#include "core/currentexception_p.h"

#include <QElapsedTimer>
#include <QPluginLoader>

namespace NARV::INTERNAL {

PluginLibrary::PluginLibrary(const QString &path)
    : m_path(path)
{
    QElapsedTimer timer;
    timer.start();
    m_loader = std::make_unique<QPluginLoader>(path);
    m_readingNanoseconds = timer.nsecsElapsed();
}

PluginLibrary::~PluginLibrary()
{
    // Also when it does not count as loaded: one without a root object is mapped all the same.
    if (m_loader)
        m_loader->unload();
}

QJsonObject PluginLibrary::metaData() const
{
    return m_loader->metaData();
}

QObject *PluginLibrary::instance(QString &error)
{
    // By default a library stays mapped for good.
    m_loader->setLoadHints({});
    QObject *root = nullptr;
    // load() counts this loader as a user of the library, which instance() does not do when
    // another loader has it loaded already.
    error = exceptionOf([&] {
        if (m_loader->load())
            root = m_loader->instance();
    });
    if (root && m_loader->isLoaded())
        return root;
    if (error.isNull())
        error = m_loader->errorString();
    return nullptr;
}

} // namespace NARV::INTERNAL
