#include "console/eventspanel.h"

#include "console/eventfiltermodel.h"

#include <QComboBox>

namespace NARV::DEV {

static const int maxWidgetNames = 500; //!< in the choice; words find the others

EventsPanel::EventsPanel(EventLog &events, QWidget *parent)
    : EventsPanel(events, new EventFilterModel(events), parent)
{
}

EventsPanel::EventsPanel(EventLog &events, EventFilterModel *filter, QWidget *parent)
    : RecordPanel(filter, tr("events"), parent)
    , m_events(events)
    , m_filter(filter)
{
    setObjectName(QStringLiteral("events"));
    setAccessibleName(tr("Event list"));
    QComboBox *kinds = addFilter(QStringLiteral("kind"), tr("Kind"));
    kinds->addItem(tr("All"));
    for (EventLog::Kind kind : EventLog::kinds())
        kinds->addItem(EventLog::kindName(kind));
    connect(kinds, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        m_filter->setKind(index > 0 ? std::optional(EventLog::kinds()[index - 1]) : std::nullopt);
    });
    m_widgets = addFilter(QStringLiteral("widget"), tr("Widget"));
    m_widgets->addItem(tr("All"), QString());
    connect(m_widgets, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { m_filter->setWidget(m_widgets->currentData().toString()); });
    connect(&m_events, &EventLog::rowsInserted, this,
            [this](const QModelIndex &, int first) { addWidgetNames(first); });
    addWidgetNames(0);
    setColumnSamples({QStringLiteral("00:00:00.000"), QStringLiteral("Field change"),
                      QStringLiteral("selector12")});
    setSpareColumns({EventLog::TimeColumn, EventLog::KindColumn});
}

void EventsPanel::addWidgetNames(int firstRow)
{
    for (int row = firstRow; row < m_events.rowCount(); ++row) {
        const QString &name = m_events.record(row).widget;
        if (name.isEmpty() || m_names.size() >= maxWidgetNames || m_names.contains(name))
            continue;
        m_names.insert(name);
        m_widgets->addItem(name, name);
    }
}

void EventsPanel::clearRecords()
{
    m_events.clear();
}

} // namespace NARV::DEV
