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
    bool isReadOnly = false;    //!< in any of the widgets
    bool isBindable = false;    //!< in all of them
    // As refresh() has found them.
    bool isDifferent = false; //!< the widgets have not all the same value
    bool isBoundDifferently = false;
    bool isChanged = false; //!< differs from the default in any of them

    bool isPart() const { return bool(part.get); }
    bool isGroup() const { return !isPart() && !field.isValid(); }
    //! The row of the field itself, not of its font or of a part.
    bool isField() const { return field.isValid() && valueId == field.id(); }
    int row() const;
    //! This row, or the one that it is a part of.
    const PropertyItem &owner() const;
    PropertyItem &add(ValuePart what);
    //! Compares the values of the widgets.
    void refresh(const PropertySource &source);
};

//! All rows for the widgets of a source: the geometry, then the fields that all of them have, by
//! id and type, in groups by name.
struct PropertyTree
{
    PropertyTree() = default;
    PropertyTree(const PropertySource &source, bool showPrivate);

    std::unique_ptr<PropertyItem> root = std::make_unique<PropertyItem>();
    QHash<QString, PropertyItem *> byValueId;
    FieldRequirements requirements;
};

//! A field as each of the widgets describes it.
using SharedField = QVector<FieldMetaInformation>;
//! Those that all widgets have; private ones, too.
QVector<SharedField> sharedFields(const PropertySource &source);
//! The id of the row of the geometry; no field can have it.
QString geometryId();
//! The value of a row, as the source gives it.
QVariant propertyValue(const PropertyItem &item, const PropertySource &source, int widget = 0);
//! The value as it would be after a reset.
QVariant propertyDefault(const PropertyItem &item, const PropertySource &source, int widget = 0);
//! Those of the current widget's value. A list or map that is different has none.
QVector<ValuePart> propertyParts(const PropertyItem &item, const PropertySource &source);
//! What may be bound to the field in all widgets.
ValueKind bindingKind(const FieldMetaInformation &field, const PropertySource &source);

} // namespace NARV::DEV
