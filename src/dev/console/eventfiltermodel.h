#pragma once

#include "console/eventlog.h"
#include "console/tailfiltermodel.h"

#include <optional>

namespace NARV::DEV {

//! The events that the event list shows.
class ZPPLUGIN_DEV_EXPORT EventFilterModel : public TailFilterModel
{
    Q_OBJECT

public:
    explicit EventFilterModel(EventLog &events, QObject *parent = nullptr);

    //! Events of this kind, or of all.
    void setKind(std::optional<EventLog::Kind> kind);
    //! Events of the widget of that name; of all if it is empty.
    void setWidget(const QString &widget);

protected:
    bool accepts(int sourceRow) const override;

private:
    const EventLog &m_events;
    std::optional<EventLog::Kind> m_kind;
    QString m_widget;
};

} // namespace NARV::DEV
