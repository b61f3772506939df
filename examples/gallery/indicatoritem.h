#pragma once

#include "galleryitem.h"
#include "scale.h"
#include "valuelimits.h"

//! An item that shows a process value with limits: the fields "value", "unit", "decimals" and those
//! of the limits.
class IndicatorItem : public GalleryItem
{
    Q_OBJECT

public:
    using GalleryItem::GalleryItem;

protected:
    //! The fields "minimum" and "maximum".
    Scale scale();
    //! The ticks of the fields "divisions" and "subdivisions".
    QVector<Scale::Tick> ticks();
    ValueLimits limits();
    //! The colour in which the value is to be shown: normal unless it is beyond a limit.
    QColor stateColor(const QColor &normal);
    //! The value with its unit.
    QString valueText();
};
