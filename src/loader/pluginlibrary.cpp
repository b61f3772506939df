#include "loader/pluginlibrary_p.h"

#include "core/currentexception_p.h"
#include "loader/widgetlibraryplugindata.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>
#include <NARV/WidgetLibraryPlugin>

#include <QElapsedTimer>

namespace NARV::INTERNAL {

static const QLatin1String interfaceIdKey("IID");
static const QLatin1String interfaceId("org.Mirt.NARV.WidgetLibrary");
static const QLatin1String metaDataKey("MetaData");
static const QLatin1String idKey("id");
static constexpr double millisecondsPerNanosecond = 0.000001;

PluginLibrary::PluginLibrary(const QString &path, const QString &expectedId)
    : m_path(path)
    , m_expectedId(expectedId)
{
}

PluginLibrary::~PluginLibrary()
{
    m_info.reset(); // its texts may lie in the library's own memory
    // Also when it does not count as loaded: one without a root object is mapped all the same.
    if (m_loader)
        m_loader->unload();
}

//! Adds the time of a step to that of the others.
template<typename Step>
QString PluginLibrary::timed(Step step)
{
    QElapsedTimer timer;
    timer.start();
    const QString error = step();
    m_nanoseconds += timer.nsecsElapsed();
    return error;
}

QString PluginLibrary::readMetaData()
{
    return timed([this] {
        m_loader = std::make_unique<QPluginLoader>(m_path);
        m_metaData = m_loader->metaData();
        const QString iid = m_metaData.value(interfaceIdKey).toString();
        if (iid.isEmpty())
            return QStringLiteral("the IID is not specified");
        return iid == interfaceId ? QString() : QStringLiteral("the IID %1 is not valid").arg(iid);
    });
}

QString PluginLibrary::load()
{
    return timed([this] { return makeInstance(); });
}

QString PluginLibrary::makeInstance()
{
    // By default a library stays mapped for good.
    m_loader->setLoadHints({});
    QObject *root = nullptr;
    // load() counts this loader as a user of the library, which instance() does not do when
    // another loader has it loaded already.
    const QString error = exceptionOf([&] {
        if (m_loader->load())
            root = m_loader->instance();
    });
    if (!root || !m_loader->isLoaded())
        return error.isNull() ? m_loader->errorString() : error;
    m_instance = qobject_cast<NARV::WidgetLibraryPlugin *>(root);
    return m_instance ? QString() : QStringLiteral("invalid interface");
}

bool PluginLibrary::hasExpectedId() const
{
    return m_metaData.value(metaDataKey).toObject().value(idKey).toString() == m_expectedId;
}

QString PluginLibrary::describe()
{
    return timed([this] {
        m_info = std::make_unique<WidgetLibraryPluginMetaInformation>();
        const int code = WidgetLibraryPluginUtils::metaInformationFromMetaData(m_metaData, *m_info);
        if (code)
            return QString(QLatin1String(WidgetLibraryPluginUtils::errorToString(code)));
        if (m_expectedId.isEmpty() || m_expectedId == m_info->id())
            return QString();
        return QStringLiteral("the id %1 is not equal to the folder name %2")
            .arg(m_info->id(), m_expectedId);
    });
}

std::unique_ptr<WidgetLibraryPluginData> PluginLibrary::takeData()
{
    return std::unique_ptr<WidgetLibraryPluginData>(
        new WidgetLibraryPluginData(m_path, m_loader.release(), m_instance, m_info.release(),
                                    double(m_nanoseconds) * millisecondsPerNanosecond));
}

} // namespace NARV::INTERNAL
