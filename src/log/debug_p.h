#ifndef ZPPLUGIN_LOG_DEBUG_P_H
#define ZPPLUGIN_LOG_DEBUG_P_H

#include "logrecord_p.h"

#include <QDebug>

#include <optional>

namespace NARV {

//! The record behind a Debug and the stream that writes its text.
class DebugPrivate
{
public:
    explicit DebugPrivate(QtMsgType type, const QString &source = {},
                          const INTERNAL::LogContext &context = {});
    DebugPrivate(const DebugPrivate &other);
    DebugPrivate &operator=(const DebugPrivate &) = delete;

    QDebug &openStream();
    void removeSeparator();

    INTERNAL::LogRecord record;
    std::optional<QDebug> stream; // made on first use, writes into record.text
};

} // namespace NARV

#endif
