#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVector>

namespace NARV::DEV {

using FieldType = INTERNAL::WidgetLibraryPluginMetaInformation::FieldType;

//! One of the values that an editor offers.
struct Choice
{
    QVariant value;
    QString text;
    QString detail; //!< shown behind the text and searched like it; may be empty
};

//! What an editor has to know of the values that it edits.
struct ValueKind
{
    FieldType type;
    QVariant minimum; //!< of numbers; invalid for no bound
    QVariant maximum;
    QVector<Choice> choices; //!< of options, tags and trends
};

} // namespace NARV::DEV

Q_DECLARE_METATYPE(NARV::DEV::ValueKind)
