#include "properties/sceneproperties.h"

#include "data/simulationclock.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "data/trendstore.h"
#include "scene/scenedocument.h"
#include "session/pluginsession.h"

#include <NARV/WidgetPrivate>

namespace NARV::DEV {

SceneProperties::SceneProperties(SceneDocument &document, QObject *parent)
    : PropertySource(parent)
    , m_document(document)
{
    connect(&document, &SceneDocument::selectionChanged, this, [this] {
        follow(m_document.currentWidget());
        Q_EMIT nameChanged();
    });
    connect(&document, &SceneDocument::languageChanged, this, &PropertySource::replaced);
    connect(&document, &SceneDocument::widgetAboutToBeRemoved, this, [this](PlacedWidget *widget) {
        if (widget == m_widget)
            follow(nullptr);
    });
    follow(document.currentWidget());
}

void SceneProperties::follow(PlacedWidget *widget)
{
    if (widget == m_widget)
        return;
    if (m_widget)
        m_widget->disconnect(this);
    m_widget = widget;
    if (widget) {
        connect(widget, &PlacedWidget::fieldChanged, this, &PropertySource::valueChanged);
        connect(widget, &PlacedWidget::geometryChanged, this, &PropertySource::geometryChanged);
        connect(widget, &PlacedWidget::instanceChanged, this, &PropertySource::replaced);
    }
    Q_EMIT replaced();
}

QString SceneProperties::name() const
{
    const int count = m_document.selection().size();
    return count < 2 ? m_widget->name()
                     : tr("%1 (1 of %2 selected)").arg(m_widget->name()).arg(count);
}

const WidgetMetaInformation &SceneProperties::description() const
{
    return m_widget->description();
}

QString SceneProperties::missingReason() const
{
    return m_widget->missingReason();
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

QVariant SceneProperties::value(const QString &id) const
{
    return m_widget->fieldValue(id);
}

QVariant SceneProperties::heldValue(const QString &fieldId) const
{
    NARV::WidgetPrivate *instance = m_widget->widget();
    return instance ? instance->getFieldValue(fieldId, true) : QVariant();
}

QVariant SceneProperties::defaultValue(const QString &id) const
{
    return m_widget->defaultValue(id);
}

bool SceneProperties::isChanged(const QString &id) const
{
    return m_widget->isFieldChanged(id);
}

QString SceneProperties::binding(const QString &fieldId) const
{
    return m_widget->binding(fieldId);
}

Geometry SceneProperties::geometry() const
{
    const WidgetState &state = m_widget->state();
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

void SceneProperties::setValue(const QString &id, const QVariant &value)
{
    m_document.setFieldValue(*m_widget, id, value);
}

void SceneProperties::reset(const QString &id)
{
    m_document.resetField(*m_widget, id);
}

void SceneProperties::resetAll()
{
    m_document.resetAllFields(*m_widget);
}

void SceneProperties::bind(const QString &fieldId, const QString &name)
{
    m_document.bind(*m_widget, fieldId, name);
}

void SceneProperties::setGeometry(const Geometry &geometry)
{
    m_document.setGeometry(*m_widget, geometry.position, geometry.size, geometry.rotation);
}

} // namespace NARV::DEV
