#pragma once

#include "properties/fieldrequirements.h"
#include "properties/propertysource.h"
#include "properties/valueparts.h"

#include <QHash>

#include <memory>
#include <vector>

namespace NARV::DEV {

//! A row of the property tree. A group, unless it has a value or is a part of its parent's value.
struct PropertyItem : FieldRequirements::Row
{
    PropertyItem *parent = nullptr;
    std::vector<std::unique_ptr<PropertyItem>> children;
    ValuePart part;             //!< name and kind of every row; the functions of parts only
    QString valueId;            //!< of the source's value; empty for groups and parts
    FieldMetaInformation field; //!< that the value belongs to; invalid for groups and geometry

    bool isPart() const { return bool(part.get); }
    bool isGroup() const { return !isPart() && !field.isValid(); }
    //! The row of the field itself, not of its font or of a part.
    bool isField() const { return field.isValid() && valueId == field.id(); }
    int row() const;
    //! This row, or the one that it is a part of.
    const PropertyItem &owner() const;
    PropertyItem &add(ValuePart what);
};

//! All rows for the widget of a source: the geometry, then its fields in groups by name.
struct PropertyTree
{
    PropertyTree() = default;
    PropertyTree(const PropertySource &source, bool showPrivate);

    std::unique_ptr<PropertyItem> root = std::make_unique<PropertyItem>();
    QHash<QString, PropertyItem *> byValueId;
    FieldRequirements requirements;
};

//! The id of the row of the geometry; no field can have it.
QString geometryId();
//! The value of a row, as the source gives it.
QVariant propertyValue(const PropertyItem &item, const PropertySource &source);
//! The value as it would be after a reset.
QVariant propertyDefault(const PropertyItem &item, const PropertySource &source);
PartContext partContext(const PropertyItem &item, const PropertySource &source);
//! What may be bound to the field, "none" included.
ValueKind bindingKind(const FieldMetaInformation &field, const PropertySource &source);

} // namespace NARV::DEV
