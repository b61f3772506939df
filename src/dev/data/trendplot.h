#pragma once

#include "data/csvseries.h"

#include <QWidget>

namespace NARV::DEV {

//! A small curve of a trend, in the colours of the palette, with its least and greatest value.
class TrendPlot : public QWidget
{
    Q_OBJECT

public:
    explicit TrendPlot(QWidget *parent = nullptr);
    ~TrendPlot() override;

    //! Samples as TrendStore::samples() gives them in milliseconds. Where there are none, the
    //! problem is shown, if it is not empty.
    void show(const QVariantList &samples, const QString &problem);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF bounds() const;
    void drawCurve(QPainter &painter, const QRectF &area) const;

    QVector<QPointF> m_points; // a gap is a NaN
    QString m_message;         // in place of a curve
};

} // namespace NARV::DEV
