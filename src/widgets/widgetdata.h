#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

namespace NARV {

class WidgetActionManager;
class WidgetPrivate;

//! What a widget is made from. A widget class only passes it on to Widget.
struct ZPPLUGIN_EXPORT WidgetData
{
    using VersionType = INTERNAL::PluginMetaInformation::VersionType;
    using FieldInfo = INTERNAL::WidgetLibraryPluginMetaInformation::FieldInfo;

    WidgetData(const QString &id, const VersionType &version, const QString &pluginId,
               const QMap<QString, FieldInfo> &fieldsInfo,
               const QMetaObject *graphicsObjectMetaObject,
               WidgetActionManager *widgetActionManager);

    //! Copies every field.
    void copyTo(WidgetPrivate *widget) const;

    //! The widget id, as registered.
    QString id;
    VersionType version;
    //! The id of the widget library; the source of the widget's log messages.
    QString pluginId;
    //! By field id.
    QMap<QString, FieldInfo> fieldsInfo;
    //! The class of the widget's graphics objects; null for a widget that cannot have any.
    const QMetaObject *graphicsObjectMetaObject;
    //! Not owned by this record.
    WidgetActionManager *widgetActionManager;
};

} // namespace NARV
