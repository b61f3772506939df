#include "debug_p.h"
#include "logdelivery_p.h"
#include "threadowned_p.h"

#include <NARV/Debug>

#include <memory>

namespace NARV {

using Spare = std::unique_ptr<DebugPrivate>;

static constexpr int keptCapacity = 1000; // characters; a longer text gives its memory back

DebugPrivate *DebugPrivate::create(QtMsgType type, const QString &source,
                                   const INTERNAL::LogContext &context)
{
    Spare *spare = INTERNAL::threadOwned<Spare>();
    DebugPrivate *d = spare && *spare ? spare->release() : new DebugPrivate;
    d->record.type = type;
    d->record.source = source;
    d->record.context = context;
    return d;
}

DebugPrivate *DebugPrivate::copy(const DebugPrivate &other)
{
    const INTERNAL::LogRecord &record = other.record;
    DebugPrivate *d = create(record.type, record.source, record.context);
    d->record.text = record.text;
    // The spacing tells whether a trailing blank is a separator, so it goes with the text.
    d->stream.setAutoInsertSpaces(other.stream.autoInsertSpaces());
    return d;
}

void DebugPrivate::recycle(DebugPrivate *d)
{
    Spare recycled(d);
    Spare *spare = INTERNAL::threadOwned<Spare>();
    if (!spare || *spare || d->record.text.capacity() > keptCapacity)
        return;
    d->clear();
    *spare = std::move(recycled);
}

void DebugPrivate::clear()
{
    record.text.resize(0);
    record.source.clear(); // its characters may lie in a plugin that is unloaded next
    stream.resetFormat();
}

void DebugPrivate::removeSeparator()
{
    if (stream.autoInsertSpaces() && record.text.endsWith(QLatin1Char(' ')))
        record.text.chop(1);
}

Debug::Debug(QtMsgType type)
    : d_ptr(DebugPrivate::create(type))
{
}

Debug::Debug(DebugPrivate &dd)
    : d_ptr(&dd)
{
}

Debug::Debug(const Debug &other)
    : d_ptr(DebugPrivate::copy(*other.d_ptr))
{
}

Debug::~Debug()
{
    Q_D(Debug);
    d->removeSeparator();
    INTERNAL::deliver(d->record);
    DebugPrivate::recycle(d_ptr.take());
}

QDebug &Debug::debug()
{
    Q_D(Debug);
    return d->stream;
}

} // namespace NARV
