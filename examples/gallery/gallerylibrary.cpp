#include "gallerylibrary.h"

#include "alarmlist.h"
#include "alarmlistitem.h"
#include "baritem.h"
#include "gaugeitem.h"
#include "labelitem.h"
#include "lampitem.h"
#include "numericdisplayitem.h"
#include "numericinputitem.h"
#include "pagewidget.h"
#include "pushbuttonitem.h"
#include "selectoritem.h"
#include "sessionwatchdog.h"
#include "setpointgaugeitem.h"
#include "trendchartitem.h"

template<class ItemClass, class WidgetClass = PageWidget>
static void offer(GalleryLibrary *library, const char *widgetId, const char *version = "1.0.0")
{
    NARV::registerWidget<WidgetClass, ItemClass>(library, QLatin1String(widgetId),
                                                 QLatin1String(version));
}

GalleryLibrary::GalleryLibrary()
{
    offer<GaugeItem>(this, "gauge");
    offer<SetpointGaugeItem>(this, "gauge", "1.1.0");
    offer<BarItem>(this, "bar");
    offer<NumericDisplayItem>(this, "numericDisplay");
    offer<LampItem>(this, "lamp");
    offer<NumericInputItem>(this, "numericInput");
    offer<PushButtonItem>(this, "pushButton");
    offer<SelectorItem>(this, "selector");
    offer<LabelItem>(this, "label");
    offer<TrendChartItem>(this, "trendChart");
    offer<AlarmListItem, AlarmList>(this, "alarmList");
    NARV::registerProjectWidget<SessionWatchdog>(this, QStringLiteral("sessionWatchdog"),
                                                 QStringLiteral("1.0.0"));
}
