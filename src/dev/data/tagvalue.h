#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QVariant>
#include <QVector>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

using TagType = INTERNAL::WidgetLibraryPluginMetaInformation::TagType;

//! The 23 types, without Unknown.
ZPPLUGIN_DEV_EXPORT const QVector<TagType> &tagTypes();
ZPPLUGIN_DEV_EXPORT bool isArrayType(TagType type);
//! The type of an array's elements; any other type itself.
ZPPLUGIN_DEV_EXPORT TagType elementType(TagType type);

//! What the elements of a type can hold.
struct TagRange
{
    double minimum;
    double maximum;
    bool isWhole;
};
//! The range of a number type or of the elements of an array; {0, 1} for bool, {0, 0} for text.
ZPPLUGIN_DEV_EXPORT TagRange tagRange(TagType type);

//! Converts in place to what a tag of the type holds: bool, int (types up to 32 bits), uint,
//! qulonglong, qlonglong, float, double, QString, or a QVariantList of these for an array, for
//! which a text of elements between commas will do as well. An invalid value, which is no value,
//! stays. A fraction is rounded to the nearest whole number. What is out of the type's range is
//! refused, not clamped.
//!
//! Returns why the value was refused, with nothing changed; empty if it was not.
ZPPLUGIN_DEV_EXPORT QString toTagValue(TagType type, QVariant &value);

//! The value as a person writes it and toTagValue() reads it; empty for no value.
ZPPLUGIN_DEV_EXPORT QString tagValueText(const QVariant &value);
//! The same for reading only: six digits of each number, and not too long.
ZPPLUGIN_DEV_EXPORT QString shortTagValueText(const QVariant &value);

} // namespace NARV::DEV
