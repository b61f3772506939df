#include "metadata/requirementwarnings.h"

#include "core/jsonnumbers_p.h"
#include "core/requirements_p.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QJsonObject>
#include <QMap>
#include <QSet>

namespace ZPPluginTool {

using NARV::INTERNAL::RequirementsTerm;
using Library = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
using FieldType = Library::FieldType;

namespace {

//! What a condition has to know of a field that it names.
struct NamedField
{
    FieldType type;
    QSet<int> optionIndices;
};

using NamedFields = QMap<QString, NamedField>;

bool isTruth(QStringView constant)
{
    return constant == QLatin1String("true") || constant == QLatin1String("false");
}

QString faultOfBool(const RequirementsTerm &term)
{
    if (term.comparison.isEmpty())
        return {};
    if (term.comparison != QLatin1String("=="))
        return QStringLiteral("is true or false, which \"%1\" can not order").arg(term.comparison);
    return isTruth(term.constant) ? QString() : QStringLiteral("can only be true or false");
}

QString faultOfNumber(const RequirementsTerm &term, const NamedField &field)
{
    if (term.comparison.isEmpty() || isTruth(term.constant))
        return QStringLiteral("holds a number, which is neither true nor false");
    if (field.type == FieldType::Double)
        return {};
    if (term.constant.contains(QLatin1Char('.')))
        return QStringLiteral("holds whole numbers only");
    const bool isOption = field.optionIndices.contains(term.constant.toInt());
    if (field.type == FieldType::Option && term.comparison == QLatin1String("==") && !isOption)
        return QStringLiteral("has no option %1").arg(term.constant);
    return {};
}

//! What is wrong with comparing the field as the term does; empty for nothing.
QString faultOf(const RequirementsTerm &term, const NamedField &field)
{
    switch (field.type) {
    case FieldType::Bool:
        return faultOfBool(term);
    case FieldType::Integer:
    case FieldType::Double:
    case FieldType::Option:
        return faultOfNumber(term, field);
    default:
        return {}; // an error that the reader reports
    }
}

NamedFields namedFields(const QJsonArray &fields)
{
    NamedFields result;
    for (const QJsonValue &value : fields) {
        const QJsonObject field = value.toObject();
        NamedField &entry = result[field.value(QLatin1String("id")).toString()];
        entry.type = Library::fieldTypeFromString(field.value(QLatin1String("type")).toString());
        const QJsonArray options = field.value(QLatin1String("options")).toArray();
        for (const QJsonValue &option : options)
            entry.optionIndices.insert(
                NARV::INTERNAL::toInt(option.toObject().value(QLatin1String("index"))));
    }
    return result;
}

void warnOfRequirement(const QString &text, const NamedFields &fields, WarningList &warnings)
{
    QVector<RequirementsTerm> terms;
    NARV::INTERNAL::readRequirements(text, terms);
    for (const RequirementsTerm &term : qAsConst(terms)) {
        const QString id = term.fieldId.toString();
        const QString fault = faultOf(term, fields.value(id));
        if (!fault.isEmpty())
            warnings.add("requirements", QStringLiteral("field \"%1\" %2").arg(id, fault));
    }
}

} // namespace

void warnOfRequirements(const QJsonArray &fields, WarningList &warnings)
{
    const QString key = QStringLiteral("requirements");
    const NamedFields named = namedFields(fields);
    for (int i = 0; i < fields.size(); ++i) {
        const WarningList::Step intoField(warnings, i);
        const WarningList::Step intoRequirements(warnings, key);
        warnOfRequirement(fields.at(i).toObject().value(key).toString(), named, warnings);
    }
}

} // namespace ZPPluginTool
