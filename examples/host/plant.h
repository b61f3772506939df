#pragma once

#include <NARV/INTERNAL/WidgetActionManagerImpl>

#include <QtMath>

#include <functional>

//! What a real host takes from its project and its machine: tags with values that move, their
//! histories, and alarms.
class Plant : public NARV::INTERNAL::WidgetActionManagerImpl
{
public:
    explicit Plant(bool isInsideEditor)
        : m_isInsideEditor(isInsideEditor)
    {
    }

    //! The tag or trend that the project attaches to a field; empty for none.
    static QString tagOf(const QString &widgetId, const QString &fieldId)
    {
        static const QMap<QString, QString> attached{
            {"bar.value", "level"},
            {"gauge.value", "pressure"},
            {"gauge.setpoint", "setpoint"},
            {"lamp.state", "state"},
            {"numericDisplay.value", "temperature"},
            {"numericInput.value", "setpoint"},
            {"numericInput.actualValueTag", "pressure"},
            {"pushButton.value", "start"},
            {"selector.value", "mode"},
            {"trendChart.pen1", "level"},
            {"trendChart.pen2", "pressure"},
            {"trendChart.pen3", "temperature"},
        };
        return attached.value(widgetId + '.' + fieldId);
    }

    //! Lets time go by. The alarms that come or go are told to alarmChanged.
    void advance(double seconds)
    {
        m_seconds += seconds;
        for (NARV::AlarmInfoData &alarm : m_alarms) {
            const bool isRaised = getTagValue(alarm.tagName).toDouble() > alarm.tagValue.toDouble();
            if (isRaised != NARV::AlarmInfo(alarm).triggered())
                setState(alarm, isRaised ? NARV::AlarmInfo::StateTriggeredNotAcknowledged
                                         : NARV::AlarmInfo::StateNotTriggered);
        }
    }
    std::function<void(const NARV::AlarmInfo &)> alarmChanged;

    QVariant getTagValue(const QString &tagName) override { return valueAt(tagName, m_seconds); }
    void setTagValue(const QString &tagName, const QVariant &value) { m_written[tagName] = value; }

    QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                           unsigned int count,
                           NARV::WidgetActionManager::TrendTimeFormat format) override
    {
        if (!valueAt(name, m_seconds).isValid())
            return {};
        const QDateTime now = QDateTime::currentDateTime();
        QVariantList samples;
        for (unsigned int i = 0; i < count; ++i) {
            const QDateTime time = from.addMSecs(from.msecsTo(to) * i / qMax(1u, count - 1));
            const double age = double(time.msecsTo(now)) / 1000;
            samples +=
                QVariant(QVariantList{written(time, format), valueAt(name, m_seconds - age)});
        }
        return samples;
    }

    QVector<NARV::AlarmInfo> getAlarms() override
    {
        QVector<NARV::AlarmInfo> alarms;
        for (const NARV::AlarmInfoData &alarm : qAsConst(m_alarms))
            alarms.append(NARV::AlarmInfo(alarm));
        return alarms;
    }
    void acknowAlarm(const QString &alarmName) override
    {
        for (NARV::AlarmInfoData &alarm : m_alarms) {
            const bool isMeant = alarmName.isEmpty() || alarm.name == alarmName;
            if (isMeant && alarm.state == NARV::AlarmInfo::StateTriggeredNotAcknowledged)
                setState(alarm, NARV::AlarmInfo::StateTriggeredAcknowledged);
        }
    }
    void acknowAllAlarms() override { acknowAlarm({}); }
    // These alarms go by themselves when their reason has gone.
    void resetAlarm(const QString &) override {}
    void resetAllAlarms() override {}

    bool isInsideProjectEditor() const override { return m_isInsideEditor; }
    bool isInsideDevProject() const override { return false; }

private:
    //! A wave around a middle for some tags; the others are as they were written last.
    QVariant valueAt(const QString &tag, double seconds) const
    {
        struct Wave
        {
            double middle, swing, period;
        };
        static const QMap<QString, Wave> waves{{"level", {54, 38, 160}},
                                               {"pressure", {66, 24, 90}},
                                               {"temperature", {71, 4, 210}},
                                               {"state", {1.5, 1.5, 75}}};
        const auto wave = waves.constFind(tag);
        if (wave == waves.constEnd())
            return m_written.value(tag);
        return wave->middle + wave->swing * qSin(seconds * 2 * M_PI / wave->period);
    }

    //! A time as the widget wants it.
    static QVariant written(const QDateTime &time,
                            NARV::WidgetActionManager::TrendTimeFormat format)
    {
        switch (format) {
        case NARV::WidgetActionManager::MillisecondsSinceEpoch:
            return time.toMSecsSinceEpoch();
        case NARV::WidgetActionManager::SecondsSinceEpoch:
            return double(time.toMSecsSinceEpoch()) / 1000;
        case NARV::WidgetActionManager::IsoText:
            return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODateWithMs);
        default:
            return time;
        }
    }

    static NARV::AlarmInfoData alarm(const QString &name, const QString &description,
                                     NARV::AlarmInfo::Severity severity, const QString &tag,
                                     double limit)
    {
        NARV::AlarmInfoData data;
        data.name = name;
        data.description = description;
        data.severity = severity;
        data.acknowledgeEnabled = data.blinkEnabled = true;
        data.tagName = tag;
        data.tagValue = limit;
        return data;
    }

    void setState(NARV::AlarmInfoData &alarm, NARV::AlarmInfo::State state)
    {
        alarm.state = state;
        alarm.timestamp = m_start.addMSecs(qint64(m_seconds * 1000));
        if (alarmChanged)
            alarmChanged(NARV::AlarmInfo(alarm));
    }

    const bool m_isInsideEditor;
    const QDateTime m_start{QDate(2024, 5, 1), QTime(10, 0)}; // of the simulation, always the same
    double m_seconds = 0;                                     // since then
    QMap<QString, QVariant> m_written{{"setpoint", 60}};
    QVector<NARV::AlarmInfoData> m_alarms{
        alarm("LT-204", "Level of the tank is high", NARV::AlarmInfo::SeverityHigh, "level", 85),
        alarm("PT-101", "Pressure is too high", NARV::AlarmInfo::SeverityCritical, "pressure", 80),
        alarm("TT-310", "Cooling water is warm", NARV::AlarmInfo::SeverityNormal, "temperature",
              70),
        alarm("XS-001", "Guard door is open", NARV::AlarmInfo::SeverityLow, "state", 2.5)};
};
