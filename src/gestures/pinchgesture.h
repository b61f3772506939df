#pragma once

#include <zpplugin_export.h>

#include <QGesture>
#include <QPointF>
#include <QScopedPointer>

namespace NARV {

class PinchGesturePrivate;
class PinchGestureRecognizer;

//! Two fingers that move apart or together, turn, or move along.
//!
//! Made by its recogniser and owned by the toolkit. Points are pixels of the screen, angles are
//! degrees, clockwise on the screen.
class ZPPLUGIN_EXPORT PinchGesture : public QGesture
{
    Q_OBJECT

public:
    enum ChangeFlag
    {
        ScaleFactorChanged = 1,
        RotationAngleChanged = 2,
        CenterPointChanged = 4
    };
    Q_DECLARE_FLAGS(ChangeFlags, ChangeFlag)
    Q_FLAG(ChangeFlags)

    explicit PinchGesture(QObject *parent = nullptr);
    ~PinchGesture() override;

    //! PinchGestureRecognizer::type().
    Qt::GestureType gestureType() const;

    //! What changed since the gesture began, and in the latest update.
    ChangeFlags totalChangeFlags() const;
    ChangeFlags changeFlags() const;

    //! The middle between the fingers: in the first update with both, in the update before the
    //! latest (in the first update that one itself), and in the latest.
    QPointF startCenterPoint() const;
    QPointF lastCenterPoint() const;
    QPointF centerPoint() const;

    //! Distance of the fingers: in the latest update relative to the update before, from 0.1 to 2
    //! and 1 in the first update. An update with a longer leap is a fault of the panel and not
    //! delivered. The total is relative to the start of the gesture.
    double totalScaleFactor() const;
    double lastScaleFactor() const;
    double scaleFactor() const;

    //! How far the line from the first to the second finger has turned since they went down. The
    //! angles leap by 360 when the line passes the one that points straight left.
    double totalRotationAngle() const;
    double lastRotationAngle() const;
    double rotationAngle() const;

    bool event(QEvent *event) override;

private:
    friend class PinchGestureRecognizer;

    Q_DISABLE_COPY(PinchGesture)
    Q_DECLARE_PRIVATE(PinchGesture)
    const QScopedPointer<PinchGesturePrivate> d_ptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(PinchGesture::ChangeFlags)

} // namespace NARV
