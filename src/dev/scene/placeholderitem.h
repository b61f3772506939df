#pragma once

#include <QGraphicsObject>

namespace NARV::DEV {

//! Stands on the page for a widget that cannot be shown, and says why.
class PlaceholderItem : public QGraphicsObject
{
    Q_OBJECT

public:
    PlaceholderItem(const QString &title, const QString &reason);

    void setSize(const QSizeF &size);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QString m_title;
    QString m_reason;
    QSizeF m_size;
};

} // namespace NARV::DEV
