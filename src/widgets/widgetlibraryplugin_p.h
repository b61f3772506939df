#pragma once

#include <NARV/INTERNAL/ConstructorMatch>
#include <NARV/WidgetData>

#include <QMap>
#include <QString>

#include <map>
#include <memory>
#include <tuple>
#include <utility>

namespace NARV {

class Widget;

namespace INTERNAL {
class FieldIndex;
class WidgetActionManagerImpl;
} // namespace INTERNAL

//! What a widget library has registered, and the maker of its widgets. Lives as long as the plugin
//! object, on its thread.
class ZPPLUGIN_EXPORT WidgetLibraryPluginPrivate
{
public:
    using FieldInfo = INTERNAL::WidgetLibraryPluginMetaInformation::FieldInfo;

    //! One registered widget.
    struct Registration
    {
        //! Both as registered, null included.
        const QMetaObject *widgetMetaObject = nullptr;
        const QMetaObject *graphicsObjectMetaObject = nullptr;
        //! Found at registration; without a match no instance can be made.
        INTERNAL::ConstructorMatch widgetConstructor;
        //! What the last instance was made from, kept because most instances differ in the action
        //! manager alone. That is null but while an instance is being made.
        mutable WidgetData record;
        //! Of the fields of the last instance.
        mutable std::shared_ptr<const INTERNAL::FieldIndex> fieldIndex;
    };
    //! Compares a key, or a pair of references that stands for one.
    struct ByIdAndVersion
    {
        using is_transparent = void;
        template<class A, class B>
        bool operator()(const A &a, const B &b) const
        {
            return std::tie(a.first, a.second) < std::tie(b.first, b.second);
        }
    };
    //! By widget id and version, both as written at registration and ordered as plain text.
    using Registrations = std::map<std::pair<QString, QString>, Registration, ByIdAndVersion>;

    //! Every registered widget.
    const Registrations &registrations() const { return m_registrations; }
    //! Adds a widget or replaces the one registered under the same id and version text.
    void registerWidget(const QString &widgetId, const QString &version,
                        const QMetaObject *widgetMetaObject,
                        const QMetaObject *graphicsObjectMetaObject);

    //! A new widget, owned by the caller; null if no widget is registered under exactly this id and
    //! version text or if its class cannot be instantiated. A constructor that throws counts as one
    //! that cannot, and is logged. pluginId becomes the source of the widget's log messages.
    //! actionManagerImpl stays with the host and must outlive the widget; it may be null for a
    //! widget that has no host to talk to. The action manager made for the widget belongs to the
    //! widget's private part and is deleted with it.
    Widget *newWidgetInstance(const QString &widgetId, const QString &version,
                              const QString &pluginId, const QMap<QString, FieldInfo> &fieldsInfo,
                              INTERNAL::WidgetActionManagerImpl *actionManagerImpl) const;

private:
    //! Hosts make many widgets of a kind in a row. A copy of the table has entries of its own.
    struct LastFound
    {
        LastFound() = default;
        LastFound(const LastFound &) {}
        LastFound &operator=(const LastFound &)
        {
            entry = nullptr;
            return *this;
        }

        const Registrations::value_type *entry = nullptr;
    };

    const Registration *find(const QString &widgetId, const QString &version) const;
    static Widget *make(const Registration &registration, WidgetData &record,
                        const QString &pluginId,
                        INTERNAL::WidgetActionManagerImpl *actionManagerImpl);

    Registrations m_registrations;
    mutable LastFound m_lastFound;
};

} // namespace NARV
