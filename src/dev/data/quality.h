#pragma once

#include <QMetaType>
#include <QStringList>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! How far the value of a tag is to be trusted.
enum class Quality
{
    Good,
    Uncertain, //!< such as a sensor that drifts
    Bad        //!< such as a broken connection; a trend has a gap there
};

//! "good", "uncertain" and "bad", in the order of the enumerators.
ZPPLUGIN_DEV_EXPORT const QStringList &qualityNames();
ZPPLUGIN_DEV_EXPORT QString qualityName(Quality quality);
//! False, with nothing changed, for any other text.
ZPPLUGIN_DEV_EXPORT bool qualityFromName(const QString &name, Quality &quality);

} // namespace NARV::DEV

Q_DECLARE_METATYPE(NARV::DEV::Quality)
