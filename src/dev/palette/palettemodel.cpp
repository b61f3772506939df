#include "palette/palettemodel.h"

#include "scene/pageview.h"
#include "session/pluginsession.h"

#include <QMimeData>

#include <algorithm>

namespace NARV::DEV {

const PaletteModel::Gallery PaletteModel::galleries[] = {
    {QT_TR_NOOP("Page widgets"), &Description::showInPageGallery,
     &Library::pageWidgetsGalleryGroups},
    {QT_TR_NOOP("Project widgets"), &Description::showInProjectGallery,
     &Library::projectWidgetsGalleryGroups},
};

PaletteModel::PaletteModel(PluginSession &session, QObject *parent)
    : QStandardItemModel(0, VersionColumn + 1, parent)
    , m_session(session)
    , m_icons(new WidgetIcons(session, this))
{
    connect(&session, &PluginSession::loaded, this, &PaletteModel::build);
    connect(&session, &PluginSession::aboutToUnload, this, [this] { setRowCount(0); });
    connect(m_icons, &WidgetIcons::made, this,
            [this](const WidgetIcons::Key &key) { showIcon(key, {}); });
    build();
}

void PaletteModel::setLanguage(const QString &code)
{
    if (m_language == code)
        return;
    m_language = code;
    build();
}

void PaletteModel::build()
{
    setRowCount(0);
    m_icons->clear();
    if (!m_session.isLoaded())
        return;
    m_icons->setLanguage(m_language.isEmpty() ? m_session.library()->defaultLanguage()
                                              : m_language);
    for (const Gallery &gallery : galleries)
        addGallery(gallery);
}

static QStandardItem *heading(const QString &text)
{
    auto *item = new QStandardItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

void PaletteModel::addGallery(const Gallery &gallery)
{
    QStandardItem *branch = heading(tr(gallery.name));
    for (const Text &group : (m_session.library()->*gallery.groups)())
        addGroup(branch, gallery, group);
    addGroup(branch, gallery, {}); // the widgets that name no group
    if (branch->rowCount() > 0)
        appendRow(branch);
    else
        delete branch;
}

void PaletteModel::addGroup(QStandardItem *branch, const Gallery &gallery, const Text &group)
{
    const QString name = group.isEmpty() ? tr("Other widgets") : inLanguage(group);
    QStandardItem *item = heading(name);
    for (const Description &widget : m_session.library()->widgetsLatestVersion()) {
        const bool isInGroup = group.isEmpty() ? widget.galleryGroupName().isEmpty()
                                               : widget.galleryGroupName() == group;
        if (!isInGroup || !(widget.*gallery.isShown)())
            continue;
        const QList<QStandardItem *> row = widgetRow(widget, name);
        addOlderVersions(row.first(), widget, name);
        item->appendRow(row);
    }
    item->sortChildren(NameColumn);
    if (item->rowCount() > 0)
        branch->appendRow(item);
    else
        delete item;
}

QList<QStandardItem *> PaletteModel::widgetRow(const Description &widget,
                                               const QString &group) const
{
    const QString display = inLanguage(widget.display());
    const QString name = display.isEmpty() ? widget.id() : display;
    const QString version = widget.version().version();
    const QString words =
        QStringList{name, widget.id(), version, group, inLanguage(widget.description())}.join(
            QLatin1Char('\n'));
    const QList<QStandardItem *> row{new QStandardItem(name), new QStandardItem(version)};
    for (QStandardItem *item : row) {
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
        item->setToolTip(toolTip(widget));
        item->setData(widget.id(), IdRole);
        item->setData(version, VersionRole);
        item->setData(words, WordsRole);
    }
    row.first()->setData(tr("%1, version %2").arg(name, version), Qt::AccessibleTextRole);
    return row;
}

//! The newest first.
void PaletteModel::addOlderVersions(QStandardItem *parent, const Description &latest,
                                    const QString &group)
{
    QVector<Description> older;
    for (const Description &widget : m_session.library()->widgets()) {
        if (widget.id() == latest.id() && widget.version() != latest.version())
            older.append(widget);
    }
    std::sort(older.begin(), older.end(),
              [](const Description &a, const Description &b) { return a.version() > b.version(); });
    for (const Description &widget : qAsConst(older))
        parent->appendRow(widgetRow(widget, group));
}

QString PaletteModel::inLanguage(const Text &text) const
{
    const QString own = m_session.library()->defaultLanguage();
    const QString result = text.get(m_language.isEmpty() ? own : m_language, false);
    return result.isEmpty() ? text.get(own, true) : result;
}

QString PaletteModel::toolTip(const Description &widget) const
{
    const QString description = inLanguage(widget.description());
    const QSizeF size = widget.defaultSize();
    QString text = QStringLiteral("<b>%1</b> %2<br>%3")
                       .arg(inLanguage(widget.display()).toHtmlEscaped(),
                            widget.version().version(), widget.id().toHtmlEscaped());
    if (size.isValid())
        text += QStringLiteral(", %1 \u00d7 %2").arg(size.width()).arg(size.height());
    if (!description.isEmpty())
        text += QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
                    .arg(description.toHtmlEscaped());
    return text;
}

QVariant PaletteModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DecorationRole || index.column() != NameColumn)
        return QStandardItemModel::data(index, role);
    const QVariant id = index.data(IdRole);
    return id.isValid() ? m_icons->icon({id.toString(), index.data(VersionRole).toString()})
                        : QVariant();
}

void PaletteModel::showIcon(const WidgetIcons::Key &key, const QModelIndex &parent)
{
    for (int row = 0; row < rowCount(parent); ++row) {
        const QModelIndex at = index(row, NameColumn, parent);
        if (at.data(IdRole) == key.first && at.data(VersionRole) == key.second)
            Q_EMIT dataChanged(at, at, {Qt::DecorationRole});
        showIcon(key, at);
    }
}

QStringList PaletteModel::mimeTypes() const
{
    return {PageView::widgetMimeType()};
}

QMimeData *PaletteModel::mimeData(const QModelIndexList &indexes) const
{
    if (indexes.isEmpty())
        return nullptr;
    const QModelIndex &first = indexes.first();
    const QString text =
        first.data(IdRole).toString() + QLatin1Char('\n') + first.data(VersionRole).toString();
    auto *data = new QMimeData;
    data->setData(PageView::widgetMimeType(), text.toUtf8());
    return data;
}

} // namespace NARV::DEV
