#pragma once

#include <NARV/GraphicsObject>
#include <NARV/Widget>
#include <NARV/WidgetActionManager>

#include <QEvent>
#include <QPointer>

class QTouchEvent;

namespace NARV {

//! The host's side of a graphics object.
class ZPPLUGIN_EXPORT GraphicsObjectPrivate
{
public:
    GraphicsObjectPrivate(const GraphicsObjectData &data, GraphicsObject *graphicsObject);

    //! Sends an InitEvent; does nothing if the object is initialised. A widget that is initialised
    //! calls this for its graphics objects.
    void init();
    //! The reverse of init().
    void deinit();
    //! Gives the object a size and sends a ResizeEvent, unless it has that size. A size with a part
    //! that is infinite or no number is ignored; a negative one is taken as any other.
    void resize(const QSizeF &newSize);
    //! As WidgetPrivate::getFieldValue() and setFieldValue() of the object's widget. Without a
    //! widget: invalid, and no effect.
    QVariant getFieldValue(const QString &fieldId, bool internal) const;
    void setFieldValue(const QString &fieldId, const QVariant &value, bool internal,
                       bool sendEvent);
    //! Turns a touch event into a mouse event. False if the event is for the toolkit to handle.
    bool emulateMouse(QEvent *event);

    bool initialised = false;
    QSizeF size;
    QString id;
    GraphicsObjectData::VersionType version;
    QPointer<Widget> widget;
    GraphicsObject *graphicsObject;
    QPointer<WidgetActionManager> widgetActionManager;
    static constexpr qint32 noTouchPoint = -1;
    //! The touch point that is being turned into mouse events.
    qint32 touchPointId = noTouchPoint;
    GraphicsObject::Options options;
    //! The widget that has this object in its list; null for none.
    WidgetPrivate *owner = nullptr;

private:
    struct MouseStep;

    static const MouseStep *mouseStep(QEvent::Type touch);
    bool swallowMousePress(QEvent *event) const;
    void sendMouseEvent(const MouseStep &step, QTouchEvent *touch);
};

} // namespace NARV
