#pragma once

#include "widget_p.h"

namespace NARV::INTERNAL {

//! An event on its way to a widget and the graphics objects that it has when the round starts.
//! Lives on the stack; rounds of a widget nest. Learns of what is deleted meanwhile.
class DeliveryRound
{
public:
    explicit DeliveryRound(const WidgetPrivate *widget)
        : m_widget(widget)
        , m_outer(widget->m_round)
    {
        widget->m_round = this;
    }
    ~DeliveryRound()
    {
        if (m_widget)
            m_widget->m_round = m_outer;
    }

    //! The graphics objects that there are now take part.
    void start() { m_end = m_widget->graphicsObjects.size(); }
    bool isWidgetAlive() const { return m_widget; }
    //! The one that next() gave last.
    bool isItemAlive() const { return m_item; }
    //! Null when all have had their turn or the widget is gone.
    GraphicsObject *next()
    {
        m_item = m_widget && m_next < m_end ? m_widget->graphicsObjects.at(m_next++) : nullptr;
        return m_item;
    }

    //! Tells this round and those around it that the graphics object at a position is about to go.
    void forgetItem(int position);
    //! The same of the widget.
    void forgetWidget();

private:
    Q_DISABLE_COPY(DeliveryRound)

    const WidgetPrivate *m_widget; // null when it is gone
    DeliveryRound *const m_outer;
    GraphicsObject *m_item = nullptr;
    int m_next = 0;
    int m_end = 0;
};

} // namespace NARV::INTERNAL
