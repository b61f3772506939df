#include "pagewidget.h"

PageWidget::PageWidget(const NARV::WidgetData &data)
    : NARV::Widget(data)
{
}
