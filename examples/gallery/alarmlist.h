#pragma once

#include "alarmfilter.h"

#include <NARV/Widget>

#include <QTimer>

//! Keeps the alarms that its items show. A burst of alarm events costs one look at the alarms.
class AlarmList : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit AlarmList(const NARV::WidgetData &data);

    //! The alarms to show, in order.
    const QVector<NARV::AlarmInfo> &rows() const { return m_rows; }

protected:
    void initEvent(NARV::InitEvent *event) override;
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;
    void alarmStatusIsChangedEvent(NARV::AlarmStatusIsChangedEvent *event) override;

private:
    AlarmFilter filter();
    void refresh();

    QTimer m_refresh;
    QVector<NARV::AlarmInfo> m_rows;
};
