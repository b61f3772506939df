#include "core/widgetlibrarypluginmetainformation.h"

#include <QSharedData>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;
using TranslationStringType = PluginMetaInformation::TranslationStringType;
using WidgetMetaInformation = Library::WidgetMetaInformation;

class WidgetMetaInformationData : public QSharedData
{
public:
    bool isValid = false;
    QString id;
    Library::VersionType version;
    TranslationStringType display;
    TranslationStringType description;
    QSizeF defaultSize;
    TranslationStringType galleryGroupName;
    bool showInPageGallery = false;
    bool showInProjectGallery = false;
    bool receiveAlarmsEvents = false;
    QMap<QString, Library::FieldMetaInformation> fields;
};

static const QSharedDataPointer<WidgetMetaInformationData> &invalidData()
{
    static const QSharedDataPointer<WidgetMetaInformationData> data(new WidgetMetaInformationData);
    return data;
}

WidgetMetaInformation::WidgetMetaInformation()
    : d(invalidData())
{
}

WidgetMetaInformation::WidgetMetaInformation(const QString &id, const VersionType &version,
                                             const TranslationStringType &display,
                                             const TranslationStringType &description,
                                             const QSizeF &defaultSize,
                                             const TranslationStringType &galleryGroupName,
                                             bool showInPageGallery, bool showInProjectGallery,
                                             bool receiveAlarmsEvents,
                                             const QMap<QString, FieldMetaInformation> &fields)
    : d(new WidgetMetaInformationData)
{
    d->isValid = true;
    d->id = id;
    d->version = version;
    d->display = display;
    d->description = description;
    d->defaultSize = defaultSize;
    d->galleryGroupName = galleryGroupName;
    d->showInPageGallery = showInPageGallery;
    d->showInProjectGallery = showInProjectGallery;
    d->receiveAlarmsEvents = receiveAlarmsEvents;
    d->fields = fields;
}

WidgetMetaInformation::WidgetMetaInformation(const WidgetMetaInformation &other) = default;
WidgetMetaInformation::WidgetMetaInformation(WidgetMetaInformation &&other) noexcept = default;
WidgetMetaInformation &
WidgetMetaInformation::operator=(const WidgetMetaInformation &other) = default;
WidgetMetaInformation &
WidgetMetaInformation::operator=(WidgetMetaInformation &&other) noexcept = default;
WidgetMetaInformation::~WidgetMetaInformation() = default;

bool WidgetMetaInformation::isValid() const
{
    return d->isValid;
}

const QString &WidgetMetaInformation::id() const
{
    return d->id;
}

const Library::VersionType &WidgetMetaInformation::version() const
{
    return d->version;
}

const TranslationStringType &WidgetMetaInformation::display() const
{
    return d->display;
}

const TranslationStringType &WidgetMetaInformation::description() const
{
    return d->description;
}

const QSizeF &WidgetMetaInformation::defaultSize() const
{
    return d->defaultSize;
}

const TranslationStringType &WidgetMetaInformation::galleryGroupName() const
{
    return d->galleryGroupName;
}

bool WidgetMetaInformation::showInPageGallery() const
{
    return d->showInPageGallery;
}

bool WidgetMetaInformation::showInProjectGallery() const
{
    return d->showInProjectGallery;
}

bool WidgetMetaInformation::receiveAlarmsEvents() const
{
    return d->receiveAlarmsEvents;
}

const QMap<QString, Library::FieldMetaInformation> &WidgetMetaInformation::fields() const
{
    return d->fields;
}

QMap<QString, Library::FieldInfo> WidgetMetaInformation::fieldInfo() const
{
    QMap<QString, FieldInfo> entries;
    for (const FieldMetaInformation &field : d->fields) {
        const bool isMultiLanguage = field.isMultiLanguageText();
        entries.insert(field.id(), FieldInfo(!isMultiLanguage, true, false, field.type(),
                                             QMetaType::UnknownType));
        if (isMultiLanguage) {
            entries.insert(field.id() + QLatin1String(".font"),
                           FieldInfo(false, true, true, field.type(), QMetaType::QFont));
        }
    }
    return entries;
}

} // namespace NARV::INTERNAL
