#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QJsonObject>
#include <QVector>

namespace NARV::INTERNAL {

//! One fault of a plugin's metadata.
struct MetaDataProblem
{
    int code = 0;    //!< what WidgetLibraryPluginUtils::errorToString() explains; never 0
    QString path;    //!< where it is, such as "MetaData.widgets[3].fields[1].minimum"
    QString message; //!< what is logged beside the code; empty for most codes
};

//! Reads metadata as the loader does, but tells where the faults are and writes no log record.
//! For tools; the loader itself stops at the first fault.
class ZPPLUGIN_EXPORT MetaDataChecker
{
public:
    //! The fault that the loader reports, or nothing if there is none.
    static QVector<MetaDataProblem> firstProblem(const QJsonObject &metaData);
    //! All faults that can be told apart, in the order in which the loader would meet them. If
    //! info is given it is filled as the loader would fill it, provided there is no fault.
    static QVector<MetaDataProblem> allProblems(const QJsonObject &metaData,
                                                WidgetLibraryPluginMetaInformation *info = nullptr);
};

} // namespace NARV::INTERNAL
