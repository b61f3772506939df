#pragma once

#include <QGraphicsEffect>
#include <QImage>
#include <QTransform>

#include <memory>

class QGraphicsItem;

namespace NARV::DEV {

class PaintTurns;

//! What a widget has painted last. The view shows it until the widget wants to paint again and has
//! its turn, also where the widget was moved or the page was zoomed meanwhile.
class WidgetPicture : public QGraphicsEffect
{
    Q_OBJECT

public:
    //! To be set as the item's effect.
    WidgetPicture(const QGraphicsItem &item, std::shared_ptr<PaintTurns> turns);
    ~WidgetPicture() override;

    //! Gives the memory back. The picture is painted anew when it is to be seen.
    void forget();

protected:
    void draw(QPainter *painter) override;
    void sourceChanged(ChangeFlags flags) override;

private:
    bool isUpToDate(const QTransform &toScreen) const;
    bool canBePainted(const QRect &area) const;
    bool paint(const QPainter &painter);
    void show(QPainter &painter) const;

    const QGraphicsItem &m_item;
    std::shared_ptr<PaintTurns> m_turns;
    QImage m_image;
    QPoint m_corner;    //!< of the picture, where it was painted, in pixels of the screen
    QTransform m_place; //!< from the item to these pixels, when it was painted
    bool m_isOutdated = false;
};

} // namespace NARV::DEV
