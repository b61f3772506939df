#include "core/widgetlibrarypluginmetainformation.h"

#include "core/textindex_p.h"
#include "core/translationtable_p.h"

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;
using TranslationStringType = PluginMetaInformation::TranslationStringType;

Library::WidgetLibraryPluginMetaInformation() = default;
Library::WidgetLibraryPluginMetaInformation(const WidgetLibraryPluginMetaInformation &other) =
    default;
Library::WidgetLibraryPluginMetaInformation(WidgetLibraryPluginMetaInformation &&other) noexcept =
    default;
Library &Library::operator=(const WidgetLibraryPluginMetaInformation &other) = default;
Library &Library::operator=(WidgetLibraryPluginMetaInformation &&other) noexcept = default;
Library::~WidgetLibraryPluginMetaInformation() = default;

namespace {

//! Collects the distinct group names of one gallery in order of appearance. Names that read the
//! same in the metadata, comment included, are the same in every language.
class GalleryGroups
{
public:
    explicit GalleryGroups(const QString &metaDataLanguage)
        : m_language(metaDataLanguage)
    {
    }

    void add(const TranslationStringType &name)
    {
        if (name.isEmpty()) {
            defaultGroupIsUsed = true;
            return;
        }
        int &position = m_positions.insert(name.get(m_language, false), name.comment());
        if (position >= 0)
            return;
        position = names.size();
        names.append(name);
    }

    QList<TranslationStringType> names;
    bool defaultGroupIsUsed = false;

private:
    QString m_language;
    TextIndex m_positions;
};

} // namespace

void Library::init(const WidgetMap &widgets)
{
    GalleryGroups page(defaultLanguage());
    GalleryGroups project(defaultLanguage());
    for (const WidgetMetaInformation &widget : widgets) {
        if (widget.showInPageGallery())
            page.add(widget.galleryGroupName());
        if (widget.showInProjectGallery())
            project.add(widget.galleryGroupName());
    }
    m_widgets = widgets;
    m_pageWidgetsGalleryGroups = page.names;
    m_projectWidgetsGalleryGroups = project.names;
    m_pageWidgetsDefaultGalleryGroupIsUsed |= page.defaultGroupIsUsed;
    m_projectWidgetsDefaultGalleryGroupIsUsed |= project.defaultGroupIsUsed;
}

// The gallery groups and the latest versions stay: the reader clears fresh records only.
void Library::clear()
{
    PluginMetaInformation::clear();
    m_widgets.clear();
}

const QMap<QString, Library::WidgetMetaInformation> &Library::widgetsLatestVersion() const
{
    if (!m_widgetsLatestVersion.isEmpty())
        return m_widgetsLatestVersion;
    for (const WidgetMetaInformation &widget : m_widgets) {
        const auto latest = m_widgetsLatestVersion.constFind(widget.id());
        if (latest == m_widgetsLatestVersion.constEnd() || widget.version() >= latest->version())
            m_widgetsLatestVersion.insert(widget.id(), widget);
    }
    return m_widgetsLatestVersion;
}

const QList<TranslationStringType> &Library::pageWidgetsGalleryGroups() const
{
    return m_pageWidgetsGalleryGroups;
}

const QList<TranslationStringType> &Library::projectWidgetsGalleryGroups() const
{
    return m_projectWidgetsGalleryGroups;
}

bool Library::pageWidgetsDefaultGalleryGroupIsUsed() const
{
    return m_pageWidgetsDefaultGalleryGroupIsUsed;
}

bool Library::projectWidgetsDefaultGalleryGroupIsUsed() const
{
    return m_projectWidgetsDefaultGalleryGroupIsUsed;
}

static QVector<TranslationStringType> translatableTexts(const Library::FieldMetaInformation &field)
{
    QVector<TranslationStringType> texts{field.display(), field.description(), field.group()};
    if (field.hasFontLabels()) {
        texts << field.displayFontFamily() << field.displayFontSize() << field.displayFontBold()
              << field.displayFontStyle() << field.displayFontUnderline();
    }
    return texts + field.defaultTexts().toVector();
}

QList<TranslationStringType> Library::translatableStrings(const QString &languageCode) const
{
    TranslationTable list(languageCode, PluginMetaInformation::translatableStrings(languageCode));
    for (const WidgetMetaInformation &widget : m_widgets) {
        for (const auto &text : {widget.display(), widget.description(), widget.galleryGroupName()})
            addTranslatableStringToList(list, text);
        for (const FieldMetaInformation &field : widget.fields()) {
            const QVector<TranslationStringType> texts = translatableTexts(field);
            for (const TranslationStringType &text : texts)
                addTranslatableStringToList(list, text);
        }
    }
    return list.takeEntries();
}

} // namespace NARV::INTERNAL
