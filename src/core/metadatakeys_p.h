#pragma once

#include <QStringView>

namespace NARV::INTERNAL {

//! Every key of the metadata under which the readers look for something.
enum class MetaDataKey : quint8
{
    Author,
    Copyright,
    DefaultFont,
    DefaultLanguage,
    DefaultSize,
    DefaultValue,
    Description,
    Display,
    DisplayFontBold,
    DisplayFontFamily,
    DisplayFontSize,
    DisplayFontStyle,
    DisplayFontUnderline,
    Fields,
    GalleryGroupName,
    Group,
    Id,
    License,
    Maximum,
    MetaData,
    Minimum,
    MultiLanguage,
    Name,
    Options,
    Private,
    ReadOnly,
    ReceiveAlarmsEvents,
    Requirements,
    ShowInPageGallery,
    ShowInProjectGallery,
    TagAcceptedTypes,
    TagCanBeAttached,
    TagOnDemand,
    Translation,
    Type,
    Version,
    Widgets,
    Unknown //!< any other; the last one
};

//! The key as it is written; empty for Unknown.
QStringView keyName(MetaDataKey key);
//! The key that is written so.
MetaDataKey keyFromName(QStringView name);

} // namespace NARV::INTERNAL
