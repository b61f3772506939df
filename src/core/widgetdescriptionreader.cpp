#include "core/fielddescriptionreader_p.h"
#include "core/languages_p.h"
#include "core/metadataerrors_p.h"
#include "core/objectreader_p.h"
#include "core/requirements_p.h"
#include "core/widgetlibrarypluginutils.h"

namespace NARV::INTERNAL {

using Key = MetaDataKey;
using Library = WidgetLibraryPluginMetaInformation;
using TranslationStringType = PluginMetaInformation::TranslationStringType;

static constexpr QSizeF defaultWidgetSize(100, 100);

namespace {

//! The fields of one widget, and which of them are named in whose requirements.
class FieldsReader
{
public:
    explicit FieldsReader(ObjectReader &in)
        : m_in(in)
    {
    }

    const QMap<QString, Library::FieldMetaInformation> &read();

private:
    bool readField(JsonValue value, int index);
    void checkRequirements();

    struct Requirement
    {
        int field; //!< the position of the field that requires
        QString requiredId;
    };

    ObjectReader &m_in;
    QMap<QString, Library::FieldMetaInformation> m_fields;
    QVector<Requirement> m_requirements;
};

const QMap<QString, Library::FieldMetaInformation> &FieldsReader::read()
{
    m_in.elements(Key::Fields, MetaDataError::FieldsInvalid,
                  [&](JsonValue value, int index) { return readField(value, index); });
    checkRequirements();
    return m_fields;
}

bool FieldsReader::readField(JsonValue value, int index)
{
    if (!value.isMap())
        return false;
    const JsonObject object = value.toMap();
    const JsonPath path = m_in.path(Key::Fields, index);
    FieldDescriptionReader reader(object, path, m_in.context());
    const Library::FieldMetaInformation field = reader.infoFromMetaDataParseField();
    if (m_in.stopped())
        return true;
    const auto next = m_fields.lowerBound(field.id());
    const bool hasId = !field.id().isEmpty(); // otherwise that has been reported
    if (hasId && next != m_fields.end() && next.key() == field.id()) {
        m_in.context().faults.add(MetaDataError::FieldsInvalid, {&path, Key::Id});
        return true;
    }
    m_fields.insert(next, field.id(), field);
    for (const QString &id : reader.requirementsFieldIds())
        m_requirements.append({index, id});
    return true;
}

void FieldsReader::checkRequirements()
{
    for (const Requirement &requirement : qAsConst(m_requirements)) {
        if (m_in.stopped())
            return;
        const auto required = m_fields.constFind(requirement.requiredId);
        const bool exists = required != m_fields.constEnd();
        // A field of unknown type has been reported for that.
        if (exists && required->type() == Library::FieldType::Undefined)
            continue;
        if (exists && Library::fieldTypeCanBeUsedInARequirementsExpression(required->type()))
            continue;
        const JsonPath field = m_in.path(Key::Fields, requirement.field);
        m_in.context().faults.add(MetaDataError::FieldRequirementsInvalid,
                                  {&field, Key::Requirements});
    }
}

} // namespace

int WidgetLibraryPluginUtils::infoFromMetaDataParseWidget(JsonValue value,
                                                          WidgetMetaInformation &widget,
                                                          const JsonPath &path,
                                                          DescriptionContext &context)
{
    if (!value.isMap()) {
        context.faults.add(MetaDataError::WidgetsInvalid, path);
        return context.faults.code();
    }
    const JsonObject object = value.toMap();
    ObjectReader in(object, path, context);

    QString id;
    in.required(Key::Id, MetaDataError::WidgetIdMissing, MetaDataError::WidgetIdInvalid,
                [&](JsonValue text) {
                    id = text.toString();
                    return isIdentifier(id);
                });
    Library::VersionType version;
    in.required(Key::Version, MetaDataError::WidgetVersionMissing,
                MetaDataError::WidgetVersionInvalid, [&](JsonValue text) {
                    version = Library::VersionType(text.toString());
                    return version.isValid();
                });
    TranslationStringType display;
    display.set(defaultLanguageCode(), id);
    in.text(Key::Display, MetaDataError::WidgetDisplayInvalid, display,
            ObjectReader::TrimmedNotEmpty);
    TranslationStringType description;
    in.text(Key::Description, MetaDataError::WidgetDescriptionInvalid, description,
            ObjectReader::Trimmed);
    QSizeF size = defaultWidgetSize;
    in.optional(Key::DefaultSize, MetaDataError::WidgetDefaultSizeInvalid,
                [&](JsonValue text) { return convertStringTo(text.toString(), size); });
    TranslationStringType group;
    in.text(Key::GalleryGroupName, MetaDataError::WidgetGalleryGroupNameInvalid, group,
            ObjectReader::TrimmedNotEmpty);
    bool showInPageGallery = true;
    bool showInProjectGallery = false;
    bool receiveAlarmsEvents = false;
    in.flag(Key::ShowInPageGallery, MetaDataError::WidgetShowInPageGalleryInvalid,
            showInPageGallery);
    in.flag(Key::ShowInProjectGallery, MetaDataError::WidgetShowInProjectGalleryInvalid,
            showInProjectGallery);
    in.flag(Key::ReceiveAlarmsEvents, MetaDataError::WidgetReceiveAlarmsEventsInvalid,
            receiveAlarmsEvents);
    FieldsReader fields(in);
    widget =
        WidgetMetaInformation(id, version, display, description, size, group, showInPageGallery,
                              showInProjectGallery, receiveAlarmsEvents, fields.read());
    return context.faults.code();
}

} // namespace NARV::INTERNAL
