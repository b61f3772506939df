#include "properties/sceneproperties.h"

#include "data/simulationclock.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "data/trendstore.h"
#include "properties/propertytree.h"
#include "scene/scenedocument.h"
#include "session/pluginsession.h"

#include <NARV/WidgetPrivate>

#include <algorithm>

namespace NARV::DEV {

SceneProperties::SceneProperties(SceneDocument &document, QObject *parent)
    : PropertySource(parent)
    , m_document(document)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SceneProperties::tell);
    connect(&document, &SceneDocument::selectionChanged, this, &SceneProperties::follow);
    connect(&document, &SceneDocument::languageChanged, this, &SceneProperties::noteReplaced);
    follow();
}

void SceneProperties::follow()
{
    for (PlacedWidget *widget : qAsConst(m_widgets))
        widget->disconnect(this);
    m_widgets = m_document.selection();
    std::reverse(m_widgets.begin(), m_widgets.end());
    for (PlacedWidget *widget : qAsConst(m_widgets)) {
        connect(widget, &PlacedWidget::fieldChanged, this, &SceneProperties::note);
        connect(widget, &PlacedWidget::geometryChanged, this, [this] { note(geometryId()); });
        connect(widget, &PlacedWidget::instanceChanged, this, &SceneProperties::noteReplaced);
    }
    m_isReplaced = true;
    tell();
}

void SceneProperties::note(const QString &changedId)
{
    m_changedIds += changedId;
    if (m_widgets.size() < 2)
        tell();
    else if (!m_timer.isActive())
        m_timer.start(0);
}

void SceneProperties::noteReplaced()
{
    m_isReplaced = true;
    note({});
}

// Of many widgets each says that it has changed, and each time all would be compared.
void SceneProperties::tell()
{
    m_timer.stop();
    const QSet<QString> ids = std::exchange(m_changedIds, {});
    if (std::exchange(m_isReplaced, false)) {
        Q_EMIT replaced();
        return;
    }
    for (const QString &id : ids) {
        if (id == geometryId())
            Q_EMIT geometryChanged();
        else
            Q_EMIT valueChanged(id);
    }
}

QString SceneProperties::name(int widget) const
{
    return m_widgets[widget]->name();
}

const WidgetMetaInformation &SceneProperties::description(int widget) const
{
    return m_widgets[widget]->description();
}

QString SceneProperties::missingReason(int widget) const
{
    return m_widgets[widget]->missingReason();
}

QString SceneProperties::language() const
{
    return m_document.language();
}

QStringList SceneProperties::languages() const
{
    const auto *library = m_document.session().library();
    QStringList codes =
        library ? QStringList(library->defaultLanguage()) + library->translation() : QStringList();
    if (!codes.contains(language()))
        codes += language();
    return codes;
}

QVariant SceneProperties::value(int widget, const QString &id) const
{
    return m_widgets[widget]->fieldValue(id);
}

QVariant SceneProperties::heldValue(int widget, const QString &fieldId) const
{
    NARV::WidgetPrivate *instance = m_widgets[widget]->widget();
    return instance ? instance->getFieldValue(fieldId, true) : QVariant();
}

QVariant SceneProperties::defaultValue(int widget, const QString &id) const
{
    return m_widgets[widget]->defaultValue(id);
}

bool SceneProperties::isChanged(int widget, const QString &id) const
{
    return m_widgets[widget]->isFieldChanged(id);
}

QString SceneProperties::binding(int widget, const QString &fieldId) const
{
    return m_widgets[widget]->binding(fieldId);
}

Geometry SceneProperties::geometry(int widget) const
{
    const WidgetState &state = m_widgets[widget]->state();
    return {state.position, state.size, state.rotation};
}

QVector<TagName> SceneProperties::tags() const
{
    const TagTable &table = m_document.testData().tags();
    QVector<TagName> tags;
    for (int row = 0; row < table.rowCount(); ++row)
        tags.append({table.tag(row).name, table.tag(row).type});
    return tags;
}

QStringList SceneProperties::trends() const
{
    return m_document.testData().trends().names();
}

bool SceneProperties::isDriven(const QString &tag) const
{
    const TagTable &table = m_document.testData().tags();
    const int row = table.find(tag);
    return row >= 0 && table.tag(row).generator.kind != GeneratorKind::None &&
           m_document.testData().clock().isRunning();
}

// What a person has done is shown at once.

void SceneProperties::setValues(const QString &id, const QVector<QVariant> &values)
{
    m_document.setFieldValues(m_widgets, id, values);
    tell();
}

void SceneProperties::bind(const QString &fieldId, const QStringList &names)
{
    m_document.bind(m_widgets, fieldId, names);
    tell();
}

//! A bit for each part.
static int changedParts(const Geometry &before, const Geometry &after)
{
    return int(before.position.x() != after.position.x()) |
           int(before.position.y() != after.position.y()) << 1 |
           int(before.size.width() != after.size.width()) << 2 |
           int(before.size.height() != after.size.height()) << 3 |
           int(before.rotation != after.rotation) << 4;
}

void SceneProperties::setGeometries(const QVector<Geometry> &geometries)
{
    int changed = 0; // parts of the geometry, each of which merges only with itself
    QList<WidgetState> states;
    for (int i = 0; i < m_widgets.size(); ++i) {
        WidgetState state = m_widgets[i]->state();
        changed |= changedParts(geometry(i), geometries[i]);
        state.position = geometries[i].position;
        state.size = geometries[i].size;
        state.rotation = geometries[i].rotation;
        states += state;
    }
    if (!changed)
        return;
    m_document.setGeometries(
        states, tr("Change the geometry of %1").arg(m_document.titleOf(m_widgets)), -1 - changed);
    tell();
}

void SceneProperties::reset(const QStringList &ids)
{
    m_document.resetFields(m_widgets, ids);
    tell();
}

} // namespace NARV::DEV
