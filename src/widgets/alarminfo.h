#pragma once

#include <zpplugin_export.h>

#include <QColor>
#include <QDateTime>
#include <QMap>
#include <QObject>
#include <QScopedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

class QDebug;

namespace NARV {

struct AlarmInfoData;
class AlarmInfoPrivate;

//! One alarm of the host's project. A value; prints to QDebug.
class ZPPLUGIN_EXPORT AlarmInfo
{
    Q_GADGET

public:
    enum State : int
    {
        StateDisabled = 0,                    //!< switched off
        StateNotTriggered = 1,                //!< all is well
        StateTriggered = 2,                   //!< raised; needs no acknowledgement
        StateTriggeredNotAcknowledged = 3,    //!< raised, waits to be acknowledged
        StateTriggeredAcknowledged = 4,       //!< raised and acknowledged
        StateNotTriggeredNotAcknowledged = 5, //!< over, still waits to be acknowledged
        StateNotTriggeredAcknowledged = 6     //!< over and acknowledged
    };
    Q_ENUM(State)

    enum Severity : int
    {
        SeverityNotImportant = 0,
        SeverityLow = 1,
        SeverityBelowNormal = 2,
        SeverityNormal = 3,
        SeverityAboveNormal = 4,
        SeverityHigh = 5,
        SeverityCritical = 6
    };
    Q_ENUM(Severity)

    //! Invalid, with default data.
    AlarmInfo();
    //! Valid, whatever the data.
    explicit AlarmInfo(const AlarmInfoData &data);
    AlarmInfo(const AlarmInfo &other);
    AlarmInfo &operator=(const AlarmInfo &other);
    virtual ~AlarmInfo();

    //! Equal validity and equal data.
    bool operator==(const AlarmInfo &other) const;
    bool operator!=(const AlarmInfo &other) const { return !(*this == other); }

    //! A valid alarm from the entries "name", "description", "state", "timestamp", "groups",
    //! "customFields", "backgroundColor" and "foregroundColor" (each a QMap<State, QColor>),
    //! "acknowledgeEnabled", "blinkEnabled", "resetEnabled", "tagName", "tagValue" and "severity".
    //! A missing entry leaves the default, one that does not convert gives an empty or zero value
    //! (StateDisabled for a state). Other entries are ignored.
    static AlarmInfo createAlarmInfo(const QVariantMap &map);

    bool isValid() const;
    const QString &name() const;
    const QString &description() const;
    Severity severity() const;
    State state() const;
    const QStringList &groups() const;
    const QStringList &customFields() const;
    //! The time of the last change of state.
    const QDateTime &timestamp() const;
    //! The colours by the state in which to show them; a state may have none.
    const QMap<State, QColor> &backgroundColors() const;
    const QMap<State, QColor> &foregroundColors() const;
    //! What an operator may do with the alarm, and whether it blinks.
    bool acknowledgeEnabled() const;
    bool blinkEnabled() const;
    bool resetEnabled() const;
    //! The tag that raised the alarm, and its value at that time.
    const QString &tagName() const;
    const QVariant &tagValue() const;

    //! Raised now, acknowledged or not.
    bool triggered() const;
    //! Acknowledged, raised or over.
    bool acknowledged() const;
    //! In any state but StateDisabled.
    bool enabled() const;
    //! The colour for a state; an invalid colour if it has none. The reference holds as long as
    //! this alarm is unchanged.
    const QColor &backgroundColor(State state) const;
    const QColor &foregroundColor(State state) const;
    //! The colour for the present state.
    const QColor &currentBackgroundColor() const;
    const QColor &currentForegroundColor() const;

private:
    const QScopedPointer<AlarmInfoPrivate> d_ptr;
};

//! What an alarm is made from; AlarmInfo tells what each field means.
struct ZPPLUGIN_EXPORT AlarmInfoData
{
    QString name;
    QString description;
    AlarmInfo::Severity severity = AlarmInfo::SeverityNotImportant;
    AlarmInfo::State state = AlarmInfo::StateNotTriggered;
    QStringList groups;
    QStringList customFields;
    QDateTime timestamp;
    QMap<AlarmInfo::State, QColor> backgroundColors;
    QMap<AlarmInfo::State, QColor> foregroundColors;
    bool acknowledgeEnabled = false;
    bool blinkEnabled = false;
    bool resetEnabled = false;
    QString tagName;
    QVariant tagValue;

    bool operator==(const AlarmInfoData &other) const;
    bool operator!=(const AlarmInfoData &other) const { return !(*this == other); }
};

ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const AlarmInfo &alarmInfo);
ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const AlarmInfo *alarmInfo);

} // namespace NARV
