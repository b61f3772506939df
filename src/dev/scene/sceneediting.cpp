#include "scene/sceneediting.h"

#include "scene/scenedocument.h"
#include "scene/scenefile.h"

#include <QCoreApplication>
#include <QMimeData>

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

//! In stacking order, whatever the order of selection.
static QList<WidgetState> selectedStates(const SceneDocument &document)
{
    QList<WidgetState> states;
    for (PlacedWidget *widget : document.widgets()) {
        if (document.selection().contains(widget))
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
    QStringList names, moved;
    for (PlacedWidget *widget : document.widgets()) {
        names += widget->name();
        if (document.selection().contains(widget))
            moved += widget->name();
    }
    const QStringList order = restacked(names, moved, where);
    if (order != names)
        document.setOrder(order, tr("Change the order"));
}

} // namespace NARV::DEV::SceneEditing
