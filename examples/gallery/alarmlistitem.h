#pragma once

#include "panfollower.h"
#include "touchitem.h"

class QGestureEvent;

namespace NARV {
class AlarmInfo;
}
class AlarmList;

//! Draws the alarms of an AlarmList as a table that scrolls, with the operator's buttons in the
//! rows, each for one alarm, and below, for all that are listed.
class AlarmListItem : public TouchItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit AlarmListItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;
    QVector<QRectF> parts() override;
    void partReleased(int part, bool isOver) override;
    int beatPeriod() override;
    bool sceneEvent(QEvent *event) override;
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;
    void deinitEvent(NARV::DeinitEvent *event) override;
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;

private:
    struct Layout
    {
        QRectF title;
        QRectF header;
        QRectF rows;
        QRectF bar; //!< below the table; empty without buttons
        QRectF acknowledge;
        QRectF reset;
    };

    AlarmList *list() const;
    Layout layout();
    qreal rowHeight();
    QRectF row(const Layout &places, int index);
    QRectF acknowledgeButton(const QRectF &row, const NARV::AlarmInfo &alarm);
    QRectF resetButton(const QRectF &row, const NARV::AlarmInfo &alarm);
    //! The width for the buttons of a row.
    qreal actionsWidth();
    //! How far the rows can be scrolled.
    qreal scrollRange(const Layout &places);
    void scroll(qreal distance);
    void follow(QGestureEvent *event);
    void rowsHaveChanged();
    void acknowledgeAll();

    //! Of all columns, in a table of a width.
    QVector<qreal> columnWidths(qreal width);

    void drawButtons(QPainter &painter, const Layout &places);
    void drawButton(QPainter &painter, const QRectF &area, const char *caption, int part);
    void drawRows(QPainter &painter, const Layout &places);
    void drawAlarm(QPainter &painter, const QRectF &row, const NARV::AlarmInfo &alarm, int index);
    void drawMark(QPainter &painter, const QRectF &area, const NARV::AlarmInfo &alarm);
    void drawActions(QPainter &painter, const QRectF &row, const NARV::AlarmInfo &alarm, int index);
    void drawScrollBar(QPainter &painter, const Layout &places);
    void drawCells(QPainter &painter, const QRectF &row, const QStringList &cells,
                   const QVector<QFont> &fonts, const QColor &ink);

    qreal m_scroll = 0;
    PanFollower m_pan;
    bool m_isAsking = false; //!< whether to acknowledge all
};
