#include "deliveryround_p.h"

namespace NARV::INTERNAL {

void DeliveryRound::forgetItem(int position)
{
    for (DeliveryRound *round = this; round; round = round->m_outer) {
        if (round->m_item == m_widget->graphicsObjects.at(position))
            round->m_item = nullptr;
        round->m_next -= int(position < round->m_next);
        round->m_end -= int(position < round->m_end);
    }
}

void DeliveryRound::forgetWidget()
{
    for (DeliveryRound *round = this; round; round = round->m_outer) {
        round->m_widget = nullptr;
        round->m_item = nullptr;
    }
}

} // namespace NARV::INTERNAL
