#pragma once

#include "alarmfilter.h"

#include <NARV/Widget>

#include <QBasicTimer>
#include <QTimer>

//! Keeps the alarms that its items show. A burst of alarm events costs one look at the alarms.
//! In the project editor it shows samples.
class AlarmList : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit AlarmList(const NARV::WidgetData &data);

    //! The alarms to show, in order.
    const QVector<NARV::AlarmInfo> &rows() const { return m_rows; }

    static bool canAcknowledge(const NARV::AlarmInfo &alarm);
    static bool canReset(const NARV::AlarmInfo &alarm);
    //! All that are listed and can be; alarms that the filter hides are left alone.
    void acknowledgeAll();
    void resetAll();

Q_SIGNALS:
    void rowsChanged();

protected:
    void initEvent(NARV::InitEvent *event) override;
    void deinitEvent(NARV::DeinitEvent *event) override;
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;
    void alarmStatusIsChangedEvent(NARV::AlarmStatusIsChangedEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    AlarmFilter filter();
    //! The group that the operator has chosen; empty for none.
    QString chosenGroup();
    void refresh();
    void watchGroupTag();

    QTimer m_refresh;
    QBasicTimer m_groupWatch; //!< nobody tells of a tag that is bound by its name
    QString m_group;
    QVector<NARV::AlarmInfo> m_rows;
};
