#pragma once

#include <NARV/WidgetData>

#include <QList>
#include <QObject>
#include <QScopedPointer>
#include <QVariant>
#include <QVector>

#include <memory>

namespace NARV {

class AlarmInfo;
class GraphicsObject;
class Widget;
class WidgetActionManager;

namespace INTERNAL {
class DeliveryRound;
class FieldIndex;
} // namespace INTERNAL

//! The host's side of a widget.
//!
//! The flag "internal" tells a call of the host (true), for which the fields' permissions do not
//! count, from one of plugin code. Failures are silent outside the test bench.
class ZPPLUGIN_EXPORT WidgetPrivate : public QObject
{
    Q_OBJECT

public:
    WidgetPrivate(const WidgetData &data, Widget *widget);
    ~WidgetPrivate() override;

    //! Tells the widget and then its graphics objects that the initial values are set. Does nothing
    //! if the widget is initialised. A graphics object made later is initialised by the host,
    //! through its own private part.
    void init();
    //! The reverse of init(); does nothing if the widget is not initialised.
    void deinit();
    //! The stored value; invalid if there is none or it may not be read.
    QVariant getFieldValue(const QString &fieldId, bool internal);
    //! Converts the value to the type of the field and stores it. A write of plugin code emits
    //! fieldIsChanged(), also when nothing has changed; a change is told to the widget and its
    //! graphics objects if sendEvent is set. A value that is no number equals itself.
    void setFieldValue(const QString &fieldId, const QVariant &value, bool internal,
                       bool sendEvent);
    //! Tells the widget and its graphics objects of an alarm.
    void alarmEvent(const AlarmInfo &alarmInfo) const;
    //! A new graphics object without parent item, owned by the caller; null if the widget has no
    //! class for them or the class cannot be instantiated.
    GraphicsObject *newGraphicsObjectInstance();

    bool initialised = false;
    Widget *widget;
    QString id;
    WidgetData::VersionType version;
    QString pluginId;
    const QMetaObject *graphicsObjectMetaObject = nullptr;
    //! By field id; written by setFieldValue() only.
    const QMap<QString, QVariant> &fieldValues = m_fieldValues;
    QMap<QString, WidgetData::FieldInfo> fieldsInfo;
    //! Null for a widget not made through its library, which otherwise gives it to this object.
    WidgetActionManager *widgetActionManager = nullptr;
    //! Those made by newGraphicsObjectInstance() and still there, in the order of creation.
    QList<GraphicsObject *> graphicsObjects;

Q_SIGNALS:
    //! Plugin code has written a field: the value as stored.
    void fieldIsChanged(const QString &fieldId, const QVariant &value);

private:
    friend class INTERNAL::DeliveryRound;
    friend class GraphicsObject;
    friend class WidgetLibraryPluginPrivate;

    template<class E, class TellItem>
    void deliverToAll(INTERNAL::DeliveryRound &round, E *event, void (Widget::*handler)(E *),
                      TellItem tellItem) const;
    template<class E>
    void deliverToAll(INTERNAL::DeliveryRound &round, E *event, void (Widget::*handler)(E *),
                      void (GraphicsObject::*itemHandler)(E *)) const;
    template<class... Items>
    void warn(const Items &...items) const;
    const INTERNAL::FieldIndex &fieldIndex();
    bool store(const QString &fieldId, int position, const QVariant &value, QVariant &oldValue);
    void forget(GraphicsObject *item);

    mutable INTERNAL::DeliveryRound *m_round = nullptr; // the innermost of those under way
    QScopedPointer<QObject> m_ownActionManager;
    std::shared_ptr<const INTERNAL::FieldIndex> m_fieldIndex; // null until needed
    QMap<QString, QVariant> m_fieldValues;
    // The entries of m_fieldValues by position in the index, null where there is none.
    QVector<QVariant *> m_stored;
};

} // namespace NARV
