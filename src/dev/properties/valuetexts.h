#pragma once

#include "properties/valuekind.h"
#include "scene/authoredvalue.h"

//! Values in words and small pictures, as a line of the property tree shows them.
namespace NARV::DEV {

//! The value on one line; plain texts only.
QString valueText(const QVariant &value, const ValueKind &kind);
//! A QColor or QPixmap to stand beside the text; invalid for none.
QVariant valueDecoration(const QVariant &value, const ValueKind &kind);
//! A double with as many digits as it takes to read the same number again.
QString numberText(double number);
//! As a narrow column shows a value: of a fraction no more than six significant digits.
QString shortValueText(const QVariant &value, const ValueKind &kind);
//! Of the row of a multi-language field's font, with the label that it has; rich text.
QString fontToolTip(const FieldMetaInformation &field, const QString &label);
//! What the field is for, its id, type, bounds, default and requirements; rich text.
QString fieldToolTip(const FieldMetaInformation &field, const ValueKind &kind,
                     const QString &language);

} // namespace NARV::DEV
