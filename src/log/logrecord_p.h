#pragma once

#include <QString>

namespace NARV::INTERNAL {

//! Where a record comes from. The texts are not copied: they outlive the record.
struct LogContext
{
    int version = 2;
    int line = 0;
    const char *file = nullptr;
    const char *function = nullptr;
    const char *category = nullptr;
};

//! One message on its way to the host.
struct LogRecord
{
    QtMsgType type = QtDebugMsg;
    QString text;
    QString source;
    LogContext context;
};

} // namespace NARV::INTERNAL
