#pragma once

#include <NARV/Widget>

//! A widget on a page whose item does all there is to do.
class PageWidget : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit PageWidget(const NARV::WidgetData &data);
};
