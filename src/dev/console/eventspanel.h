#pragma once

#include "console/recordpanel.h"

#include <QSet>

namespace NARV::DEV {

class EventFilterModel;
class EventLog;

//! The event log as a table.
class ZPPLUGIN_DEV_EXPORT EventsPanel : public RecordPanel
{
    Q_OBJECT

public:
    //! The log outlives the panel.
    explicit EventsPanel(EventLog &events, QWidget *parent = nullptr);

protected:
    void clearRecords() override;

private:
    EventsPanel(EventLog &events, EventFilterModel *filter, QWidget *parent);

    void addWidgetNames(int firstRow);

    EventLog &m_events;
    EventFilterModel *m_filter;
    QComboBox *m_widgets;
    QSet<QString> m_names; //!< those that it offers
};

} // namespace NARV::DEV
