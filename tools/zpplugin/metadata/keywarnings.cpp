#include "metadata/keywarnings.h"

#include "terminal/text.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QStringList>

namespace ZPPluginTool {

using Library = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
using FieldType = Library::FieldType;

static QStringList keysOf(MetaDataObject kind)
{
    static const char *const keys[] = {
        "id name version author copyright description license defaultLanguage translation widgets "
        "$schema",
        "id version display description defaultSize galleryGroupName showInPageGallery "
        "showInProjectGallery receiveAlarmsEvents fields",
        "index option",
        "id value",
        "family size bold style underline",
    };
    return QString::fromLatin1(keys[static_cast<int>(kind)]).split(QLatin1Char(' '));
}

static void warnOfUnknownKey(const QString &key, const QStringList &known, WarningList &warnings)
{
    warnings.addAtKey(key, "unknown-key",
                      QStringLiteral("unknown key \"%1\"%2").arg(key, didYouMean(key, known)));
}

void warnOfUnknownKeys(const QJsonObject &object, MetaDataObject kind, WarningList &warnings)
{
    const QStringList known = keysOf(kind);
    for (auto it = object.begin(); it != object.end(); ++it) {
        if (!known.contains(it.key()))
            warnOfUnknownKey(it.key(), known, warnings);
    }
}

namespace {

constexpr unsigned bit(int type)
{
    return 1U << type;
}

constexpr unsigned allTypes = ~0U;
constexpr unsigned textTypes =
    bit(FieldType::String) | bit(FieldType::StringList) | bit(FieldType::StringMap);
constexpr unsigned numberTypes = bit(FieldType::Integer) | bit(FieldType::Double);

//! A key of a field, and the fields on which it has an effect.
struct FieldKey
{
    QLatin1String key;
    unsigned types;
    unsigned multiLanguageTypes; //!< types on which it has an effect with "multiLanguage" only
};

// Where a key is an error, the reader says so.
const FieldKey fieldKeys[] = {
    {QLatin1String("id"), allTypes, 0},
    {QLatin1String("type"), allTypes, 0},
    {QLatin1String("display"), allTypes, 0},
    {QLatin1String("description"), allTypes, 0},
    {QLatin1String("tagCanBeAttached"), allTypes, 0},
    {QLatin1String("defaultValue"), allTypes, 0},
    {QLatin1String("readOnly"), allTypes, 0},
    {QLatin1String("group"), allTypes, 0},
    {QLatin1String("private"), allTypes, 0},
    {QLatin1String("requirements"), allTypes, 0},
    {QLatin1String("multiLanguage"), textTypes, 0},
    {QLatin1String("defaultFont"), 0, textTypes},
    {QLatin1String("minimum"), numberTypes, 0},
    {QLatin1String("maximum"), numberTypes, 0},
    {QLatin1String("options"), bit(FieldType::Option), 0},
    {QLatin1String("tagAcceptedTypes"), bit(FieldType::Tag), 0},
    {QLatin1String("tagOnDemand"), bit(FieldType::Tag), 0},
    {QLatin1String("displayFontFamily"), bit(FieldType::Font), textTypes},
    {QLatin1String("displayFontSize"), bit(FieldType::Font), textTypes},
    {QLatin1String("displayFontBold"), bit(FieldType::Font), textTypes},
    {QLatin1String("displayFontStyle"), bit(FieldType::Font), textTypes},
    {QLatin1String("displayFontUnderline"), bit(FieldType::Font), textTypes},
};

QStringList namesOfFieldKeys()
{
    QStringList names;
    for (const FieldKey &entry : fieldKeys)
        names += entry.key;
    return names;
}

//! Says why a key has no effect on a field; empty when it has one.
QString whyWithoutEffect(const FieldKey &key, FieldType type, bool isMultiLanguage)
{
    if ((key.types & bit(type)) != 0)
        return {};
    if ((key.multiLanguageTypes & bit(type)) == 0)
        return QStringLiteral("on a field of type \"%1\"").arg(Library::fieldTypeToString(type));
    return isMultiLanguage ? QString() : QStringLiteral("without \"multiLanguage\": true");
}

} // namespace

void warnOfFieldKeys(const QJsonObject &field, WarningList &warnings)
{
    static const QStringList known = namesOfFieldKeys();
    const FieldType type =
        Library::fieldTypeFromString(field.value(QLatin1String("type")).toString());
    const bool isMultiLanguage = field.value(QLatin1String("multiLanguage")).toBool();
    for (auto it = field.begin(); it != field.end(); ++it) {
        const int number = known.indexOf(it.key());
        if (number < 0) {
            warnOfUnknownKey(it.key(), known, warnings);
            continue;
        }
        const QString reason = whyWithoutEffect(fieldKeys[number], type, isMultiLanguage);
        if (type != FieldType::Undefined && !reason.isEmpty())
            warnings.addAtKey(it.key(), "ignored-key",
                              QStringLiteral("\"%1\" has no effect %2").arg(it.key(), reason));
    }
}

} // namespace ZPPluginTool
