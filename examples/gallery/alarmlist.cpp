#include "alarmlist.h"

#include <NARV/Event>
#include <NARV/GraphicsObject>
#include <NARV/WidgetActionManager>

static const QString alarmCount = QStringLiteral("alarmCount");

AlarmList::AlarmList(const NARV::WidgetData &data)
    : NARV::Widget(data)
{
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &AlarmList::refresh);
}

void AlarmList::initEvent(NARV::InitEvent *)
{
    refresh();
}

void AlarmList::fieldIsChangedEvent(NARV::FieldIsChangedEvent *event)
{
    if (event->fieldId() != alarmCount)
        m_refresh.start(0);
}

void AlarmList::alarmStatusIsChangedEvent(NARV::AlarmStatusIsChangedEvent *)
{
    m_refresh.start(0);
}

AlarmFilter AlarmList::filter()
{
    const auto value = [this](const char *id) { return getFieldValue(QLatin1String(id)); };
    AlarmFilter filter;
    filter.groups = value("groups").toStringList();
    const QString groupTag = value("groupTag").toString();
    if (!groupTag.isEmpty())
        filter.groups += widgetActionManager().getTagValue(groupTag).toString();
    filter.groups.removeAll(QString());
    filter.lowestSeverity = value("lowestSeverity").toInt();
    filter.sortOrder = value("sortOrder").toInt();
    filter.rowLimit = value("limitRows").toBool() ? value("rowLimit").toInt() : -1;
    filter.showAcknowledged = value("showAcknowledged").toBool();
    filter.showCleared = value("showCleared").toBool();
    return filter;
}

void AlarmList::refresh()
{
    m_rows = filter().apply(widgetActionManager().getAlarms());
    setFieldValue(alarmCount, m_rows.size());
    for (NARV::GraphicsObject *item : graphicsObjectsList())
        item->update();
}
