#include "core/widgetlibrarypluginmetainformation.h"

#include <iterator>
#include <string_view>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;

// In the order of the enumerators. The first of each is for no type; that of tags has no name.
static constexpr std::string_view fieldTypeNames[] = {
    "undefined", "string", "stringList", "stringMap", "integer", "double", "bool",
    "option",    "color",  "font",       "image",     "tag",     "trend"};
static_assert(std::size(fieldTypeNames) == Library::FieldType::Trend + 1);

static constexpr std::string_view tagTypeNames[] = {
    {}, // Unknown
    "bool",      "byte",        "short",      "int",        "ubyte",      "ushort",
    "uint",      "uint64",      "int64",      "float",      "double",     "string",
    "arraybool", "arraybyte",   "arrayshort", "arrayint",   "arrayubyte", "arrayushort",
    "arrayuint", "arrayuint64", "arrayint64", "arrayfloat", "arraydouble"};
static_assert(std::size(tagTypeNames) == Library::TagType::ArrayDouble + 1);

static QLatin1String toLatin1String(std::string_view text)
{
    return QLatin1String(text.data(), int(text.size()));
}

//! The position of name in names, or 0, for which no name is accepted.
template<size_t size>
static int indexOf(const QString &name, const std::string_view (&names)[size],
                   Qt::CaseSensitivity caseSensitivity)
{
    for (int i = 1; i < int(size); ++i) {
        const QLatin1String candidate = toLatin1String(names[i]);
        if (candidate.size() == name.size() && name.compare(candidate, caseSensitivity) == 0)
            return i;
    }
    return 0;
}

template<size_t size>
static QString nameAt(int index, const std::string_view (&names)[size])
{
    return index >= 0 && index < int(size) ? QString(toLatin1String(names[index])) : QString();
}

Library::FieldType Library::fieldTypeFromString(const QString &name)
{
    const int exact = indexOf(name, fieldTypeNames, Qt::CaseSensitive); // nearly always
    return exact ? exact : indexOf(name, fieldTypeNames, Qt::CaseInsensitive);
}

QString Library::fieldTypeToString(FieldType type)
{
    return nameAt(type, fieldTypeNames);
}

Library::TagType Library::tagTypeFromString(const QString &name)
{
    return indexOf(name, tagTypeNames, Qt::CaseSensitive);
}

QString Library::tagTypeToString(TagType type)
{
    return nameAt(type, tagTypeNames);
}

bool Library::fieldTypeCanBeUsedInARequirementsExpression(FieldType type)
{
    return type == FieldType::Integer || type == FieldType::Double || type == FieldType::Bool ||
           type == FieldType::Option;
}

} // namespace NARV::INTERNAL
