#pragma once

#include <QString>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! What is wrong with a message pattern, for the person who writes it: what the log would print as
//! it stands or not at all. Empty if it is fine.
ZPPLUGIN_DEV_EXPORT QString messagePatternProblem(const QString &pattern);

//! All placeholders, for a help text: "%{MESSAGE} %{TYPE} ...".
ZPPLUGIN_DEV_EXPORT QStringList messagePatternPlaceholders();

} // namespace NARV::DEV
