#include "plugin/inspection.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/ConstructorMatch>
#include <NARV/INTERNAL/PluginUtils>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/Widget>

#include <QFile>

namespace ZPPluginTool {

using NARV::INTERNAL::ConstructorMatch;
using NARV::INTERNAL::PluginUtils;
using Library = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
using Text = Library::TranslationStringType;

static QString foundConstructors(const QMetaObject &metaObject)
{
    QStringList found;
    for (const QByteArray &signature : ConstructorMatch::signatures(&metaObject))
        found += QString::fromLatin1(signature);
    return found.isEmpty() ? QStringLiteral("no invokable constructor")
                           : found.join(QLatin1String(", "));
}

//! Why the library can not make instances of a class; empty when it can.
static QString classFault(const QMetaObject *metaObject, const ConstructorMatch &match,
                          const QMetaObject &base, const QString &argumentType)
{
    if (match.isValid())
        return {};
    if (!metaObject)
        return QStringLiteral("none is registered");
    const QString name = QString::fromLatin1(metaObject->className());
    if (!metaObject->inherits(&base))
        return QStringLiteral("%1 does not derive from %2")
            .arg(name, QString::fromLatin1(base.className()));
    return QStringLiteral("%1 can not be constructed: found %2, needed Q_INVOKABLE %3(const %4 &)")
        .arg(name, foundConstructors(*metaObject), name.mid(name.lastIndexOf(QLatin1Char(':')) + 1),
             argumentType);
}

QJsonArray registrations(NARV::WidgetLibraryPlugin &plugin)
{
    QJsonArray result;
    const auto &table =
        NARV::INTERNAL::WidgetLibraryPluginPrivateAccessor::priv(&plugin)->registrations();
    for (const auto &[key, registration] : table) {
        const QMetaObject *widget = registration.widgetMetaObject;
        const QMetaObject *item = registration.graphicsObjectMetaObject;
        result.append(QJsonObject{
            {QLatin1String("id"), key.first},
            {QLatin1String("version"), key.second},
            {QLatin1String("widgetFault"),
             classFault(widget, registration.widgetConstructor, NARV::Widget::staticMetaObject,
                        QStringLiteral("NARV::WidgetData"))},
            {QLatin1String("graphicsObjectFault"),
             classFault(item, ConstructorMatch::forGraphicsObject(item),
                        NARV::GraphicsObject::staticMetaObject,
                        QStringLiteral("NARV::GraphicsObjectData"))},
        });
    }
    return result;
}

//! What a row of a translation file has to begin with to be about the text.
static QString quoted(const Text &text, const QString &language)
{
    const QString quote = QStringLiteral("\"%1\"");
    const QString source = quote.arg(text.get(language, false));
    return text.comment().isEmpty()
               ? source
               : QStringLiteral("%1 with the comment %2").arg(source, quote.arg(text.comment()));
}

//! The texts that a translation file says nothing of.
static QJsonArray untranslatedTexts(const Library &info, const QString &path,
                                    const QString &language)
{
    QList<Text> texts = info.translatableStrings(info.defaultLanguage());
    PluginUtils::importTranslationFile(path, texts, info.defaultLanguage(), language, false);
    QJsonArray result;
    for (const Text &text : qAsConst(texts)) {
        if (text.get(language, false).isEmpty())
            result.append(quoted(text, info.defaultLanguage()));
    }
    return result;
}

QJsonObject translations(const Library &info)
{
    QJsonObject result;
    for (const QString &language : info.translation()) {
        const QString path =
            QStringLiteral(":/%1/resources/translation/%2.csv").arg(info.id(), language);
        const bool isFile = QFile::exists(path);
        result.insert(language, QJsonObject{{QLatin1String("isFile"), isFile},
                                            {QLatin1String("missing"),
                                             isFile ? untranslatedTexts(info, path, language)
                                                    : QJsonArray()}});
    }
    return result;
}

} // namespace ZPPluginTool
