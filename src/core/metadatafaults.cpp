#include "core/metadatafaults_p.h"

#include <NARV/LogHandler>

namespace NARV::INTERNAL {

QString JsonPath::toString() const
{
    QStringList steps;
    for (const JsonPath *step = this; step; step = step->parent) {
        const QString suffix =
            step->index < 0 ? QString() : QStringLiteral("[%1]").arg(step->index);
        steps.prepend(keyName(step->key).toString() + suffix);
    }
    return steps.join(QLatin1Char('.'));
}

void MetaDataFaults::add(int code, const JsonPath &path, const QString &message)
{
    if (stopped())
        return;
    m_problems.append({code, path.toString(), message});
    if (!message.isEmpty())
        log(message);
}

void MetaDataFaults::log(const QString &message) const
{
    if (m_mode != Mode::LogFirst)
        return;
    const LogHandler handler(m_pluginId, nullptr, 0, nullptr, "METADATA");
    handler.critical().debug().noquote() << message;
}

} // namespace NARV::INTERNAL
