#pragma once

#include "data/alarmtable.h"
#include "data/tagtable.h"
#include "data/trendstore.h"

#include <QJsonObject>

namespace NARV::DEV {

//! What a scene file holds of the test data.
struct TestDataContent
{
    QVector<Tag> tags;
    QVector<Trend> trends;
    QVector<Alarm> alarms;
};

//! What differs from the defaults, so that the file stays readable.
QJsonObject writeTestData(const TestDataContent &content);

//! Returns the place of the first fault and what is wrong there; empty if all is well.
QString readTestData(const QJsonObject &json, TestDataContent &content);

} // namespace NARV::DEV
