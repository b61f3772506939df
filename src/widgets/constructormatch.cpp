#include "constructormatch.h"

#include "eventdelivery_p.h"
#include "graphicsobject.h"
#include "widget.h"

#include <QMetaMethod>

namespace NARV::INTERNAL {

static QByteArray constructorSignature(const QMetaObject &metaObject, const char *argumentType)
{
    const QByteArray className = metaObject.className();
    return className.mid(className.lastIndexOf(':') + 1) + '(' + argumentType + ')';
}

ConstructorMatch::ConstructorMatch(const QMetaObject *metaObject, const QMetaObject &base,
                                   const char *argumentType)
    : m_metaObject(metaObject)
{
    if (metaObject && metaObject->inherits(&base))
        m_index = metaObject->indexOfConstructor(constructorSignature(*metaObject, argumentType));
}

ConstructorMatch ConstructorMatch::forWidget(const QMetaObject *metaObject)
{
    return {metaObject, Widget::staticMetaObject, "NARV::WidgetData"};
}

ConstructorMatch ConstructorMatch::forGraphicsObject(const QMetaObject *metaObject)
{
    return {metaObject, GraphicsObject::staticMetaObject, "NARV::GraphicsObjectData"};
}

QList<QByteArray> ConstructorMatch::signatures(const QMetaObject *metaObject)
{
    QList<QByteArray> found;
    const int count = metaObject ? metaObject->constructorCount() : 0;
    for (int i = 0; i < count; ++i)
        found.append(metaObject->constructor(i).methodSignature());
    return found;
}

QObject *ConstructorMatch::newInstance(const void *argument, const QString &pluginId) const
{
    if (!isValid())
        return nullptr;
    QObject *object = nullptr;
    void *arguments[] = {&object, const_cast<void *>(argument)};
    try {
        m_metaObject->static_metacall(QMetaObject::CreateInstance, m_index, arguments);
    } catch (...) {
        EventDelivery::logException(pluginId);
    }
    return object;
}

} // namespace NARV::INTERNAL
