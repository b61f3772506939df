#include "core/jsonnumbers_p.h"
#include "core/jsontexts_p.h"
#include "core/jsonview_p.h"
#include "core/widgetlibrarypluginutils.h"

#include <QJsonObject>
#include <QSet>

namespace NARV::INTERNAL {

static const QLatin1String familyKey("family");
static const QLatin1String sizeKey("size");
static const QLatin1String boldKey("bold");
static const QLatin1String styleKey("style");
static const QLatin1String underlineKey("underline");
static const QLatin1String italicStyle("italic");

//! From this weight on a font is written as bold: between the toolkit's medium and demi-bold.
static constexpr int boldThreshold = 58;
static constexpr int defaultPointSize = 10;

QFont WidgetLibraryPluginUtils::defaultFont()
{
    static const QFont font(QStringLiteral("Roboto"), defaultPointSize, QFont::Normal);
    return font;
}

bool WidgetLibraryPluginUtils::fontFamilyIsValid(const QString &family)
{
    static const QSet<QString> families{
        QStringLiteral("roboto"), QStringLiteral("roboto black"), QStringLiteral("roboto light"),
        QStringLiteral("roboto medium"), QStringLiteral("roboto thin")};
    return families.contains(family.toLower());
}

QString WidgetLibraryPluginUtils::fieldFontToString(const QFont &font)
{
    const bool isItalic = font.style() == QFont::StyleItalic;
    return toCompactJson(QJsonObject{
        {familyKey, font.family()},
        {sizeKey, font.pointSize()},
        {boldKey, font.weight() >= boldThreshold},
        {styleKey, isItalic ? italicStyle : QLatin1String("normal")},
        {underlineKey, font.underline()},
    });
}

static QFont fontFromObject(const QJsonObject &object)
{
    QFont font;
    font.setFamily(object.value(familyKey).toString());
    // The toolkit ignores other sizes, but not without a warning.
    if (const int size = toInt(object.value(sizeKey)); size > 0)
        font.setPointSize(size);
    font.setWeight(object.value(boldKey).toBool() ? QFont::Bold : QFont::Normal);
    const bool isItalic = object.value(styleKey).toString() == italicStyle;
    font.setStyle(isItalic ? QFont::StyleItalic : QFont::StyleNormal);
    font.setUnderline(object.value(underlineKey).toBool());
    return font;
}

// The checked form asks for numbers where the writer puts booleans, and a number read as a boolean
// is false. Callers rely on that.
static bool hasCheckedForm(const QJsonObject &object)
{
    return object.value(familyKey).isString() && object.value(sizeKey).isDouble() &&
           object.value(boldKey).isDouble() && object.value(styleKey).isString() &&
           object.value(underlineKey).isDouble();
}

QFont WidgetLibraryPluginUtils::fieldFontFromString(const QString &text, bool *ok)
{
    const QJsonObject object = fromJson(text).object();
    if (!ok)
        return fontFromObject(object);
    *ok = hasCheckedForm(object);
    return *ok ? fontFromObject(object) : QFont();
}

bool WidgetLibraryPluginUtils::infoFromMetaDataParseFontObject(const JsonObject &object,
                                                               QFont &font)
{
    struct Member
    {
        QLatin1String key;
        bool (*apply)(const QCborValue &value, QFont &font);
    };
    static const Member members[] = {
        {familyKey,
         [](const QCborValue &value, QFont &result) {
             result.setFamily(value.toString());
             return value.isString() && fontFamilyIsValid(value.toString());
         }},
        {sizeKey,
         [](const QCborValue &value, QFont &result) {
             result.setPointSize(qMax(1, toInt(value.toDouble())));
             return value.toDouble() > 0;
         }},
        {boldKey,
         [](const QCborValue &value, QFont &result) {
             result.setWeight(value.toBool() ? QFont::Bold : QFont::Normal);
             return value.isBool();
         }},
        {styleKey,
         [](const QCborValue &value, QFont &result) {
             result.setStyle(QFont::StyleItalic);
             return value.toString().toLower() == italicStyle;
         }},
        {underlineKey,
         [](const QCborValue &value, QFont &result) {
             result.setUnderline(value.toBool());
             return value.isBool();
         }},
    };
    QFont result = font;
    for (const Member &member : members) {
        const QCborValue value = object.value(member.key);
        if (!value.isUndefined() && !member.apply(value, result))
            return false;
    }
    font = result;
    return true;
}

} // namespace NARV::INTERNAL
