#pragma once

#include <zpplugin_export.h>

#include <QByteArray>
#include <QList>
#include <QMetaObject>
#include <QString>

namespace NARV::INTERNAL {

//! The constructor through which the library makes an instance of a plugin's class: invokable,
//! with one argument whose type is written with its namespace.
class ZPPLUGIN_EXPORT ConstructorMatch
{
public:
    //! No match.
    ConstructorMatch() = default;
    //! Looks in the class itself, not in its bases. No match if metaObject is null, if the class
    //! does not derive from base, or if it has no such constructor.
    ConstructorMatch(const QMetaObject *metaObject, const QMetaObject &base,
                     const char *argumentType);

    //! The match in a widget class: derived from Widget, argument "NARV::WidgetData".
    static ConstructorMatch forWidget(const QMetaObject *metaObject);
    //! The match in a graphics object class: derived from GraphicsObject, argument
    //! "NARV::GraphicsObjectData".
    static ConstructorMatch forGraphicsObject(const QMetaObject *metaObject);
    //! All invokable constructors of the class, such as "Gauge(WidgetData)"; to tell an author
    //! what was found instead of a match. Empty if metaObject is null.
    static QList<QByteArray> signatures(const QMetaObject *metaObject);

    bool isValid() const { return m_index >= 0; }
    //! The position among the class's own constructors; -1 if there is no match.
    int index() const { return m_index; }
    //! A new object without parent, which the caller owns; of the class that was looked for, as is
    //! the argument. Null if there is no match. Null also if the constructor throws, which is
    //! logged under the plugin's id.
    QObject *newInstance(const void *argument, const QString &pluginId) const;

private:
    const QMetaObject *m_metaObject = nullptr;
    int m_index = -1;
};

} // namespace NARV::INTERNAL
