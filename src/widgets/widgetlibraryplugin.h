#pragma once

#include <NARV/Plugin>

#include <QString>

#include <type_traits>

namespace NARV {

class Event;
class GraphicsObject;
class Widget;
class WidgetLibraryPluginPrivate;

namespace INTERNAL {
class WidgetLibraryPluginPrivateAccessor;
}

//! The root object of a widget library. Register every widget in its constructor or in load(),
//! with registerWidget() or registerProjectWidget().
class ZPPLUGIN_EXPORT WidgetLibraryPlugin : public Plugin
{
    Q_OBJECT

public:
    explicit WidgetLibraryPlugin(QObject *parent = nullptr);
    ~WidgetLibraryPlugin() override;

    bool event(QEvent *event) override;

protected:
    //! True when the event is dealt with. The event lives for the duration of the call only.
    virtual bool narvEvent(Event *event);

private:
    template<class WidgetClass, class GraphicsObjectClass>
    friend void registerWidget(WidgetLibraryPlugin *plugin, const QString &widgetId,
                               const QString &version);
    template<class WidgetClass>
    friend void registerProjectWidget(WidgetLibraryPlugin *plugin, const QString &widgetId,
                                      const QString &version);
    friend ZPPLUGIN_EXPORT void registerWidget(WidgetLibraryPlugin *plugin, const QString &widgetId,
                                               const QString &version,
                                               const QMetaObject *widgetMetaObject,
                                               const QMetaObject *graphicsObjectMetaObject);
    friend ZPPLUGIN_EXPORT void registerProjectWidget(WidgetLibraryPlugin *plugin,
                                                      const QString &widgetId,
                                                      const QString &version,
                                                      const QMetaObject *widgetMetaObject);
    friend class INTERNAL::WidgetLibraryPluginPrivateAccessor;

    void registerWidget(const QString &widgetId, const QString &version,
                        const QMetaObject *widgetMetaObject,
                        const QMetaObject *graphicsObjectMetaObject);
    void registerProjectWidget(const QString &widgetId, const QString &version,
                               const QMetaObject *widgetMetaObject);

    Q_DISABLE_COPY(WidgetLibraryPlugin)
    Q_DECLARE_PRIVATE(WidgetLibraryPlugin)
    const QScopedPointer<WidgetLibraryPluginPrivate> d_ptr;
};

//! Offers a widget to the host under its id and version, both exactly as the metadata writes them.
//! The last registration of an (id, version) counts. Each class needs Q_OBJECT and its own
//! invokable constructor:
//! \code
//! Q_INVOKABLE Gauge(const NARV::WidgetData &data);
//! Q_INVOKABLE GaugeItem(const NARV::GraphicsObjectData &data);
//! \endcode
//! The types are to be written with their namespace, as here: they are looked up by name.
template<class WidgetClass, class GraphicsObjectClass>
void registerWidget(WidgetLibraryPlugin *plugin, const QString &widgetId, const QString &version)
{
    static_assert(std::is_base_of_v<Widget, WidgetClass>,
                  "the widget class must derive from NARV::Widget");
    static_assert(std::is_base_of_v<GraphicsObject, GraphicsObjectClass>,
                  "the graphics object class must derive from NARV::GraphicsObject");
    static_assert(QtPrivate::HasQ_OBJECT_Macro<WidgetClass>::Value,
                  "the widget class needs Q_OBJECT");
    static_assert(QtPrivate::HasQ_OBJECT_Macro<GraphicsObjectClass>::Value,
                  "the graphics object class needs Q_OBJECT");
    plugin->registerWidget(widgetId, version, &WidgetClass::staticMetaObject,
                           &GraphicsObjectClass::staticMetaObject);
}

//! The same for a project widget, which has no drawing of its own: the project editor shows its
//! icon, a panel nothing.
template<class WidgetClass>
void registerProjectWidget(WidgetLibraryPlugin *plugin, const QString &widgetId,
                           const QString &version)
{
    static_assert(std::is_base_of_v<Widget, WidgetClass>,
                  "the widget class must derive from NARV::Widget");
    static_assert(QtPrivate::HasQ_OBJECT_Macro<WidgetClass>::Value,
                  "the widget class needs Q_OBJECT");
    plugin->registerProjectWidget(widgetId, version, &WidgetClass::staticMetaObject);
}

//! The same for classes known by their meta-objects only. Nothing is checked: of a widget whose
//! meta-object is null or does not fit, no instance can be made.
ZPPLUGIN_EXPORT void registerWidget(WidgetLibraryPlugin *plugin, const QString &widgetId,
                                    const QString &version, const QMetaObject *widgetMetaObject,
                                    const QMetaObject *graphicsObjectMetaObject);
ZPPLUGIN_EXPORT void registerProjectWidget(WidgetLibraryPlugin *plugin, const QString &widgetId,
                                           const QString &version,
                                           const QMetaObject *widgetMetaObject);

} // namespace NARV

Q_DECLARE_INTERFACE(NARV::WidgetLibraryPlugin, "org.Mirt.NARV.WidgetLibrary/1.0.0")
