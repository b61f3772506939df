#pragma once

#include <QByteArray>
#include <QString>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! "line:column" of a byte in a text, both from 1.
ZPPLUGIN_DEV_EXPORT QString lineAndColumn(const QByteArray &text, int offset);

//! The byte at which the value with that path, such as "widgets[3].size", begins in a valid JSON
//! text; of a path that leads nowhere, the last value on the way.
ZPPLUGIN_DEV_EXPORT int jsonOffset(const QByteArray &text, const QString &path);

} // namespace NARV::DEV
