#pragma once

#include "data/quality.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! Values in the order of time, read from a comma-separated file in UTF-8.
//!
//! A row is `value`, `time,value` or `time,value,quality`, the same in all rows. The time is
//! seconds or an ISO 8601 date and time, ascending; an empty value is a gap; the quality is good,
//! uncertain or bad, empty for good. Cells may stand in double quotes. A first row that holds no
//! number is a heading; empty lines do not count. Files up to 16 MiB, 200,000 rows and 4,096
//! characters a line are read.
struct ZPPLUGIN_DEV_EXPORT CsvSeries
{
    enum class Times
    {
        None,    //!< the values follow one another
        Seconds, //!< from some start
        Absolute //!< since 1970-01-01 00:00 UTC
    };
    struct Point
    {
        qint64 time; //!< milliseconds
        QVariant value;
        Quality quality;
    };

    Times times = Times::None;
    QVector<Point> points; //!< empty if there are problems
    //! One a fault, such as `levels.csv, line 3, column 2: “abc” is not a number`; at most 20.
    QStringList problems;
};

enum class CsvValues
{
    Numbers, //!< double; "nan" and "inf" are numbers
    Texts
};

ZPPLUGIN_DEV_EXPORT CsvSeries readCsvSeries(const QString &filePath, CsvValues values);
//! The file name is for the problems only.
ZPPLUGIN_DEV_EXPORT CsvSeries parseCsvSeries(const QByteArray &content, const QString &fileName,
                                             CsvValues values);

} // namespace NARV::DEV
