#pragma once

#include "properties/valuekind.h"
#include "scene/authoredvalue.h"

#include <QStringList>

#include <functional>

namespace NARV::DEV {

//! A part of a value that has a line of its own: a text in one language, an entry of a list or
//! map, a property of a font or a coordinate.
struct ValuePart
{
    QString name;
    ValueKind kind;
    std::function<QVariant(const QVariant &whole)> get;
    //! The whole with another part.
    std::function<QVariant(const QVariant &whole, const QVariant &part)> set;
};

//! What naming and choosing of parts depends on.
struct PartContext
{
    FieldMetaInformation field; //!< for its labels of the parts of a font
    QString language;
    QStringList languages;
};

//! Those that every panel has first, then the others of this machine.
QStringList fontFamilies();

//! The parts of a value by its type; none for a value that is edited as a whole only.
QVector<ValuePart> valueParts(const QVariant &value, const PartContext &context);

} // namespace NARV::DEV
