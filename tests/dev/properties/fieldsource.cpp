#include "fieldsource.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace NARV::INTERNAL;
using TagType = WidgetLibraryPluginMetaInformation::TagType;

FieldSource::FieldSource(const QByteArray &fields)
    : tagNames({{QStringLiteral("level"), TagType::Double},
                {QStringLiteral("running"), TagType::Bool},
                {QStringLiteral("recipe"), TagType::String}})
{
    const auto array = QJsonDocument::fromJson(QByteArray(fields).replace('\'', '"')).array();
    const QJsonObject widget{{QStringLiteral("id"), QStringLiteral("w")},
                             {QStringLiteral("version"), QStringLiteral("1.0.0")},
                             {QStringLiteral("fields"), array}};
    const QJsonObject metaData{
        {QStringLiteral("id"), QStringLiteral("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11")},
        {QStringLiteral("name"), QStringLiteral("Test")},
        {QStringLiteral("author"), QStringLiteral("Test")},
        {QStringLiteral("version"), QStringLiteral("1.0.0")},
        {QStringLiteral("widgets"), QJsonArray{widget}}};
    WidgetLibraryPluginMetaInformation library;
    const int code = WidgetLibraryPluginUtils::metaInformationFromMetaData(
        {{QStringLiteral("MetaData"), metaData}}, library);
    if (code)
        qWarning("%s", WidgetLibraryPluginUtils::errorToString(code));
    m_widget = library.widgets().value({QStringLiteral("w"), QStringLiteral("1.0.0")});
}

QVariant FieldSource::value(int, const QString &id) const
{
    return values.value(id, defaultValue(0, id));
}

QVariant FieldSource::heldValue(int, const QString &id) const
{
    return NARV::DEV::inLanguage(value(0, id), language());
}

QVariant FieldSource::defaultValue(int, const QString &id) const
{
    const bool isFont = id.contains(QLatin1Char('.'));
    const auto field = m_widget.fields().value(id.section(QLatin1Char('.'), 0, 0));
    return isFont ? QVariant(field.defaultFont()) : field.defaultValue();
}

bool FieldSource::isChanged(int, const QString &id) const
{
    return values.contains(id) || bindings.contains(id);
}

void FieldSource::setValues(const QString &id, const QVector<QVariant> &given)
{
    ++writes;
    values.insert(id, given.first());
    if (NARV::DEV::isSameValue(given.first(), defaultValue(0, id)))
        values.remove(id);
    Q_EMIT valueChanged(id);
}

void FieldSource::reset(const QStringList &ids)
{
    for (const QString &id : ids) {
        values.remove(id);
        bindings.remove(id);
        Q_EMIT valueChanged(id);
    }
}

void FieldSource::bind(const QString &id, const QStringList &names)
{
    bindings.insert(id, names.first());
    if (names.first().isEmpty())
        bindings.remove(id);
    Q_EMIT valueChanged(id);
}

void FieldSource::setGeometries(const QVector<NARV::DEV::Geometry> &geometries)
{
    place = geometries.first();
    Q_EMIT geometryChanged();
}
