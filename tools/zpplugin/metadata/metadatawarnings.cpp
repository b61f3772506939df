#include "metadata/metadatawarnings.h"

#include "metadata/fieldwarnings.h"
#include "metadata/keywarnings.h"
#include "metadata/requirementwarnings.h"
#include "metadata/warninglist.h"

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QJsonArray>
#include <QMap>

namespace ZPPluginTool {

using VersionType = NARV::INTERNAL::PluginMetaInformation::VersionType;

static void warnOfFields(const QJsonArray &fields, WarningList &warnings)
{
    const WarningList::Step intoFields(warnings, QStringLiteral("fields"));
    for (int i = 0; i < fields.size(); ++i) {
        const QJsonObject field = fields.at(i).toObject();
        const WarningList::Step intoField(warnings, i);
        warnOfFieldKeys(field, warnings);
        warnOfFieldValues(field, warnings);
    }
    warnOfRequirements(fields, warnings);
}

namespace {

//! Checks the widgets one by one and remembers which there are.
class WidgetWarnings
{
public:
    explicit WidgetWarnings(WarningList &warnings)
        : m_warnings(warnings)
    {
    }

    void check(const QJsonObject &widget, int index);

private:
    void warnOfSameWidget(const QJsonObject &widget, int index);

    WarningList &m_warnings;
    QMap<QPair<QString, QString>, int> m_indices;
};

void WidgetWarnings::check(const QJsonObject &widget, int index)
{
    const WarningList::Step intoWidget(m_warnings, index);
    warnOfSameWidget(widget, index);
    warnOfUnknownKeys(widget, MetaDataObject::Widget, m_warnings);
    warnOfFields(widget.value(QLatin1String("fields")).toArray(), m_warnings);
}

void WidgetWarnings::warnOfSameWidget(const QJsonObject &widget, int index)
{
    const QString id = widget.value(QLatin1String("id")).toString();
    const VersionType version(widget.value(QLatin1String("version")).toString());
    if (id.isEmpty() || !version.isValid())
        return;
    const auto key = qMakePair(id, version.version());
    if (m_indices.contains(key))
        m_warnings.addAt(QStringLiteral("id"), "duplicate-widget",
                         QStringLiteral("widget \"%1\" %2 replaces widgets[%3], which has the same "
                                        "id and version")
                             .arg(id, version.version(), QString::number(m_indices.value(key))));
    m_indices.insert(key, index);
}

} // namespace

Findings metaDataWarnings(const QJsonObject &metaData)
{
    WarningList warnings;
    warnOfUnknownKeys(metaData, MetaDataObject::Plugin, warnings);
    const WarningList::Step intoWidgets(warnings, QStringLiteral("widgets"));
    const QJsonArray widgets = metaData.value(QLatin1String("widgets")).toArray();
    WidgetWarnings widgetWarnings(warnings);
    for (int i = 0; i < widgets.size(); ++i)
        widgetWarnings.check(widgets.at(i).toObject(), i);
    return warnings.findings();
}

} // namespace ZPPluginTool
