#pragma once

#include <NARV/AlarmInfo>

#include <QObject>
#include <QVector>

namespace NARV {

class WidgetActionManagerPrivate;
class WidgetLibraryPluginPrivate;

namespace INTERNAL {
class WidgetActionManagerImpl;
class WidgetActionManagerPrivateAccessor;
} // namespace INTERNAL

//! A widget's way to the tags, trends and alarms of the host, shared by the widget and its graphics
//! objects. Every call goes to the host as it is, and the host answers at once; a manager without
//! host answers with invalid values, empty lists and false.
//!
//! Made and destroyed by the library, with the widget.
class ZPPLUGIN_EXPORT WidgetActionManager : public QObject
{
    Q_OBJECT

public:
    //! How the times of trend samples are written; getTrendValue() tells of the samples.
    enum TrendTimeFormat : int
    {
        DateTime = 0,               //!< QDateTime
        MillisecondsSinceEpoch = 1, //!< milliseconds since 1970-01-01 00:00 UTC: qint64
        SecondsSinceEpoch = 2,      //!< seconds since 1970-01-01 00:00 UTC: double
        IsoText = 3                 //!< ISO 8601 with milliseconds and UTC offset: QString
    };

    //! The current value of a tag.
    QVariant getTagValue(const QString &tagName) const;
    //! At most count samples of a trend from one time to another, both included: a QVariantList in
    //! ascending order of time whose entries are each a QVariantList of [time, value] or
    //! [time, value, quality]. The time is written as format says. The value is in the trend's own
    //! unit; an invalid value or a NaN is a gap, to the next sample with a value. Quality is 0 for
    //! good, as when it is left out, 1 for uncertain and 2 for bad, which is not to be shown.
    //! Empty without samples, invalid if there is no such trend.
    QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                           unsigned int count, TrendTimeFormat format) const;
    //! The alarms of the project.
    QVector<AlarmInfo> getAlarms() const;
    //! The effect of these four comes back as AlarmStatusIsChangedEvent.
    void acknowAlarm(const QString &alarmName) const;
    void acknowAllAlarms() const;
    void resetAlarm(const QString &alarmName) const;
    void resetAllAlarms() const;
    //! The widget is shown at design time, not at run time.
    bool isInsideProjectEditor() const;

    bool event(QEvent *event) override;

private:
    friend class WidgetActionManagerPrivate;
    friend class WidgetLibraryPluginPrivate;
    friend class INTERNAL::WidgetActionManagerPrivateAccessor;

    WidgetActionManager(INTERNAL::WidgetActionManagerImpl *impl, QObject *parent);
    ~WidgetActionManager() override;

    Q_DISABLE_COPY(WidgetActionManager)
    Q_DECLARE_PRIVATE(WidgetActionManager)
    const QScopedPointer<WidgetActionManagerPrivate> d_ptr;
};

} // namespace NARV
