#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QMap>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QVariant>

namespace NARV::DEV {

//! What a scene file keeps of a placed widget.
struct WidgetState
{
    QString name; //!< unique on the page
    QString widgetId;
    QString version;
    QPointF position;    //!< of the unrotated top left corner, in scene units
    QSizeF size;         //!< in scene units
    double rotation = 0; //!< degrees clockwise about the centre
    //! The values that differ from the defaults, by field id. Multi-language fields hold all
    //! languages. What the library has no field for stays as QJsonValue.
    QVariantMap values;
    //! The tags and trends bound to fields, by field id.
    QMap<QString, QString> bindings;

    //! A widget as it is when it has just been placed, but without name and position.
    static WidgetState
    of(const INTERNAL::WidgetLibraryPluginMetaInformation::WidgetMetaInformation &description);
};

} // namespace NARV::DEV
