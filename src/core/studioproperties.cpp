#include "core/metadataerrors_p.h"
#include "core/widgetlibrarypluginutils.h"
#include "core/xmlelement_p.h"

#include <QXmlStreamWriter>

#include <iterator>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;
using TranslationStringType = Library::TranslationStringType;
using FieldType = Library::FieldType;
using FieldMetaInformation = Library::FieldMetaInformation;
using WidgetMetaInformation = Library::WidgetMetaInformation;

namespace {

//! How the editor edits a property.
struct EditorType
{
    QString type;
    QString extraName; //!< of an attribute that some types have beside; empty for none
    QString extraValue;
};

//! Writes the properties of the widgets of one library.
class PropertiesWriter
{
public:
    PropertiesWriter(QXmlStreamWriter &writer, const QString &pluginId, const QString &languageCode)
        : m_writer(writer)
        , m_pluginId(pluginId)
        , m_languageCode(languageCode)
    {
    }

    //! False at a field of unknown type, where writing ends.
    bool writeWidget(const WidgetMetaInformation &widget);

private:
    bool writeField(const FieldMetaInformation &field);
    void writeFontParts(const FieldMetaInformation &field);
    void writeStart(XmlElement &element, const FieldMetaInformation &field, const QString &name,
                    const QString &display, bool tagCanBeAttached);
    void writeConditions(XmlElement &element, const FieldMetaInformation &field);
    QString in(const TranslationStringType &text) const { return text.get(m_languageCode, true); }

    QXmlStreamWriter &m_writer;
    const QString m_pluginId;
    const QString m_languageCode;
};

//! One of the properties that the font of a field is edited by.
struct FontPart
{
    QString nameSuffix;
    const TranslationStringType &(FieldMetaInformation::*display)() const;
    bool isEverAttachable;
    EditorType editor;
    QString descriptionSuffix;
};

} // namespace

static const QString textElement = QStringLiteral("text");

static QString yesOrNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

static void writeEditorType(XmlElement &element, const EditorType &editor)
{
    element.attribute(QStringLiteral("attributeType"), editor.type);
    if (!editor.extraName.isEmpty())
        element.attribute(editor.extraName, editor.extraValue);
}

static QString optionsText(const FieldMetaInformation &field)
{
    QStringList texts;
    for (const auto &[index, text] : field.options())
        texts += QStringLiteral("%1=%2").arg(text, QString::number(index));
    return texts.join(QLatin1Char(','));
}

static QString acceptedTypesText(const FieldMetaInformation &field)
{
    QStringList names;
    for (const Library::TagType type : field.tagAcceptedTypes())
        names += Library::tagTypeToString(type);
    return names.isEmpty() ? QString() : QLatin1String(",tagtype=") + names.join(QLatin1Char('|'));
}

static const EditorType multiLanguageList{QStringLiteral("mlStringList"),
                                          QStringLiteral("canBeUsedAsParameter"),
                                          QStringLiteral("false")};
static const QString dialogOptions = QStringLiteral("attachToDlgOptions");

// In the order of the field types. The empty ones cannot be edited by a property of their own.
static const EditorType editorTypes[] = {
    {}, // Undefined
    {QStringLiteral("string"), {}, {}},
    multiLanguageList,
    multiLanguageList,
    {QStringLiteral("integer"), {}, {}},
    {QStringLiteral("float"), {}, {}},
    {QStringLiteral("bool"), {}, {}},
    {QStringLiteral("mapidx:"), {}, {}},
    {QStringLiteral("color"), {}, {}},
    {}, // Font
    {QStringLiteral("image"), {}, {}},
    {QStringLiteral("datalinkOnly"), dialogOptions, QStringLiteral("tabs=tag")},
    {QStringLiteral("datalinkOnly"), dialogOptions,
     QStringLiteral("tabs=widgets,xforms=!*,rw=r,wgtId=this,onlyDynamicProperties")},
};
static_assert(std::size(editorTypes) == FieldType::Trend + 1);

//! Without a type if there is none for the field.
static EditorType editorType(const FieldMetaInformation &field)
{
    const int type = field.type();
    if (type < 0 || type >= int(std::size(editorTypes)))
        return {};
    EditorType editor = editorTypes[type];
    if (type == FieldType::String && field.isMultiLanguage())
        editor.type = multiLanguageList.type;
    else if (type == FieldType::Option)
        editor.type += optionsText(field);
    else if (type == FieldType::Tag)
        editor.extraValue += acceptedTypesText(field);
    return editor;
}

static const FontPart fontParts[] = {
    {QStringLiteral("-font-family"),
     &FieldMetaInformation::displayFontFamily,
     false,
     {QStringLiteral("fontList"), QStringLiteral("sort"), QStringLiteral("false")},
     QStringLiteral(" font family.")},
    {QStringLiteral("-font-size"),
     &FieldMetaInformation::displayFontSize,
     true,
     {QStringLiteral("integer"), {}, {}},
     QStringLiteral(" font size.")},
    {QStringLiteral("-font-bold"),
     &FieldMetaInformation::displayFontBold,
     true,
     {QStringLiteral("bool"), {}, {}},
     QStringLiteral(" font bold.")},
    {QStringLiteral("-font-style"),
     &FieldMetaInformation::displayFontStyle,
     true,
     {QStringLiteral("list:normal,italic"), {}, {}},
     QStringLiteral(" font style.")},
    {QStringLiteral("-font-underline"),
     &FieldMetaInformation::displayFontUnderline,
     true,
     {QStringLiteral("bool"), {}, {}},
     QStringLiteral(" font underline.")},
};

static void writePluginInformation(QXmlStreamWriter &writer)
{
    static const struct
    {
        QString name;
        QString display;
        QString description;
    } properties[] = {
        {QStringLiteral("zppluginLibraryId"), QStringLiteral("Plugin id"),
         QStringLiteral("Plugin unique id.")},
        {QStringLiteral("zppluginLibraryName"), QStringLiteral("Plugin name"),
         QStringLiteral("Plugin name.")},
        {QStringLiteral("zppluginLibraryVersion"), QStringLiteral("Plugin version"),
         QStringLiteral("Plugin version.")},
        {QStringLiteral("zppluginLibraryAuthor"), QStringLiteral("Plugin author"),
         QStringLiteral("Plugin author.")},
        {QStringLiteral("zppluginWidgetId"), QStringLiteral("Widget id"),
         QStringLiteral("Widget id.")},
        {QStringLiteral("zppluginWidgetVersion"), QStringLiteral("Widget version"),
         QStringLiteral("Widget version.")},
    };
    for (const auto &property : properties) {
        XmlElement(writer, textElement)
            .attribute(QStringLiteral("attributeName"), property.name)
            .attribute(QStringLiteral("attributeType"), QStringLiteral("string"))
            .attribute(QStringLiteral("display"), property.display)
            .attribute(QStringLiteral("read_only"), QStringLiteral("true"))
            .attribute(QStringLiteral("adv"), QStringLiteral("yes"))
            .attribute(QStringLiteral("attachTag"), QStringLiteral("no"))
            .attribute(QStringLiteral("layer"), QStringLiteral("Plugin information"))
            .text(property.description);
    }
}

static void writeEvent(QXmlStreamWriter &writer)
{
    static const XmlAttributes attributes = xmlAttributes({
        {"attributeName", "onDataUpdate"},
        {"display", "OnDataUpdate Action"},
        {"inherit", "yes"},
        {"attributeType", "event"},
        {"eventName", "onDataUpdate"},
        {"childPropName", "action"},
        {"childAttrName", "onDataUpdate.action"},
        {"menuBtn", "yes"},
        {"layer", "Events"},
    });
    XmlElement(writer, textElement, attributes)
        .text(QStringLiteral("Sets the action to execute when the value of a property changed."));
}

void PropertiesWriter::writeStart(XmlElement &element, const FieldMetaInformation &field,
                                  const QString &name, const QString &display,
                                  bool tagCanBeAttached)
{
    element.attribute(QStringLiteral("attributeName"), name)
        .attribute(QStringLiteral("display"), display)
        .attribute(QStringLiteral("read_only"),
                   field.readOnly() ? QStringLiteral("true") : QStringLiteral("false"))
        .attribute(QStringLiteral("adv"), QStringLiteral("no"))
        .attribute(QStringLiteral("attachTag"), yesOrNo(tagCanBeAttached));
}

void PropertiesWriter::writeConditions(XmlElement &element, const FieldMetaInformation &field)
{
    if (!field.requirements().isEmpty())
        element.attribute(QStringLiteral("requiredFeatures"), field.requirements());
    const QString group = in(field.group());
    if (!group.isEmpty())
        element.attribute(QStringLiteral("layer"), group);
}

bool PropertiesWriter::writeField(const FieldMetaInformation &field)
{
    if (field.type() != FieldType::Font) {
        const EditorType editor = editorType(field);
        XmlElement element(m_writer, textElement);
        writeStart(element, field, field.id(), in(field.display()), field.tagCanBeAttached());
        writeConditions(element, field);
        if (editor.type.isEmpty()) {
            element.leaveOpen();
            return false;
        }
        writeEditorType(element, editor);
        element.text(in(field.description()));
    }
    if (field.hasFontLabels())
        writeFontParts(field);
    return true;
}

void PropertiesWriter::writeFontParts(const FieldMetaInformation &field)
{
    for (const FontPart &part : fontParts) {
        XmlElement element(m_writer, textElement);
        writeStart(element, field, field.id() + part.nameSuffix, in((field.*part.display)()),
                   part.isEverAttachable && field.tagCanBeAttached());
        writeEditorType(element, part.editor);
        writeConditions(element, field);
        element.text(in(field.display()) + part.descriptionSuffix);
    }
}

bool PropertiesWriter::writeWidget(const WidgetMetaInformation &widget)
{
    static const XmlAttributes attributes = xmlAttributes({
        {"inherit", "widget_properties"},
        {"attributeName", "CustomBuiltWgt"},
        {"display", "CustomBuiltWgt"},
        {"showChildNodes", "no"},
    });
    XmlElement element(m_writer, QStringLiteral("g"));
    element.attribute(QStringLiteral("id"),
                      QStringLiteral("custombuiltwgt_%1_%2_%3_properties")
                          .arg(m_pluginId, widget.id(), widget.version().version()));
    element.attributes(attributes);
    writePluginInformation(m_writer);
    for (const FieldMetaInformation &field : widget.fields()) {
        if (field.isPrivate() || writeField(field))
            continue;
        element.leaveOpen();
        return false;
    }
    writeEvent(m_writer);
    return true;
}

int WidgetLibraryPluginUtils::studioPropertiesFromMetaInformation(
    const WidgetLibraryPluginMetaInformation &meta, QXmlStreamWriter &writer,
    const QString &languageCode)
{
    PropertiesWriter properties(writer, meta.id(), languageCode);
    for (const WidgetMetaInformation &widget : meta.widgets()) {
        if (!properties.writeWidget(widget))
            return MetaDataError::FieldTypeInvalid;
    }
    return 0;
}

} // namespace NARV::INTERNAL
