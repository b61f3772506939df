#include "scene/sceneediting.h"

#include "scene/handlegeometry.h"
#include "scene/scenedocument.h"
#include "scene/scenefile.h"
#include "session/pluginsession.h"

#include <QCoreApplication>
#include <QMimeData>
#include <QSet>

namespace NARV::DEV::SceneEditing {

//! So far from the originals copies are put.
static const QPointF copyShift(16, 16);

static QString mimeType()
{
    return QStringLiteral("application/x-zpplugin-placed-widgets");
}

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::SceneEditing", text);
}

static QSet<PlacedWidget *> selectedWidgets(const SceneDocument &document)
{
    const QList<PlacedWidget *> &selection = document.selection();
    return {selection.begin(), selection.end()};
}

//! In stacking order, whatever the order of selection.
static QList<WidgetState> selectedStates(const SceneDocument &document)
{
    const QSet<PlacedWidget *> selected = selectedWidgets(document);
    QList<WidgetState> states;
    for (PlacedWidget *widget : document.widgets()) {
        if (selected.contains(widget))
            states += widget->state();
    }
    return states;
}

void selectAll(SceneDocument &document)
{
    document.select(document.widgets());
}

QMimeData *copy(const SceneDocument &document)
{
    const QList<WidgetState> states = selectedStates(document);
    if (states.isEmpty())
        return nullptr;
    auto *data = new QMimeData;
    const QByteArray text = SceneFile::widgetsToText(states);
    data->setData(mimeType(), text);
    data->setText(QString::fromUtf8(text));
    return data;
}

bool paste(SceneDocument &document, const QMimeData &data, QString &problem)
{
    if (!data.hasFormat(mimeType()))
        return false;
    QList<WidgetState> states;
    if (!SceneFile::widgetsFromText(data.data(mimeType()), states, problem))
        return false;
    document.add(states, copyShift, tr("Paste"));
    return true;
}

PlacedWidget *placeFree(SceneDocument &document, const QString &widgetId, const QString &version,
                        const QPointF &centre)
{
    const auto *library = document.session().library();
    if (!library)
        return nullptr;
    const QSizeF size = WidgetState::of(library->widgets().value({widgetId, version})).size;
    QList<QRectF> taken;
    for (const PlacedWidget *widget : document.widgets())
        taken += cornersOf(widget->state()).boundingRect();
    const QRectF page(QPointF(), document.page().size);
    return document.place(widgetId, version, freeCentre(taken, size, page, centre));
}

//! Where the lowest widget ends; 0 for an empty page.
static double usedHeight(const SceneDocument &document)
{
    double bottom = 0;
    for (const PlacedWidget *widget : document.widgets())
        bottom = qMax(bottom, cornersOf(widget->state()).boundingRect().bottom());
    return bottom;
}

void placeAll(SceneDocument &document)
{
    const auto *library = document.session().library();
    if (!library)
        return;
    QList<WidgetState> states;
    for (const auto &description : library->widgetsLatestVersion())
        states += WidgetState::of(description);
    const double top = usedHeight(document);
    QSizeF room;
    states = inRows(states, document.page().size.width(), room);
    document.undoStack().beginMacro(tr("Place one of each"));
    document.setPageSize(document.page().size.expandedTo(room + QSizeF(0, top)));
    document.add(states, QPointF(0, top), tr("Place"));
    document.undoStack().endMacro();
}

void duplicate(SceneDocument &document)
{
    document.add(selectedStates(document), copyShift, tr("Duplicate"));
}

void remove(SceneDocument &document)
{
    document.remove(document.selection());
}

void align(SceneDocument &document, Qt::AlignmentFlag alignment)
{
    if (document.selection().size() > 1)
        document.setGeometries(aligned(selectedStates(document), alignment), tr("Align"));
}

void restack(SceneDocument &document, Stacking where)
{
    const QSet<PlacedWidget *> selected = selectedWidgets(document);
    QStringList names, moved;
    for (PlacedWidget *widget : document.widgets()) {
        names += widget->name();
        if (selected.contains(widget))
            moved += widget->name();
    }
    const QStringList order = restacked(names, moved, where);
    if (order != names)
        document.setOrder(order, tr("Change the order"));
}

} // namespace NARV::DEV::SceneEditing
