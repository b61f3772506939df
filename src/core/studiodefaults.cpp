#include "core/widgetlibrarypluginutils.h"
#include "core/xmlelement_p.h"

#include <QXmlStreamWriter>

namespace NARV::INTERNAL {

using TranslationStringType = PluginMetaInformation::TranslationStringType;
using Groups = QList<TranslationStringType>;

namespace {

//! One of the two galleries of a library, as it is registered with the editor.
struct GalleryManager
{
    QString id;
    Groups groups;
    QString fileNamePattern;
    XmlAttributes moreAttributes;
};

} // namespace

static Groups withDefaultGroup(Groups groups, bool isUsed, const QString &languageCode)
{
    TranslationStringType basic;
    basic.set(languageCode, QStringLiteral("Basic"));
    if (isUsed && !groups.contains(basic))
        groups.append(basic);
    return groups;
}

static void writeTranslationInfo(QXmlStreamWriter &writer)
{
    const XmlElement info(writer, QStringLiteral("translationInfo"));
    XmlElement(writer, QStringLiteral("ctxAttribute")).text(QStringLiteral("id"));
    XmlElement(writer, QStringLiteral("trAttribute")).text(QStringLiteral("name"));
    XmlElement(writer, QStringLiteral("trAttribute")).text(QStringLiteral("label"));
}

static void writePages(QXmlStreamWriter &writer, const GalleryManager &gallery,
                       const QString &languageCode)
{
    static const QLatin1String numberPlace("%1");
    const XmlElement pages(writer, QStringLiteral("pages"));
    for (int i = 0; i < gallery.groups.size(); ++i) {
        const QString name = gallery.groups.at(i).get(languageCode, true);
        QString fileName = gallery.fileNamePattern;
        XmlElement(writer, QStringLiteral("page"))
            .attribute(QStringLiteral("name"), name)
            .attribute(QStringLiteral("file"), fileName.replace(numberPlace, QString::number(i)))
            .attribute(QStringLiteral("displayName"), name);
    }
}

static void writeGallery(QXmlStreamWriter &writer, const GalleryManager &gallery,
                         const QString &label, const QString &languageCode)
{
    if (gallery.groups.isEmpty())
        return;
    XmlElement object(writer, QStringLiteral("object"));
    object.attribute(QStringLiteral("id"), gallery.id)
        .attribute(QStringLiteral("class"), QStringLiteral("GalleryMgrWgt"))
        .attribute(QStringLiteral("label"), label)
        .attribute(QStringLiteral("isGlobal"), QStringLiteral("true"))
        .attributes(gallery.moreAttributes);
    writePages(writer, gallery, languageCode);
}

int WidgetLibraryPluginUtils::studioDefaultsFromMetaInformation(
    const WidgetLibraryPluginMetaInformation &meta, QXmlStreamWriter &writer,
    const QString &languageCode, const QString &galleryFileNamePattern,
    const QString &projectGalleryFileNamePattern)
{
    const GalleryManager galleries[] = {
        {QLatin1String("_CustomBuiltWgt_") + meta.id(),
         withDefaultGroup(meta.pageWidgetsGalleryGroups(),
                          meta.pageWidgetsDefaultGalleryGroupIsUsed(), languageCode),
         galleryFileNamePattern,
         {}},
        {QLatin1String("_CustomBuiltWgtProject_") + meta.id(),
         withDefaultGroup(meta.projectWidgetsGalleryGroups(),
                          meta.projectWidgetsDefaultGalleryGroupIsUsed(), languageCode),
         projectGalleryFileNamePattern, xmlAttributes({{"type", "Project"}})},
    };
    const XmlElement page(writer, QStringLiteral("wgtPage"),
                          xmlAttributes({{"projectType", "HMI Project"}, {"svgFile", ""}}));
    writeTranslationInfo(writer);
    const XmlElement object(writer, QStringLiteral("object"),
                            xmlAttributes({{"id", "studio_defaults"},
                                           {"class", "ProjectWgt"},
                                           {"pageType", "project"},
                                           {"pageSize", "100,100"},
                                           {"imageDBDefault", "true"}}));
    const QString label = meta.name().get(languageCode, true);
    for (const GalleryManager &gallery : galleries)
        writeGallery(writer, gallery, label, languageCode);
    return 0;
}

} // namespace NARV::INTERNAL
