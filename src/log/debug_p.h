#pragma once

#include "logrecord_p.h"

#include <QDebug>

namespace NARV {

//! The record behind a Debug and the stream that writes its text. Making a stream costs as much
//! as the rest of a record's way to the host, so each thread keeps one record for reuse.
class DebugPrivate
{
public:
    static DebugPrivate *create(QtMsgType type, const QString &source = {},
                                const INTERNAL::LogContext &context = {});
    static DebugPrivate *copy(const DebugPrivate &other);
    //! Takes the record back when it was delivered.
    static void recycle(DebugPrivate *d);

    //! Removes the blank that the stream put after the last item.
    void removeSeparator();

    INTERNAL::LogRecord record;
    QDebug stream{&record.text};

private:
    void clear();
};

} // namespace NARV
