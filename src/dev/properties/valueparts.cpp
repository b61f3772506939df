#include "properties/valueparts.h"

#include "properties/propertysource.h"
#include "properties/textentries.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontDatabase>

#include <limits>

namespace NARV::DEV {

using Text = INTERNAL::PluginMetaInformation::TranslationStringType;
using Parts = QVector<ValuePart>;

static QString translated(const char *text)
{
    return QCoreApplication::translate("ValueParts", text);
}

static ValuePart languagePart(const QString &code)
{
    return {code,
            {FieldType::String, {}, {}, {}},
            [code](const QVariant &whole) { return whole.value<Text>().get(code, false); },
            [code](const QVariant &whole, const QVariant &part) {
                auto text = whole.value<Text>();
                text.set(code, part.toString());
                return QVariant::fromValue(text);
            }};
}

static Parts languageParts(const QVariant &value, const PartContext &context)
{
    QStringList codes = context.languages;
    for (const QString &code : value.value<Text>().keys()) {
        if (!codes.contains(code))
            codes += code;
    }
    Parts parts;
    for (const QString &code : qAsConst(codes))
        parts += languagePart(code);
    return parts;
}

static ValuePart entryPart(const QString &name, int position)
{
    return {name,
            {FieldType::String, {}, {}, {}},
            [position](const QVariant &whole) {
                return textEntries(whole).value(position, {0, {}}).text;
            },
            [position](const QVariant &whole, const QVariant &part) {
                TextEntries entries = textEntries(whole);
                if (position < entries.size())
                    entries[position].text = part;
                return withTextEntries(whole, entries);
            }};
}

static Parts entryParts(const QVariant &value)
{
    const bool isMap = isTextMap(value);
    const TextEntries entries = textEntries(value);
    Parts parts;
    for (const TextEntry &entry : entries)
        parts += entryPart(QString::number(isMap ? entry.key : entry.key + 1), parts.size());
    return parts;
}

QStringList fontFamilies()
{
    QStringList families{QStringLiteral("Roboto"), QStringLiteral("Roboto Black"),
                         QStringLiteral("Roboto Light"), QStringLiteral("Roboto Medium"),
                         QStringLiteral("Roboto Thin")};
    families += QFontDatabase().families();
    families.removeDuplicates();
    return families;
}

static ValueKind familyKind()
{
    ValueKind kind{FieldType::Option, {}, {}, {}};
    for (const QString &family : fontFamilies())
        kind.choices.append({family, family, {}});
    return kind;
}

static ValueKind sizeKind()
{
    return {FieldType::Integer, 1, std::numeric_limits<short>::max(), {}};
}

static ValueKind flagKind()
{
    return {FieldType::Bool, {}, {}, {}};
}

static ValueKind styleKind()
{
    return {FieldType::Option,
            {},
            {},
            {{false, translated(QT_TRANSLATE_NOOP("ValueParts", "Upright")), {}},
             {true, translated(QT_TRANSLATE_NOOP("ValueParts", "Italic")), {}}}};
}

static Parts fontParts(const PartContext &context)
{
    static const struct
    {
        const Text &(FieldMetaInformation::*label)() const;
        ValueKind (*kind)();
        QVariant (*get)(const QFont &font);
        void (*set)(QFont &font, const QVariant &part);
    } rows[] = {
        {&FieldMetaInformation::displayFontFamily, familyKind,
         [](const QFont &font) { return QVariant(font.family()); },
         [](QFont &font, const QVariant &part) { font.setFamily(part.toString()); }},
        {&FieldMetaInformation::displayFontSize, sizeKind,
         [](const QFont &font) { return QVariant(font.pointSize()); },
         [](QFont &font, const QVariant &part) { font.setPointSize(qMax(1, part.toInt())); }},
        {&FieldMetaInformation::displayFontBold, flagKind,
         [](const QFont &font) { return QVariant(font.bold()); },
         [](QFont &font, const QVariant &part) { font.setBold(part.toBool()); }},
        {&FieldMetaInformation::displayFontStyle, styleKind,
         [](const QFont &font) { return QVariant(font.italic()); },
         [](QFont &font, const QVariant &part) { font.setItalic(part.toBool()); }},
        {&FieldMetaInformation::displayFontUnderline, flagKind,
         [](const QFont &font) { return QVariant(font.underline()); },
         [](QFont &font, const QVariant &part) { font.setUnderline(part.toBool()); }},
    };
    Parts parts;
    for (const auto &row : rows) {
        parts.append({(context.field.*row.label)().get(context.language, true), row.kind(),
                      [&row](const QVariant &whole) { return row.get(whole.value<QFont>()); },
                      [&row](const QVariant &whole, const QVariant &part) {
                          auto font = whole.value<QFont>();
                          row.set(font, part);
                          return QVariant(font);
                      }});
    }
    return parts;
}

static Parts geometryParts()
{
    static const struct
    {
        const char *name;
        QVariant minimum;
        double (*get)(const Geometry &geometry);
        void (*set)(Geometry &geometry, double part);
    } rows[] = {
        {QT_TRANSLATE_NOOP("ValueParts", "X"),
         {},
         [](const Geometry &g) { return g.position.x(); },
         [](Geometry &g, double part) { g.position.setX(part); }},
        {QT_TRANSLATE_NOOP("ValueParts", "Y"),
         {},
         [](const Geometry &g) { return g.position.y(); },
         [](Geometry &g, double part) { g.position.setY(part); }},
        {QT_TRANSLATE_NOOP("ValueParts", "Width"), 1.0,
         [](const Geometry &g) { return g.size.width(); },
         [](Geometry &g, double part) { g.size.setWidth(part); }},
        {QT_TRANSLATE_NOOP("ValueParts", "Height"), 1.0,
         [](const Geometry &g) { return g.size.height(); },
         [](Geometry &g, double part) { g.size.setHeight(part); }},
        {QT_TRANSLATE_NOOP("ValueParts", "Rotation"),
         {},
         [](const Geometry &g) { return g.rotation; },
         [](Geometry &g, double part) { g.rotation = part; }},
    };
    Parts parts;
    for (const auto &row : rows) {
        parts.append({translated(row.name),
                      {FieldType::Double, row.minimum, {}, {}},
                      [&row](const QVariant &whole) { return row.get(whole.value<Geometry>()); },
                      [&row](const QVariant &whole, const QVariant &part) {
                          auto geometry = whole.value<Geometry>();
                          row.set(geometry, part.toDouble());
                          return QVariant::fromValue(geometry);
                      }});
    }
    return parts;
}

Parts valueParts(const QVariant &value, const PartContext &context)
{
    const int type = value.userType();
    if (type == qMetaTypeId<Text>())
        return languageParts(value, context);
    if (type == QMetaType::QFont)
        return fontParts(context);
    if (type == qMetaTypeId<Geometry>())
        return geometryParts();
    return entryParts(value);
}

} // namespace NARV::DEV
