#include "core/widgetlibrarypluginutils.h"

#include "core/metadataerrors_p.h"
#include "core/objectreader_p.h"
#include "core/pluginutils.h"

#include <iterator>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;

// In the order of the codes, from WidgetsInvalid on.
static constexpr const char *errorTexts[] = {
    "MetaData/widgets attribute is not valid",
    "MetaData/widgets/id attribute is not present",
    "MetaData/widgets/id attribute is not valid",
    "MetaData/widgets/display attribute is not valid",
    "MetaData/widgets/description attribute is not valid",
    "MetaData/widgets/version attribute is not present",
    "MetaData/widgets/version attribute is not valid",
    "MetaData/widgets/defaultSize attribute is not valid",
    "MetaData/widgets/galleryGroupName attribute is not valid",
    "MetaData/widgets/showInPageGallery attribute is not valid",
    "MetaData/widgets/showInProjectGallery attribute is not valid",
    "MetaData/widgets/receiveAlarmsEvents attribute is not valid",
    "MetaData/widgets/fields attribute is not valid",
    "MetaData/widgets/fields/id attribute is not present",
    "MetaData/widgets/fields/id attribute is not valid",
    "MetaData/widgets/fields/display attribute is not present",
    "MetaData/widgets/fields/display attribute is not valid",
    "MetaData/widgets/fields/displayFontFamily attribute is not present",
    "MetaData/widgets/fields/displayFontFamily attribute is not valid",
    "MetaData/widgets/fields/displayFontSize attribute is not present",
    "MetaData/widgets/fields/displayFontSize attribute is not valid",
    "MetaData/widgets/fields/displayFontBold attribute is not present",
    "MetaData/widgets/fields/displayFontBold attribute is not valid",
    "MetaData/widgets/fields/displayFontStyle attribute is not present",
    "MetaData/widgets/fields/displayFontStyle attribute is not valid",
    "MetaData/widgets/fields/displayFontUnderline attribute is not present",
    "MetaData/widgets/fields/displayFontUnderline attribute is not valid",
    "MetaData/widgets/fields/description attribute is not valid",
    "MetaData/widgets/fields/type attribute is not present",
    "MetaData/widgets/fields/type attribute is not valid",
    "MetaData/widgets/fields/tagCanBeAttached attribute is not valid",
    "MetaData/widgets/fields/defaultValue attribute is not valid",
    "MetaData/widgets/fields/readOnly attribute is not valid",
    "MetaData/widgets/fields/group attribute is not valid",
    "MetaData/widgets/fields/minimum attribute is not valid",
    "MetaData/widgets/fields/maximum attribute is not valid",
    "MetaData/widgets/fields/options attribute is not valid",
    "MetaData/widgets/fields/private attribute is not valid",
    "MetaData/widgets/fields/requirements attribute is not valid",
    "MetaData/widgets/fields/defaultFont attribute is not valid",
    "MetaData/widgets/fields/multiLanguage attribute is not valid",
    "MetaData/widgets/fields/tagAcceptedTypes attribute is not valid",
    "MetaData/widgets/fields/tagOnDemand} is not valid", // hosts match on it as it is
};
static_assert(MetaDataError::WidgetsInvalid + std::size(errorTexts) ==
              MetaDataError::FieldTagOnDemandInvalid + 1);

const char *WidgetLibraryPluginUtils::errorToString(int code)
{
    const bool isOwn =
        code >= MetaDataError::WidgetsInvalid && code <= MetaDataError::FieldTagOnDemandInvalid;
    return isOwn ? errorTexts[code - MetaDataError::WidgetsInvalid]
                 : PluginUtils::errorToString(code);
}

int WidgetLibraryPluginUtils::metaInformationFromMetaData(const QJsonObject &metaData,
                                                          WidgetLibraryPluginMetaInformation &info)
{
    MetaDataFaults faults(MetaDataFaults::Mode::LogFirst);
    return metaInformationFromMetaData(metaData, info, faults);
}

int WidgetLibraryPluginUtils::metaInformationFromMetaData(const QJsonObject &metaData,
                                                          WidgetLibraryPluginMetaInformation &info,
                                                          MetaDataFaults &faults)
{
    static constexpr MetaDataKey widgetsKey = MetaDataKey::Widgets;
    JsonObject object;
    DescriptionContext context(faults);
    PluginUtils::metaInformationFromMetaData(JsonObject::fromJsonObject(metaData), info, object,
                                             context);
    if (faults.stopped())
        return faults.code();

    const JsonPath path{nullptr, MetaDataKey::MetaData};
    ObjectReader in(object, path, context);
    Library::WidgetMap widgets;
    const auto takeWidget = [&](JsonValue value, int index) {
        WidgetMetaInformation widget;
        infoFromMetaDataParseWidget(value, widget, in.path(widgetsKey, index), context);
        if (faults.stopped())
            faults.log(
                QStringLiteral("An error occurred reading the widget at index %1").arg(index));
        widgets.insert({widget.id(), widget.version().version()}, widget);
        return true;
    };
    in.optional(widgetsKey, MetaDataError::WidgetsInvalid, [&](JsonValue value) {
        if (value.isArray())
            return in.takeElements(widgetsKey, value.toArray(), MetaDataError::WidgetsInvalid,
                                   takeWidget);
        in.fail(MetaDataError::WidgetsInvalid, widgetsKey,
                QStringLiteral("The 'widgets' item must be an array"));
        return true;
    });
    if (!faults.code())
        info.init(widgets);
    return faults.code();
}

} // namespace NARV::INTERNAL
