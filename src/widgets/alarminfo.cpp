#include "alarminfo.h"

#include <QDebug>

#include <tuple>
#include <utility>

namespace NARV {

class AlarmInfoPrivate
{
public:
    bool isValid = false;
    AlarmInfoData data;
};

AlarmInfo::AlarmInfo()
    : d_ptr(new AlarmInfoPrivate)
{
}

AlarmInfo::AlarmInfo(const AlarmInfoData &data)
    : d_ptr(new AlarmInfoPrivate{true, data})
{
}

AlarmInfo::AlarmInfo(const AlarmInfo &other)
    : d_ptr(new AlarmInfoPrivate(*other.d_ptr))
{
}

AlarmInfo &AlarmInfo::operator=(const AlarmInfo &other)
{
    *d_ptr = *other.d_ptr;
    return *this;
}

AlarmInfo::~AlarmInfo() = default;

bool AlarmInfo::operator==(const AlarmInfo &other) const
{
    return d_ptr->isValid == other.d_ptr->isValid && d_ptr->data == other.d_ptr->data;
}

bool AlarmInfoData::operator==(const AlarmInfoData &other) const
{
    const auto fields = [](const AlarmInfoData &data) {
        return std::tie(data.name, data.description, data.severity, data.state, data.groups,
                        data.customFields, data.timestamp, data.backgroundColors,
                        data.foregroundColors, data.acknowledgeEnabled, data.blinkEnabled,
                        data.resetEnabled, data.tagName, data.tagValue);
    };
    return fields(*this) == fields(other);
}

template<class T>
static void read(const QVariantMap &map, const char *key, T &field)
{
    const auto entry = map.constFind(QLatin1String(key));
    if (entry != map.constEnd())
        field = entry->value<T>();
}

AlarmInfo AlarmInfo::createAlarmInfo(const QVariantMap &map)
{
    AlarmInfoData data;
    read(map, "name", data.name);
    read(map, "description", data.description);
    read(map, "state", data.state);
    read(map, "timestamp", data.timestamp);
    read(map, "groups", data.groups);
    read(map, "customFields", data.customFields);
    read(map, "backgroundColor", data.backgroundColors);
    read(map, "foregroundColor", data.foregroundColors);
    read(map, "acknowledgeEnabled", data.acknowledgeEnabled);
    read(map, "blinkEnabled", data.blinkEnabled);
    read(map, "resetEnabled", data.resetEnabled);
    read(map, "tagName", data.tagName);
    read(map, "tagValue", data.tagValue);
    read(map, "severity", data.severity);
    return AlarmInfo(data);
}

bool AlarmInfo::isValid() const
{
    return d_ptr->isValid;
}

const QString &AlarmInfo::name() const
{
    return d_ptr->data.name;
}

const QString &AlarmInfo::description() const
{
    return d_ptr->data.description;
}

AlarmInfo::Severity AlarmInfo::severity() const
{
    return d_ptr->data.severity;
}

AlarmInfo::State AlarmInfo::state() const
{
    return d_ptr->data.state;
}

const QStringList &AlarmInfo::groups() const
{
    return d_ptr->data.groups;
}

const QStringList &AlarmInfo::customFields() const
{
    return d_ptr->data.customFields;
}

const QDateTime &AlarmInfo::timestamp() const
{
    return d_ptr->data.timestamp;
}

const QMap<AlarmInfo::State, QColor> &AlarmInfo::backgroundColors() const
{
    return d_ptr->data.backgroundColors;
}

const QMap<AlarmInfo::State, QColor> &AlarmInfo::foregroundColors() const
{
    return d_ptr->data.foregroundColors;
}

bool AlarmInfo::acknowledgeEnabled() const
{
    return d_ptr->data.acknowledgeEnabled;
}

bool AlarmInfo::blinkEnabled() const
{
    return d_ptr->data.blinkEnabled;
}

bool AlarmInfo::resetEnabled() const
{
    return d_ptr->data.resetEnabled;
}

const QString &AlarmInfo::tagName() const
{
    return d_ptr->data.tagName;
}

const QVariant &AlarmInfo::tagValue() const
{
    return d_ptr->data.tagValue;
}

bool AlarmInfo::triggered() const
{
    return state() == StateTriggered || state() == StateTriggeredNotAcknowledged ||
           state() == StateTriggeredAcknowledged;
}

bool AlarmInfo::acknowledged() const
{
    return state() == StateTriggeredAcknowledged || state() == StateNotTriggeredAcknowledged;
}

bool AlarmInfo::enabled() const
{
    return state() != StateDisabled;
}

const QColor &AlarmInfo::backgroundColor(State state) const
{
    static const QColor none;
    const auto found = backgroundColors().constFind(state);
    return found == backgroundColors().constEnd() ? none : *found;
}

const QColor &AlarmInfo::foregroundColor(State state) const
{
    static const QColor none;
    const auto found = foregroundColors().constFind(state);
    return found == foregroundColors().constEnd() ? none : *found;
}

const QColor &AlarmInfo::currentBackgroundColor() const
{
    return backgroundColor(state());
}

const QColor &AlarmInfo::currentForegroundColor() const
{
    return foregroundColor(state());
}

static QString timestampText(const QDateTime &timestamp)
{
    const int offset = timestamp.offsetFromUtc();
    const QString sign = offset < 0 ? QString() : QStringLiteral("+");
    return QStringLiteral("%1 %2%3").arg(timestamp.toString(Qt::ISODateWithMs), sign,
                                         QString::number(offset));
}

// Readers of the log rely on the second "groups", which labels the custom fields.
QDebug operator<<(QDebug debug, const AlarmInfo &alarm)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NARV::AlarmInfo(isValid=" << alarm.isValid() << ",name=" << alarm.name()
                    << ",description=" << alarm.description() << ",severity=" << alarm.severity()
                    << ",groups=" << alarm.groups() << ",groups=" << alarm.customFields()
                    << ",state=" << alarm.state() << ",triggered=" << alarm.triggered()
                    << ",acknowledged=" << alarm.acknowledged() << ",enabled=" << alarm.enabled()
                    << ",timestamp=" << timestampText(alarm.timestamp())
                    << ",currentBackgroundColor=" << alarm.currentBackgroundColor()
                    << ",currentForegroundColor=" << alarm.currentForegroundColor()
                    << ",backgroundColor=" << alarm.backgroundColors()
                    << ",foregroundColor=" << alarm.foregroundColors()
                    << ",acknowledgeEnabled=" << alarm.acknowledgeEnabled()
                    << ",blinkEnabled=" << alarm.blinkEnabled()
                    << ",resetEnabled=" << alarm.resetEnabled() << ",tagName=" << alarm.tagName()
                    << ",tagValue=" << alarm.tagValue() << ")";
    return debug;
}

QDebug operator<<(QDebug debug, const AlarmInfo *alarm)
{
    return std::move(debug) << *alarm;
}

} // namespace NARV
