#pragma once

#include "scene/arrangement.h"

class QMimeData;

namespace NARV::DEV {

class PlacedWidget;
class SceneDocument;

//! What the Edit and Arrange menus do to the selection. Without selection, nothing.
namespace SceneEditing {

ZPPLUGIN_DEV_EXPORT void selectAll(SceneDocument &document);
//! The selected widgets as the clipboard takes them; null without selection. Owned by the caller.
ZPPLUGIN_DEV_EXPORT QMimeData *copy(const SceneDocument &document);
//! Adds what copy() gave. False, with the reason if there is one to tell, if there are no widgets
//! in it.
ZPPLUGIN_DEV_EXPORT bool paste(SceneDocument &document, const QMimeData &data, QString &problem);
//! Places a widget near a point, beside what is on the page already; null if the library has none.
ZPPLUGIN_DEV_EXPORT PlacedWidget *placeFree(SceneDocument &document, const QString &widgetId,
                                            const QString &version, const QPointF &centre);
//! Places one of each widget of the library in its latest version, in rows below what is on the
//! page, which grows where needed.
ZPPLUGIN_DEV_EXPORT void placeAll(SceneDocument &document);
ZPPLUGIN_DEV_EXPORT void duplicate(SceneDocument &document);
ZPPLUGIN_DEV_EXPORT void remove(SceneDocument &document);
ZPPLUGIN_DEV_EXPORT void align(SceneDocument &document, Qt::AlignmentFlag alignment);
ZPPLUGIN_DEV_EXPORT void restack(SceneDocument &document, Stacking where);

} // namespace SceneEditing

} // namespace NARV::DEV
