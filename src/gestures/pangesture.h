#pragma once

#include <zpplugin_export.h>

#include <QGesture>
#include <QPointF>
#include <QScopedPointer>

namespace NARV {

class PanGesturePrivate;
class PanGestureRecognizer;

//! A drag with exactly one, two or three fingers; with one finger also with the mouse.
//!
//! Made by its recogniser and owned by the toolkit. Points are pixels of the screen.
class ZPPLUGIN_EXPORT PanGesture : public QGesture
{
    Q_OBJECT

public:
    //! For 1, 2 or 3 fingers.
    explicit PanGesture(int touchPoints, QObject *parent = nullptr);
    ~PanGesture() override;

    //! PanGestureRecognizer::type() of the number of fingers.
    Qt::GestureType gestureType() const;
    //! Where the first finger or the mouse went down.
    QPointF startPoint() const;
    //! How far the fingers have moved since they went down, on average.
    QPointF offset() const;
    //! offset() before the latest update.
    QPointF lastOffset() const;
    //! How far the latest update moved: offset() less lastOffset().
    QPointF delta() const;

    bool event(QEvent *event) override;

private:
    friend class PanGestureRecognizer;

    Q_DISABLE_COPY(PanGesture)
    Q_DECLARE_PRIVATE(PanGesture)
    const QScopedPointer<PanGesturePrivate> d_ptr;
};

} // namespace NARV
