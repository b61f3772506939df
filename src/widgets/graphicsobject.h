#pragma once

#include <NARV/GraphicsObjectData>

#include <QGraphicsObject>
#include <QScopedPointer>
#include <QVariant>

namespace NARV {

class AlarmStatusIsChangedEvent;
class DataRole;
class DeinitEvent;
class Event;
class FieldIsChangedEvent;
class GraphicsObjectPrivate;
class InitEvent;
class ResizeEvent;
class Widget;
class WidgetActionManager;
class WidgetPrivate;

namespace INTERNAL {
class EventDelivery;
class GraphicsObjectPrivateAccessor;
} // namespace INTERNAL

//! The drawable item of a widget, one for each view that shows the widget. Base of a library's
//! items, which implement paint().
//!
//! Made by its widget on the host's request and owned by the host, as a rule by its scene.
class ZPPLUGIN_EXPORT GraphicsObject : public QGraphicsObject
{
    Q_OBJECT

public:
    enum OptionFlag
    {
        //! The first touch point arrives as mouse press, move and release of the left button.
        TouchToMouseEmulation = 1
    };
    Q_DECLARE_FLAGS(Options, OptionFlag)

    //! A graphics object class declares:
    //! Q_INVOKABLE GaugeItem(const NARV::GraphicsObjectData &data);
    explicit GraphicsObject(const GraphicsObjectData &data);
    ~GraphicsObject() override;

    //! Id and version of the widget, as Widget gives them.
    const QString &id() const;
    const QString &version() const;
    unsigned int versionMajor() const;
    unsigned int versionMinor() const;
    unsigned int versionPatch() const;
    //! The size the host has given the item, in item coordinates; invalid until it did.
    const QSizeF &size() const;
    //! The widget this belongs to; null once the widget is deleted.
    Widget *widget() const;
    //! The widget's own action manager.
    const WidgetActionManager &widgetActionManager() const;

    //! None are set at first.
    Options options() const;
    void setOption(OptionFlag option, bool on = true);
    void setOptions(Options options);
    //! Makes the item selectable, focusable and a receiver of touch events, or none of it. A new
    //! item receives touch events and is neither selectable nor focusable.
    void setAcceptTouchAndMouseEvents(bool on);

    //! The touch gestures of the library, for grabGesture().
    static Qt::GestureType pan1TouchGestureType();
    static Qt::GestureType pan2TouchesGestureType();
    static Qt::GestureType pan3TouchesGestureType();
    static Qt::GestureType swipe1TouchGestureType();
    static Qt::GestureType swipe2TouchesGestureType();
    static Qt::GestureType swipe3TouchesGestureType();
    static Qt::GestureType pinchGestureType();

    //! The item's size, its top left corner at the origin.
    QRectF boundingRect() const override;
    void advance(int phase) override;
    QPainterPath shape() const override;
    bool contains(const QPointF &point) const override;
    bool collidesWithItem(const QGraphicsItem *other,
                          Qt::ItemSelectionMode mode = Qt::IntersectsItemShape) const override;
    bool collidesWithPath(const QPainterPath &path,
                          Qt::ItemSelectionMode mode = Qt::IntersectsItemShape) const override;
    bool isObscuredBy(const QGraphicsItem *item) const override;
    QPainterPath opaqueArea() const override;
    int type() const override;

    using QGraphicsObject::data;

protected:
    //! Hears every event first; true when the event is dealt with, false to have the handler of its
    //! type called. An event lives for the duration of the call only.
    virtual bool narvEvent(Event *event);
    virtual void initEvent(InitEvent *event);
    virtual void deinitEvent(DeinitEvent *event);
    //! size() is the new size already.
    virtual void resizeEvent(ResizeEvent *event);
    //! The value of a field of the widget has changed, also by this item's own doing.
    virtual void fieldIsChangedEvent(FieldIsChangedEvent *event);
    //! Sent to widgets whose description asks for alarm events.
    virtual void alarmStatusIsChangedEvent(AlarmStatusIsChangedEvent *event);
    //! What the role asks for; the base answers Icon with the widget's icon and gives an invalid
    //! value for others.
    virtual QVariant data(DataRole *role);

    //! The value of a field of the widget, as Widget::getFieldValue().
    QVariant getFieldValue(const QString &fieldId);
    //! Writes a field of the widget, as Widget::setFieldValue(): the widget and all its graphics
    //! objects, this one included, hear of a change.
    void setFieldValue(const QString &fieldId, const QVariant &value);

    bool sceneEvent(QEvent *event) override;
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    bool supportsExtension(Extension extension) const override;
    void setExtension(Extension extension, const QVariant &variant) override;
    QVariant extension(const QVariant &variant) const override;

private:
    friend class INTERNAL::EventDelivery;
    friend class INTERNAL::GraphicsObjectPrivateAccessor;
    friend class WidgetPrivate;

    Q_DISABLE_COPY(GraphicsObject)
    Q_DECLARE_PRIVATE(GraphicsObject)
    const QScopedPointer<GraphicsObjectPrivate> d_ptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(GraphicsObject::Options)

} // namespace NARV
