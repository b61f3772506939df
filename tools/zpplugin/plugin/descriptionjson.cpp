#include "plugin/descriptionjson.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QColor>
#include <QJsonArray>
#include <QJsonDocument>

namespace ZPPluginTool {

using Library = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
using Text = Library::TranslationStringType;
using FieldType = Library::FieldType;
using Key = QLatin1String;

namespace {

//! Writes descriptions with their texts in one language, or in all.
class DescriptionWriter
{
public:
    explicit DescriptionWriter(const QString &language)
        : m_language(language)
    {
    }

    QJsonObject plugin(const Library &info) const;

private:
    QJsonObject widget(const Library::WidgetMetaInformation &widget) const;
    QJsonObject field(const Library::FieldMetaInformation &field) const;
    void insertTypeRules(QJsonObject &object, const Library::FieldMetaInformation &field) const;
    void insertFontLabels(QJsonObject &object, const Library::FieldMetaInformation &field) const;
    QJsonValue defaultValue(const Library::FieldMetaInformation &field) const;

    QJsonValue value(const QString &text) const { return text; }
    QJsonValue value(const Text &text) const;
    template<typename Value>
    QJsonValue value(const QList<Value> &texts) const;
    template<typename Value>
    QJsonValue value(const QMap<int, Value> &texts) const;
    template<typename TextType>
    QJsonValue texts(const Library::FieldMetaInformation &field) const;
    void insertText(QJsonObject &object, const char *key, const Text &text) const;

    QString m_language;
};

QJsonValue DescriptionWriter::value(const Text &text) const
{
    if (!m_language.isEmpty())
        return text.get(m_language, true);
    QJsonObject object;
    for (auto it = text.translations().begin(); it != text.translations().end(); ++it)
        object.insert(it.key(), it.value());
    if (!text.comment().isEmpty())
        object.insert(Key("comment"), text.comment());
    return object;
}

template<typename Value>
QJsonValue DescriptionWriter::value(const QList<Value> &texts) const
{
    QJsonArray array;
    for (const Value &text : texts)
        array.append(value(text));
    return array;
}

template<typename Value>
QJsonValue DescriptionWriter::value(const QMap<int, Value> &texts) const
{
    QJsonArray array;
    for (auto it = texts.begin(); it != texts.end(); ++it)
        array.append(QJsonObject{{Key("id"), it.key()}, {Key("value"), value(it.value())}});
    return array;
}

void DescriptionWriter::insertText(QJsonObject &object, const char *key, const Text &text) const
{
    if (!text.isEmpty())
        object.insert(Key(key), value(text));
}

QJsonObject fontToJson(const QFont &font)
{
    const QString text = NARV::INTERNAL::WidgetLibraryPluginUtils::fieldFontToString(font);
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

//! The default value of a field that holds a text, a list or a map of them.
template<typename TextType>
QJsonValue DescriptionWriter::texts(const Library::FieldMetaInformation &field) const
{
    using List =
        std::conditional_t<std::is_same_v<TextType, QString>, QStringList, QList<TextType>>;
    switch (field.type()) {
    case FieldType::String:
        return value(field.defaultValue().value<TextType>());
    case FieldType::StringList:
        return value<TextType>(field.defaultValue().value<List>());
    default:
        return value(field.defaultValue().value<QMap<int, TextType>>());
    }
}

QJsonValue DescriptionWriter::defaultValue(const Library::FieldMetaInformation &field) const
{
    switch (field.type()) {
    case FieldType::String:
    case FieldType::StringList:
    case FieldType::StringMap:
        return field.isMultiLanguage() ? texts<Text>(field) : texts<QString>(field);
    case FieldType::Color: {
        const auto color = field.defaultValue().value<QColor>();
        const auto format = color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb;
        return color.isValid() ? color.name(format) : QJsonValue();
    }
    case FieldType::Font:
        return fontToJson(field.defaultValue().value<QFont>());
    default:
        return QJsonValue::fromVariant(field.defaultValue());
    }
}

void DescriptionWriter::insertTypeRules(QJsonObject &object,
                                        const Library::FieldMetaInformation &field) const
{
    if (field.minimum().isValid())
        object.insert(Key("minimum"), field.minimum().toDouble());
    if (field.maximum().isValid())
        object.insert(Key("maximum"), field.maximum().toDouble());
    if (field.defaultFontSpecified())
        object.insert(Key("defaultFont"), fontToJson(field.defaultFont()));
    QJsonArray options;
    for (const auto &option : field.options())
        options.append(QJsonObject{{Key("index"), option.first}, {Key("option"), option.second}});
    if (field.type() == FieldType::Option)
        object.insert(Key("options"), options);
    QJsonArray tagTypes;
    for (Library::TagType type : field.tagAcceptedTypes())
        tagTypes.append(Library::tagTypeToString(type));
    if (field.type() == FieldType::Tag) {
        object.insert(Key("tagAcceptedTypes"), tagTypes);
        object.insert(Key("tagOnDemand"), field.tagOnDemand());
    }
}

void DescriptionWriter::insertFontLabels(QJsonObject &object,
                                         const Library::FieldMetaInformation &field) const
{
    insertText(object, "displayFontFamily", field.displayFontFamily());
    insertText(object, "displayFontSize", field.displayFontSize());
    insertText(object, "displayFontBold", field.displayFontBold());
    insertText(object, "displayFontStyle", field.displayFontStyle());
    insertText(object, "displayFontUnderline", field.displayFontUnderline());
}

QJsonObject DescriptionWriter::field(const Library::FieldMetaInformation &field) const
{
    QJsonObject object{
        {Key("id"), field.id()},
        {Key("type"), Library::fieldTypeToString(field.type())},
        {Key("tagCanBeAttached"), field.tagCanBeAttached()},
        {Key("readOnly"), field.readOnly()},
        {Key("private"), field.isPrivate()},
    };
    insertText(object, "display", field.display());
    insertText(object, "description", field.description());
    insertText(object, "group", field.group());
    if (field.type() != FieldType::Tag && field.type() != FieldType::Trend)
        object.insert(Key("defaultValue"), defaultValue(field));
    if (!field.requirements().isEmpty())
        object.insert(Key("requirements"), field.requirements());
    if (field.isMultiLanguage())
        object.insert(Key("multiLanguage"), true);
    insertTypeRules(object, field);
    insertFontLabels(object, field);
    return object;
}

QJsonObject DescriptionWriter::widget(const Library::WidgetMetaInformation &widget) const
{
    QJsonArray fields;
    for (const Library::FieldMetaInformation &entry : widget.fields())
        fields.append(field(entry));
    const QSizeF size = widget.defaultSize();
    QJsonObject object{
        {Key("id"), widget.id()},
        {Key("version"), widget.version().version()},
        {Key("defaultSize"), QStringLiteral("%1x%2").arg(size.width()).arg(size.height())},
        {Key("showInPageGallery"), widget.showInPageGallery()},
        {Key("showInProjectGallery"), widget.showInProjectGallery()},
        {Key("receiveAlarmsEvents"), widget.receiveAlarmsEvents()},
        {Key("fields"), fields},
    };
    insertText(object, "display", widget.display());
    insertText(object, "description", widget.description());
    insertText(object, "galleryGroupName", widget.galleryGroupName());
    return object;
}

QJsonObject DescriptionWriter::plugin(const Library &info) const
{
    QJsonArray widgets;
    for (const Library::WidgetMetaInformation &entry : info.widgets())
        widgets.append(widget(entry));
    QJsonObject object{
        {Key("id"), info.id()},
        {Key("version"), info.version().version()},
        {Key("author"), info.author()},
        {Key("defaultLanguage"), info.defaultLanguage()},
        {Key("translation"), QJsonArray::fromStringList(info.translation())},
        {Key("widgets"), widgets},
    };
    insertText(object, "name", info.name());
    insertText(object, "copyright", info.copyright());
    insertText(object, "description", info.description());
    insertText(object, "license", info.license());
    return object;
}

} // namespace

QJsonObject descriptionToJson(const Library &info, const QString &language)
{
    return DescriptionWriter(language == ownLanguage ? info.defaultLanguage() : language)
        .plugin(info);
}

QStringList languagesOf(const QJsonObject &description)
{
    QStringList languages{description.value(QLatin1String("defaultLanguage")).toString()};
    const QJsonArray translations = description.value(QLatin1String("translation")).toArray();
    for (const QJsonValue &language : translations)
        languages += language.toString();
    return languages;
}

} // namespace ZPPluginTool
