#include "debug_p.h"
#include "logrecord_p.h"

#include <NARV/LogHandler>

namespace NARV {

class LogHandlerPrivate
{
public:
    QString source;
    INTERNAL::LogContext context;
};

LogHandler::LogHandler()
    : d_ptr(new LogHandlerPrivate)
{
}

LogHandler::LogHandler(const QString &source, const char *file, int line, const char *function)
    : LogHandler(source, file, line, function, "default")
{
}

LogHandler::LogHandler(const QString &source, const char *file, int line, const char *function,
                       const char *category)
    : d_ptr(new LogHandlerPrivate{source, {2, line, file, function, category}})
{
}

LogHandler::~LogHandler() = default;

Debug LogHandler::debug() const
{
    return record(QtDebugMsg);
}

Debug LogHandler::info() const
{
    return record(QtInfoMsg);
}

Debug LogHandler::warning() const
{
    return record(QtWarningMsg);
}

Debug LogHandler::critical() const
{
    return record(QtCriticalMsg);
}

QNoDebug LogHandler::noDebug() const
{
    return {};
}

Debug LogHandler::record(QtMsgType type) const
{
    Q_D(const LogHandler);
    return Debug(*DebugPrivate::create(type, d->source, d->context));
}

} // namespace NARV
