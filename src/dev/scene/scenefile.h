#pragma once

#include "scene/page.h"
#include "scene/widgetstate.h"

#include <QJsonObject>
#include <QList>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! All that a scene file holds. Its format is in docs/file-formats.md.
struct Scene
{
    QString pluginId; //!< of the library that the widgets are from
    Page page;
    QList<WidgetState> widgets; //!< the lowest first, their names unique
    QJsonObject testData;       //!< as TestData::toJson() gives it
};

//! Reads and writes scenes.
class ZPPLUGIN_DEV_EXPORT SceneFile
{
public:
    //! The text of a scene file: indented JSON.
    static QByteArray toText(const Scene &scene);
    //! False, with a reason that begins with line and column, such as
    //! "12:9: widgets[3].size: two numbers are needed", if the text is no scene.
    static bool fromText(const QByteArray &text, Scene &scene, QString &problem);
    //! Puts line and column before a problem that begins with the path of a value, such as
    //! "data.tags[3].name: is empty".
    static QString withPosition(const QByteArray &text, const QString &problem);

    //! Replaces the file in one step. False with a reason if that failed; the file is then as it
    //! was.
    static bool save(const QString &path, const Scene &scene, QString &problem);

    //! Widgets alone, as the clipboard holds them.
    static QByteArray widgetsToText(const QList<WidgetState> &widgets);
    static bool widgetsFromText(const QByteArray &text, QList<WidgetState> &widgets,
                                QString &problem);
};

} // namespace NARV::DEV
