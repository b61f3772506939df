#pragma once

#include <NARV/INTERNAL/PluginMetaInformation>

namespace NARV {

class GraphicsObjectPrivate;
class Widget;
class WidgetActionManager;

//! What a graphics object is made from. A graphics object class only passes it on to
//! GraphicsObject.
struct ZPPLUGIN_EXPORT GraphicsObjectData
{
    using VersionType = INTERNAL::PluginMetaInformation::VersionType;

    GraphicsObjectData(const QString &id, const VersionType &version, Widget *widget,
                       WidgetActionManager *widgetActionManager);

    //! Copies every field.
    void copyTo(GraphicsObjectPrivate *graphicsObject) const;

    //! Id and version of the widget.
    QString id;
    VersionType version;
    //! The widget to which the graphics object belongs; not owned by this record.
    Widget *widget;
    //! The widget's own; not owned by this record.
    WidgetActionManager *widgetActionManager;
};

} // namespace NARV
