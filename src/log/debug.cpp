#include "debug_p.h"
#include "logdelivery_p.h"

#include <NARV/Debug>

namespace NARV {

DebugPrivate::DebugPrivate(QtMsgType type, const QString &source,
                           const INTERNAL::LogContext &context)
    : record{type, {}, source, context}
{
}

DebugPrivate::DebugPrivate(const DebugPrivate &other)
    : record(other.record)
{
    // The spacing decides which trailing blank is a separator, so it goes with the text.
    if (other.stream)
        openStream().setAutoInsertSpaces(other.stream->autoInsertSpaces());
}

QDebug &DebugPrivate::openStream()
{
    if (!stream)
        stream.emplace(&record.text);
    return *stream;
}

void DebugPrivate::removeSeparator()
{
    if (stream && stream->autoInsertSpaces() && record.text.endsWith(QLatin1Char(' ')))
        record.text.chop(1);
}

Debug::Debug(QtMsgType type)
    : d_ptr(new DebugPrivate(type))
{
}

Debug::Debug(DebugPrivate &dd)
    : d_ptr(&dd)
{
}

Debug::Debug(const Debug &other)
    : d_ptr(new DebugPrivate(*other.d_ptr))
{
}

Debug::~Debug()
{
    Q_D(Debug);
    d->removeSeparator();
    INTERNAL::deliver(d->record);
}

QDebug &Debug::debug()
{
    Q_D(Debug);
    return d->openStream();
}

} // namespace NARV
