#pragma once

#include <QIcon>

#include <zpplugin_dev_export.h>

class QString;

namespace NARV::DEV {

//! The icon of that name from the bench's own drawings (icons/<name>.svg), in the colours of the
//! application's palette, which may be light or dark, and may change.
ZPPLUGIN_DEV_EXPORT QIcon benchIcon(const QString &name);

} // namespace NARV::DEV
