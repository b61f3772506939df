#pragma once

#include <NARV/WidgetActionManager>

namespace NARV::INTERNAL {

//! The host's tags, trends and alarms as widgets reach them. The host derives from it, owns the
//! object and keeps it as long as there are widgets made with it. All calls come on the main thread
//! and are answered at once.
class ZPPLUGIN_EXPORT WidgetActionManagerImpl : public QObject
{
    Q_OBJECT

public:
    explicit WidgetActionManagerImpl(QObject *parent = nullptr);
    ~WidgetActionManagerImpl() override;

    //! The current value of a tag; an invalid value is usual for one that does not exist.
    virtual QVariant getTagValue(const QString &tagName) = 0;
    //! At most count samples of a trend from one time to another, laid out as
    //! WidgetActionManager::getTrendValue() says. Where there are more, keep the lowest and highest
    //! of each stretch, so that no peak is lost.
    virtual QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                                   unsigned int count,
                                   WidgetActionManager::TrendTimeFormat format) = 0;
    //! The alarms of the project.
    virtual QVector<AlarmInfo> getAlarms() = 0;
    //! The effect of these four goes back to widgets through WidgetPrivate::alarmEvent().
    virtual void resetAlarm(const QString &alarmName) = 0;
    virtual void resetAllAlarms() = 0;
    virtual void acknowAlarm(const QString &alarmName) = 0;
    virtual void acknowAllAlarms() = 0;
    //! The widget is shown at design time, not at run time.
    virtual bool isInsideProjectEditor() const = 0;
    //! The widget runs inside the developer test bench: its failures to read or write fields are
    //! logged.
    virtual bool isInsideDevProject() const = 0;

private:
    Q_DISABLE_COPY(WidgetActionManagerImpl)
};

} // namespace NARV::INTERNAL
