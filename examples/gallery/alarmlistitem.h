#pragma once

#include "galleryitem.h"

namespace NARV {
class AlarmInfo;
}

//! Draws the alarms of an AlarmList as a table, with the operator's buttons below.
class AlarmListItem : public GalleryItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit AlarmListItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;

private:
    //! Cuts the buttons off area and draws them; what remains is the table.
    QRectF drawButtons(QPainter &painter, const QRectF &area);
    void drawTable(QPainter &painter, const QRectF &area);
    void drawRows(QPainter &painter, const QRectF &area);
    void drawAlarm(QPainter &painter, const QRectF &row, const NARV::AlarmInfo &alarm,
                   const QColor &ground);
    void drawCells(QPainter &painter, const QRectF &row, const QStringList &cells,
                   const QFont &cellFont, const QColor &ink);
};
