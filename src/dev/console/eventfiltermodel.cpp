#include "console/eventfiltermodel.h"

namespace NARV::DEV {

EventFilterModel::EventFilterModel(EventLog &events, QObject *parent)
    : TailFilterModel(events, parent)
    , m_events(events)
{
    startAnew();
}

void EventFilterModel::setKind(std::optional<EventLog::Kind> kind)
{
    m_kind = kind;
    filterChanged();
}

void EventFilterModel::setWidget(const QString &widget)
{
    m_widget = widget;
    filterChanged();
}

bool EventFilterModel::accepts(int sourceRow) const
{
    const EventRecord &event = m_events.record(sourceRow);
    return (!m_kind || *m_kind == event.kind) && (m_widget.isEmpty() || m_widget == event.widget) &&
           hasWords({event.text, event.widget});
}

} // namespace NARV::DEV
