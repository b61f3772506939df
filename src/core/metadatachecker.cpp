#include "core/metadatachecker.h"

#include "core/metadatafaults_p.h"
#include "core/widgetlibrarypluginutils.h"

namespace NARV::INTERNAL {

QVector<MetaDataProblem> MetaDataChecker::firstProblem(const QJsonObject &metaData)
{
    WidgetLibraryPluginMetaInformation info;
    MetaDataFaults faults(MetaDataFaults::Mode::First);
    WidgetLibraryPluginUtils::metaInformationFromMetaData(metaData, info, faults);
    return faults.problems();
}

QVector<MetaDataProblem> MetaDataChecker::allProblems(const QJsonObject &metaData,
                                                      WidgetLibraryPluginMetaInformation *info)
{
    WidgetLibraryPluginMetaInformation ownInfo;
    MetaDataFaults faults(MetaDataFaults::Mode::All);
    WidgetLibraryPluginUtils::metaInformationFromMetaData(metaData, info ? *info : ownInfo, faults);
    return faults.problems();
}

} // namespace NARV::INTERNAL
