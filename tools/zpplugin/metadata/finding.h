#pragma once

#include "metadata/valuepath.h"

#include <QStringList>

namespace ZPPluginTool {

enum class Severity
{
    Error,
    Warning
};

//! One thing that an author should know.
struct Finding
{
    Finding() = default;
    Finding(Severity howBad, const char *kind, const QString &what)
        : severity(howBad)
        , text(what)
        , code(QLatin1String(kind))
    {
    }

    Severity severity = Severity::Error;
    QString text;
    QString code;        //!< names the kind of finding, such as "10034" or "unknown-key"
    QStringList details; //!< lines to print below
    ValuePath path;      //!< where in the metadata it is; empty when it concerns the whole
    bool atKey = false;  //!< it concerns the last key of the path, not the value behind it
    qint64 offset = -1;  //!< where in the metadata file it is, in bytes; -1 when not known
    QString file;        //!< what it is about, where that is not the one file that is checked
};

using Findings = QVector<Finding>;

} // namespace ZPPluginTool

Q_DECLARE_TYPEINFO(ZPPluginTool::Finding, Q_MOVABLE_TYPE);
