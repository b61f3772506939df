#include "core/languages_p.h"
#include "core/pluginutils.h"
#include "core/textindex_p.h"
#include "core/widgetlibrarypluginutils.h"
#include "core/xmlelement_p.h"

#include <QLocale>
#include <QXmlStreamWriter>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;
using TranslationStringType = Library::TranslationStringType;
using FieldType = Library::FieldType;
using FieldMetaInformation = Library::FieldMetaInformation;
using WidgetMetaInformation = Library::WidgetMetaInformation;
using GalleryType = WidgetLibraryPluginUtils::GalleryType;

// The one language of a page; it stands for the language that the page is written in.
static const QString pageLanguage = QStringLiteral("L1");
static const QString pageLanguageName = QStringLiteral("Lang1");
static const QString pageFont = QStringLiteral("Roboto");

namespace {

//! The texts of a page, each once, numbered from 0.
class PageTexts
{
public:
    //! Every text gets one in fillLanguage, unless that is empty: the one that it falls back on.
    explicit PageTexts(const QString &fillLanguage)
        : m_fillLanguage(fillLanguage)
    {
    }

    int numberOf(TranslationStringType text);
    const QVector<TranslationStringType> &all() const { return m_texts; }

private:
    QString m_fillLanguage;
    QVector<TranslationStringType> m_texts;
    TextIndex m_numbers; //!< by the texts in all languages
};

//! A multi-language field of a widget on the page.
struct FieldTexts
{
    QString fieldId;
    QString fontFamily;
    QVector<int> numbers; //!< of its texts
};

//! A widget on the page.
struct Instance
{
    WidgetMetaInformation widget;
    QString objectId;
    QVector<FieldTexts> fields; //!< only those with texts of the page
};

class GalleryPageWriter
{
public:
    GalleryPageWriter(QXmlStreamWriter &writer, const Library &library, const QString &languageCode)
        : m_writer(writer)
        , m_library(library)
        , m_languageCode(languageCode)
    {
    }

    void write(const QVector<Instance> &instances, const PageTexts &texts);

private:
    void writeTextManager(const PageTexts &texts);
    void writeItemsManager(const QVector<Instance> &instances);
    void writeItems(const QVector<Instance> &instances);
    void writeItemLinks(const QVector<Instance> &instances);
    void writeInstance(const Instance &instance);
    void writeStyle(const WidgetMetaInformation &widget);
    void writeFields(const WidgetMetaInformation &widget);
    void writeTextLinks(const FieldTexts &field);

    QXmlStreamWriter &m_writer;
    const Library &m_library;
    const QString m_languageCode;
};

} // namespace

int PageTexts::numberOf(TranslationStringType text)
{
    if (!m_fillLanguage.isEmpty() && !text.contains(m_fillLanguage))
        text.set(m_fillLanguage, text.get(m_fillLanguage, true));
    QString key;
    const QMap<QString, QString> &translations = text.translations();
    for (auto it = translations.cbegin(); it != translations.cend(); ++it)
        key += it.key() + QString::number(it->size()) + QLatin1Char(' ') + it.value();
    int &number = m_numbers.insert(key, {});
    if (number < 0) {
        number = m_texts.size();
        m_texts.append(text);
    }
    return number;
}

static bool hasPageTexts(const FieldMetaInformation &field)
{
    return field.isMultiLanguage() &&
           (field.type() == FieldType::String || field.type() == FieldType::StringList);
}

static Instance instanceOf(const WidgetMetaInformation &widget, GalleryType galleryType,
                           PageTexts &texts)
{
    const QLatin1String prefix(galleryType == GalleryType::Project ? "_" : "");
    Instance instance{widget, prefix + widget.id(), {}};
    for (const FieldMetaInformation &field : widget.fields()) {
        if (!hasPageTexts(field))
            continue;
        FieldTexts fieldTexts{field.id(), field.defaultFont().family(), {}};
        const QList<TranslationStringType> defaultTexts = field.defaultTexts();
        for (const TranslationStringType &text : defaultTexts)
            fieldTexts.numbers.append(texts.numberOf(text));
        instance.fields.append(fieldTexts);
    }
    return instance;
}

static bool isShown(const WidgetMetaInformation &widget, GalleryType galleryType)
{
    return (galleryType == GalleryType::Page && widget.showInPageGallery()) ||
           (galleryType == GalleryType::Project && widget.showInProjectGallery());
}

static QString decimal(double number)
{
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

static void writeEmptyStyle(QXmlStreamWriter &writer)
{
    static const XmlAttributes attributes =
        xmlAttributes({{"width", "0"}, {"height", "0"}, {"x", "0"}, {"y", "0"}});
    XmlElement(writer, QStringLiteral("wgtStyle"), attributes);
}

void GalleryPageWriter::write(const QVector<Instance> &instances, const PageTexts &texts)
{
    const XmlElement page(m_writer, QStringLiteral("wgtPage"),
                          xmlAttributes({{"projectType", "HMI Project"}, {"rev", "1"}}));
    const XmlElement object(m_writer, QStringLiteral("object"),
                            xmlAttributes({{"id", "Page"},
                                           {"class", "PageWgt"},
                                           {"pageType", "gallery"},
                                           {"pageSize", "100,100"},
                                           {"pageName", "Page"},
                                           {"staticOptEnable", "true"}}));
    XmlElement(m_writer, QStringLiteral("wgtStyle"),
               xmlAttributes({{"width", "100"}, {"height", "100"}, {"x", "0"}, {"y", "0"}}));
    writeTextManager(texts);
    writeItemsManager(instances);
    for (const Instance &instance : instances)
        writeInstance(instance);
}

void GalleryPageWriter::writeTextManager(const PageTexts &texts)
{
    const XmlElement object(m_writer, QStringLiteral("object"),
                            xmlAttributes({{"id", "_PageMLTextMgrWgt"},
                                           {"class", "PageMLTextMgrWgt"},
                                           {"mgrType", "Page"},
                                           {"mlFileName", ""}}));
    writeEmptyStyle(m_writer);
    {
        XmlElement languages(m_writer, QStringLiteral("langs"));
        languages.attribute(QStringLiteral("defLangId"), pageLanguage)
            .attribute(QStringLiteral("curLangId"), pageLanguage);
        XmlElement(m_writer, QStringLiteral("lang"))
            .attribute(QStringLiteral("writingsystem"), QStringLiteral("Any"))
            .attribute(QStringLiteral("langId"), pageLanguage)
            .attribute(QStringLiteral("keypads"), QStringLiteral(";;"))
            .attribute(QStringLiteral("name"), pageLanguageName)
            .attribute(QStringLiteral("langCode"), m_languageCode)
            .attribute(QStringLiteral("removable"), QStringLiteral("false"))
            .attribute(QStringLiteral("defaultFont"), pageFont);
    }
    const XmlElement list(m_writer, QStringLiteral("MLTexts"));
    for (int i = 0; i < texts.all().size(); ++i) {
        XmlElement element(m_writer, QStringLiteral("MLText"));
        element.attribute(QStringLiteral("id"), i);
        const QMap<QString, QString> &translations = texts.all().at(i).translations();
        for (auto it = translations.cbegin(); it != translations.cend(); ++it)
            element.attribute(it.key(), it.value());
    }
}

void GalleryPageWriter::writeItemsManager(const QVector<Instance> &instances)
{
    const XmlElement object(m_writer, QStringLiteral("object"),
                            xmlAttributes({{"id", ""}, {"class", "GalleryItemsMgrWgt"}}));
    writeEmptyStyle(m_writer);
    writeItems(instances);
    writeItemLinks(instances);
}

void GalleryPageWriter::writeItems(const QVector<Instance> &instances)
{
    const XmlElement items(m_writer, QStringLiteral("items"));
    for (int i = 0; i < instances.size(); ++i) {
        const WidgetMetaInformation &widget = instances.at(i).widget;
        XmlElement(m_writer, QStringLiteral("item"))
            .attribute(QStringLiteral("icon"), QString())
            .attribute(QStringLiteral("tooltip"), widget.description().get(m_languageCode, true))
            .attribute(QStringLiteral("idx"), i)
            .attribute(QStringLiteral("label"), widget.display().get(m_languageCode, true))
            .attribute(QStringLiteral("id"), instances.at(i).objectId);
    }
}

void GalleryPageWriter::writeItemLinks(const QVector<Instance> &instances)
{
    const XmlElement links(m_writer, QStringLiteral("links"));
    // The editor wants the same name twice, which well-formed XML forbids.
    const XmlElement language(
        m_writer, QStringLiteral("lang"),
        xmlAttributes(
            {{"attrib", "text"}, {"attrib", "tooltip"}, {"class", "MLGalleryItemsLink"}}));
    XmlElement(m_writer, QStringLiteral("MLFontFamily")).attribute(pageLanguage, pageFont);
    for (int i = 0; i < instances.size(); ++i) {
        for (const FieldTexts &field : instances.at(i).fields) {
            for (const int number : field.numbers)
                XmlElement(m_writer, QStringLiteral("textid"))
                    .attribute(QStringLiteral("val"), number)
                    .attribute(QStringLiteral("idx"), i);
        }
    }
}

void GalleryPageWriter::writeInstance(const Instance &instance)
{
    XmlElement object(m_writer, QStringLiteral("object"));
    object.attribute(QStringLiteral("class"), QStringLiteral("CustomBuiltWgt"))
        .attribute(QStringLiteral("id"), instance.objectId);
    writeStyle(instance.widget);
    const XmlElement links(m_writer, QStringLiteral("links"));
    for (const FieldTexts &field : instance.fields)
        writeTextLinks(field);
}

void GalleryPageWriter::writeStyle(const WidgetMetaInformation &widget)
{
    const QString width = decimal(widget.defaultSize().width());
    const QString height = decimal(widget.defaultSize().height());
    XmlElement style(m_writer, QStringLiteral("wgtStyle"));
    style.attribute(QStringLiteral("widgetId"), widget.id())
        .attribute(QStringLiteral("widgetVersion"), widget.version().version())
        .attribute(QStringLiteral("libraryId"), m_library.id())
        .attribute(QStringLiteral("libraryName"), m_library.name().get(defaultLanguageCode(), true))
        .attribute(QStringLiteral("libraryVersion"), m_library.version().version())
        .attribute(QStringLiteral("libraryAuthor"), m_library.author())
        .attribute(QStringLiteral("width"), width)
        .attribute(QStringLiteral("height"), height)
        .attribute(QStringLiteral("x"), 0)
        .attribute(QStringLiteral("y"), 0)
        .attribute(QStringLiteral("cx"), width)
        .attribute(QStringLiteral("cy"), height)
        .attribute(QStringLiteral("wgtStaticOpt"), QStringLiteral("dynamic"));
    writeFields(widget);
}

void GalleryPageWriter::writeFields(const WidgetMetaInformation &widget)
{
    const XmlElement fields(m_writer, QStringLiteral("userfields"));
    for (const FieldMetaInformation &field : widget.fields()) {
        XmlElement element(m_writer, QStringLiteral("field"));
        element.attribute(QStringLiteral("id"), field.id());
        if (!field.isMultiLanguage())
            element.attribute(QStringLiteral("value"), WidgetLibraryPluginUtils::fieldValueToString(
                                                           field.type(), field.defaultValue()));
        else if (field.defaultFontSpecified())
            element.attribute(QStringLiteral("font"),
                              WidgetLibraryPluginUtils::fieldFontToString(field.defaultFont()));
    }
}

void GalleryPageWriter::writeTextLinks(const FieldTexts &field)
{
    XmlElement language(m_writer, QStringLiteral("lang"));
    language.attribute(QStringLiteral("class"), QStringLiteral("MLMsgLink:%1:").arg(field.fieldId));
    XmlElement(m_writer, QStringLiteral("MLFontFamily"))
        .attribute(QStringLiteral("useAttributeNameForFontProperties"), QStringLiteral("true"))
        .attribute(pageLanguage, field.fontFamily);
    for (int i = 0; i < field.numbers.size(); ++i)
        XmlElement(m_writer, QStringLiteral("textid"))
            .attribute(QStringLiteral("idx"), i)
            .attribute(QStringLiteral("val"), field.numbers.at(i));
}

int WidgetLibraryPluginUtils::studioGalleryFromMetaInformation(
    const WidgetLibraryPluginMetaInformation &meta, QXmlStreamWriter &writer,
    const QString &languageCode, const TranslationStringType &groupName, GalleryType galleryType)
{
    // Other codes are no names of attributes.
    const bool canFill = PluginUtils::isValidLanguageCode(languageCode);
    PageTexts texts(canFill ? languageCode : QString());
    QVector<Instance> instances;
    for (const WidgetMetaInformation &widget : meta.widgetsLatestVersion()) {
        if (isShown(widget, galleryType) && widget.galleryGroupName() == groupName)
            instances.append(instanceOf(widget, galleryType, texts));
    }
    GalleryPageWriter(writer, meta, languageCode).write(instances, texts);
    return 0;
}

} // namespace NARV::INTERNAL
