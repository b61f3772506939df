#pragma once

#include "panfollower.h"
#include "scale.h"
#include "timewindow.h"
#include "touchitem.h"
#include "trendsamples.h"

#include <QElapsedTimer>
#include <QVector>

class QGestureEvent;

//! Draws trends over time: curves, axes, grid and legend. One finger moves the time, two fingers
//! zoom it, and a quick swipe to the left returns to the present.
class TrendChartItem : public TouchItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit TrendChartItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;
    QVector<QRectF> parts() override;
    void partReleased(int part, bool isOver) override;

    void initEvent(NARV::InitEvent *event) override;
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;
    int beatPeriod() override;
    void beat() override;
    bool sceneEvent(QEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;

private:
    struct Pen
    {
        QString text; //!< in the legend
        QString trend;
        QColor color;
        QVector<TrendSample> samples;
    };
    struct Layout
    {
        QRectF legend;
        QRectF plot;
        QRectF latest; //!< the button that returns to the present; empty when it is shown
    };
    struct ValueAxis
    {
        Scale scale;
        int divisions;
        int decimals;
    };

    Layout layout();
    //! The pens that have a trend; in the project editor all that have a name.
    QVector<Pen> pens();
    QVector<TrendSample> read(const QString &trend);
    QVector<TrendSample> sample(int pen);
    ValueAxis valueAxis();
    ValueAxis roundAxis();

    bool isLive();
    //! Sets the right edge to the present, and reads the curves.
    void followPresent();
    void showWindow(const TimeWindow &window);
    void showLatest();
    void readCurves();

    void pan(QGestureEvent *event);
    void pinch(QGestureEvent *event);
    void swipe(QGestureEvent *event);
    //! The place of a point of the item on the time axis, in parts of its length.
    double timeFraction(const QPointF &point);

    void drawLegend(QPainter &painter, const QRectF &area);
    void drawPen(QPainter &painter, const QRectF &area, const Pen &pen);
    void drawValueAxis(QPainter &painter, const QRectF &plot, const ValueAxis &axis);
    void drawTimeAxis(QPainter &painter, const QRectF &plot);
    void drawGridLine(QPainter &painter, const QPointF &from, const QPointF &to);
    void drawCurves(QPainter &painter, const QRectF &plot, const Scale &scale);
    void drawCurve(QPainter &painter, const QRectF &plot, const Scale &scale, const Pen &pen);
    QString timeLabel(qint64 time);

    TimeWindow m_window;
    QVector<Pen> m_pens;
    PanFollower m_pan;
    double m_pinched = 1; //!< of the pinch that is going on, what has been followed
    QElapsedTimer m_sincePress;
};
