#include "probe/probereport.h"

#include "probe/process.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMutexLocker>

namespace NARV::PROBE {

ProbeReport::ProbeReport()
    : m_stream(takeStandardOutput())
{
}

void ProbeReport::stage(const QString &stage)
{
    value(QStringLiteral("stage"), stage);
}

void ProbeReport::value(const QString &key, const QJsonValue &value)
{
    const QByteArray line = QJsonDocument({{key, value}}).toJson(QJsonDocument::Compact) + '\n';
    const QMutexLocker locker(&m_mutex);
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), m_stream);
    std::fflush(m_stream);
}

void ProbeReport::log(int type, const QString &, const QString &message, void *report)
{
    const QJsonObject record{{QLatin1String("type"), type}, {QLatin1String("message"), message}};
    static_cast<ProbeReport *>(report)->value(QStringLiteral("log"), record);
}

} // namespace NARV::PROBE
