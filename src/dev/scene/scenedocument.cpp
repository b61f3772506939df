#include "scene/scenedocument.h"

#include "console/eventlog.h"
#include "data/alarmtable.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "scene/gesturemonitor.h"
#include "scene/sceneactionmanager.h"
#include "scene/scenecommand.h"
#include "session/pluginsession.h"

#include <NARV/AlarmInfo>
#include <NARV/GraphicsObject>

#include <QGraphicsScene>

#include <algorithm>

namespace NARV::DEV {

using FieldType = INTERNAL::WidgetLibraryPluginMetaInformation::FieldType;
using StackedState = SceneDocument::StackedState;

SceneDocument::SceneDocument(PluginSession &session, TestData &data, EventLog &events,
                             QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_data(data)
    , m_events(events)
    , m_scene(std::make_unique<QGraphicsScene>())
    , m_gestureMonitor(std::make_unique<GestureMonitor>())
    , m_actionManager(std::make_unique<SceneActionManager>(*this))
    , m_language(QStringLiteral("en-US"))
{
    m_scene->addItem(m_gestureMonitor.get());
    m_tagTimer.setSingleShot(true);
    connect(&m_tagTimer, &QTimer::timeout, this, &SceneDocument::deliverPending);
    connect(&session, &PluginSession::aboutToUnload, this, &SceneDocument::unmakeWidgets);
    connect(&session, &PluginSession::loaded, this, &SceneDocument::makeWidgets);
    connect(&session, &PluginSession::failed, this, &SceneDocument::makePlaceholders);
    connect(&session, &PluginSession::closed, this, &SceneDocument::makePlaceholders);
    connect(&data, &TestData::tagChanged, this, &SceneDocument::queueTag);
    connect(&data.tags(), &TagTable::renamed, this, &SceneDocument::followRenamedTag);
    connect(&data, &TestData::alarmChanged, this, &SceneDocument::deliverAlarm);
    connect(&data, &TestData::modified, this, &SceneDocument::setModified);
    connect(&m_undoStack, &QUndoStack::cleanChanged, this, &SceneDocument::modifiedChanged);
    connect(m_gestureMonitor.get(), &GestureMonitor::reported, this,
            [this](const QString &name, const GestureReport &report) {
                m_events.add(EventLog::Kind::Gesture, name,
                             report.name + QLatin1Char(' ') + report.state + QLatin1String(": ") +
                                 report.values);
            });
    data.setHistory([this](std::unique_ptr<QUndoCommand> step) { takeEdit(std::move(step)); });
    applyPage(m_page);
}

SceneDocument::~SceneDocument()
{
    m_data.setHistory({});
    m_undoStack.disconnect();
    m_session.disconnect(this);
    m_data.disconnect(this);
    qDeleteAll(m_widgets);
}

// The widgets

PlacedWidget *SceneDocument::currentWidget() const
{
    return m_selection.isEmpty() ? nullptr : m_selection.last();
}

void SceneDocument::select(const QList<PlacedWidget *> &widgets)
{
    if (m_selection == widgets)
        return;
    m_selection = widgets;
    Q_EMIT selectionChanged();
}

PlacedWidget *SceneDocument::widgetAt(const QPointF &scenePosition) const
{
    const auto isThere = [&](PlacedWidget *widget) {
        const QGraphicsObject *item = widget->shownItem();
        return item && item->contains(item->mapFromScene(scenePosition));
    };
    const auto found = std::find_if(m_widgets.crbegin(), m_widgets.crend(), isThere);
    return found == m_widgets.crend() ? nullptr : *found;
}

QString SceneDocument::titleOf(const QList<PlacedWidget *> &widgets) const
{
    return widgets.size() == 1 ? widgets.first()->title() : tr("%1 widgets").arg(widgets.size());
}

void SceneDocument::insert(const StackedState &stacked)
{
    auto *widget = new PlacedWidget(stacked.state, this);
    const int position = qBound(0, stacked.position, m_widgets.size());
    m_widgets.insert(position, widget);
    m_byName.insert(widget->name(), widget);
    connectWidget(*widget);
    makeWidget(*widget);
    Q_EMIT widgetAdded(widget);
}

void SceneDocument::take(const QString &name)
{
    PlacedWidget *widget = m_byName.value(name);
    if (!widget)
        return;
    Q_EMIT widgetAboutToBeRemoved(widget);
    m_widgets.removeOne(widget);
    m_byName.remove(name);
    m_bindingsAreIndexed = false;
    m_gestureMonitor->forget(widget->item());
    m_events.add(EventLog::Kind::Life, name, tr("deleted"));
    delete widget;
}

void SceneDocument::deselect(const QSet<QString> &names)
{
    QList<PlacedWidget *> kept;
    for (PlacedWidget *widget : qAsConst(m_selection)) {
        if (!names.contains(widget->name()))
            kept += widget;
    }
    select(kept);
}

void SceneDocument::restack()
{
    for (int i = 0; i < m_widgets.size(); ++i)
        m_widgets[i]->setStackingPosition(i);
    Q_EMIT geometryChanged();
}

void SceneDocument::applyOrder(const QStringList &names)
{
    QHash<QString, int> positions;
    for (const QString &name : names)
        positions.insert(name, positions.size());
    std::sort(m_widgets.begin(), m_widgets.end(), [&](PlacedWidget *a, PlacedWidget *b) {
        return positions.value(a->name()) < positions.value(b->name());
    });
    restack();
}

void SceneDocument::applyPage(const Page &page)
{
    m_page = page;
    m_scene->setSceneRect(QRectF(QPointF(), page.size));
    Q_EMIT pageChanged();
}

//! The widget's id, with a number if there is one already.
void SceneDocument::giveFreshNames(QList<WidgetState> &states) const
{
    QHash<QString, int> numbers; // by widget id, the last one tried
    for (WidgetState &state : states) {
        int &number = numbers[state.widgetId];
        do {
            ++number;
            state.name = number == 1 ? state.widgetId
                                     : QStringLiteral("%1 %2").arg(state.widgetId).arg(number);
        } while (m_byName.contains(state.name));
    }
}

// What can be undone

PlacedWidget *SceneDocument::place(const QString &widgetId, const QString &version,
                                   const QPointF &centre)
{
    const auto *library = m_session.library();
    const WidgetMetaInformation description =
        library ? library->widgets().value({widgetId, version}) : WidgetMetaInformation();
    if (!description.isValid())
        return nullptr;
    WidgetState state = WidgetState::of(description);
    const QPointF corner = centre - QPointF(state.size.width() / 2, state.size.height() / 2);
    state.position = corner.toPoint(); // so that lines are sharp
    add({state}, {}, tr("Place %1").arg(description.display().get(m_language, true)));
    return currentWidget();
}

void SceneDocument::add(QList<WidgetState> states, const QPointF &shift, const QString &text)
{
    if (states.isEmpty())
        return;
    giveFreshNames(states);
    auto *command = new SceneCommand(*this, text);
    int position = m_widgets.size();
    for (WidgetState &state : states) {
        state.position += shift;
        command->changes.append({{}, StackedState{state, position++}});
    }
    m_undoStack.push(command);
    QList<PlacedWidget *> added;
    for (const WidgetState &state : qAsConst(states))
        added += m_byName.value(state.name);
    select(added);
}

void SceneDocument::remove(const QList<PlacedWidget *> &widgets)
{
    if (widgets.isEmpty())
        return;
    auto *command = new SceneCommand(*this, tr("Delete %1").arg(titleOf(widgets)));
    const QSet<PlacedWidget *> removed(widgets.begin(), widgets.end());
    for (int i = m_widgets.size() - 1; i >= 0; --i) {
        if (removed.contains(m_widgets[i]))
            command->changes.append({StackedState{m_widgets[i]->state(), i}, {}});
    }
    m_undoStack.push(command);
}

void SceneDocument::changeStates(const QList<WidgetState> &after, const QString &text,
                                 const QString &mergeKey)
{
    auto command = std::make_unique<SceneCommand>(*this, text);
    for (const WidgetState &state : after) {
        if (const PlacedWidget *placed = widget(state.name))
            command->changes.append({StackedState{placed->state()}, StackedState{state}});
    }
    command->mergeKey = mergeKey;
    if (!command->changes.isEmpty())
        m_undoStack.push(command.release());
}

//! The value in the map, or none if it is the one that all have at first.
template<typename Map, typename Value>
static void setOrRemove(Map &map, const QString &key, const Value &value, bool isInitial)
{
    if (isInitial)
        map.remove(key);
    else
        map.insert(key, value);
}

void SceneDocument::setFieldValues(const QList<PlacedWidget *> &widgets, const QString &fieldId,
                                   const QVector<QVariant> &values)
{
    QList<WidgetState> after;
    bool isSame = true;
    for (int i = 0; i < widgets.size(); ++i) {
        isSame = isSame && isSameValue(widgets[i]->fieldValue(fieldId), values[i]);
        after += widgets[i]->state();
        setOrRemove(after.last().values, fieldId, values[i],
                    isSameValue(values[i], widgets[i]->defaultValue(fieldId)));
    }
    if (!isSame)
        changeStates(after,
                     tr("Set %1 of %2").arg(widgets.first()->fieldTitle(fieldId), titleOf(widgets)),
                     QLatin1String("field ") + fieldId);
}

void SceneDocument::resetFields(const QList<PlacedWidget *> &widgets, const QStringList &fieldIds)
{
    QList<WidgetState> after;
    int removed = 0;
    for (const PlacedWidget *widget : widgets) {
        after += widget->state();
        for (const QString &id : fieldIds)
            removed += after.last().values.remove(id) + after.last().bindings.remove(id);
    }
    if (removed == 0)
        return;
    const QString title = titleOf(widgets);
    const bool isOne = fieldIds.size() == 1;
    changeStates(
        after, isOne
                   ? tr("Reset %1 of %2").arg(widgets.first()->fieldTitle(fieldIds.first()), title)
                   : tr("Reset %1").arg(title));
}

void SceneDocument::bind(const QList<PlacedWidget *> &widgets, const QString &fieldId,
                         const QStringList &names)
{
    QList<WidgetState> after;
    bool isSame = true;
    for (int i = 0; i < widgets.size(); ++i) {
        isSame = isSame && widgets[i]->binding(fieldId) == names[i];
        after += widgets[i]->state();
        setOrRemove(after.last().bindings, fieldId, names[i], names[i].isEmpty());
    }
    if (isSame)
        return;
    const QString field = widgets.first()->fieldTitle(fieldId);
    const QString &name = names.first();
    changeStates(after, name.isEmpty()
                            ? tr("Detach %1 of %2").arg(field, titleOf(widgets))
                            : tr("Attach %1 of %2 to %3").arg(field, titleOf(widgets), name));
}

// A trend may have the same name.
void SceneDocument::followRenamedTag(const QString &from, const QString &to)
{
    auto command =
        std::make_unique<SceneCommand>(*this, tr("Rename the tag %1 to %2").arg(from, to));
    for (const PlacedWidget *widget : qAsConst(m_widgets)) {
        WidgetState after = widget->state();
        for (const QString &fieldId : widget->state().bindings.keys(from)) {
            if (widget->field(fieldId).type() != FieldType::Trend)
                after.bindings[fieldId] = to;
        }
        if (after.bindings != widget->state().bindings)
            command->changes.append({StackedState{widget->state()}, StackedState{after}});
    }
    if (command->changes.isEmpty() || m_data.isReplaying()) // of that the step itself is undone
        return;
    if (m_data.isEditing())
        m_renaming = std::move(command);
    else
        m_undoStack.push(command.release());
}

// A tag that is renamed and the widgets that go on with it are one step.
void SceneDocument::takeEdit(std::unique_ptr<QUndoCommand> edit)
{
    if (!m_renaming) {
        m_undoStack.push(edit.release());
        return;
    }
    m_undoStack.beginMacro(edit->text());
    m_undoStack.push(edit.release());
    m_undoStack.push(m_renaming.release());
    m_undoStack.endMacro();
}

void SceneDocument::setGeometry(PlacedWidget &widget, const QPointF &position, const QSizeF &size,
                                double rotation)
{
    WidgetState after = widget.state();
    after.position = position;
    after.size = size;
    after.rotation = rotation;
    changeStates({after}, tr("Move %1").arg(widget.title()), QStringLiteral("geometry"));
}

void SceneDocument::setGeometries(const QList<WidgetState> &states, const QString &text,
                                  int mergeKey)
{
    changeStates(states, text,
                 mergeKey ? QStringLiteral("geometries %1").arg(mergeKey) : QString());
}

void SceneDocument::setPage(const Page &page)
{
    if (page == m_page)
        return;
    auto *command = new SceneCommand(*this, tr("Change the page"));
    command->pageBefore = m_page;
    command->pageAfter = page;
    m_undoStack.push(command);
}

void SceneDocument::setPageSize(const QSizeF &size)
{
    Page page = m_page;
    page.size = size;
    setPage(page);
}

void SceneDocument::setOrder(const QStringList &names, const QString &text)
{
    auto *command = new SceneCommand(*this, text);
    for (const PlacedWidget *widget : qAsConst(m_widgets))
        command->orderBefore += widget->name();
    command->orderAfter = names;
    m_undoStack.push(command);
}

void SceneDocument::reset(const Page &page, const QList<WidgetState> &states)
{
    select({});
    unmakeWidgets();
    while (!m_widgets.isEmpty())
        take(m_widgets.last()->name());
    m_undoStack.clear();
    applyPage(page);
    for (const WidgetState &state : states)
        insert({state, m_widgets.size()});
    restack();
    setUnmodified();
}

bool SceneDocument::isModified() const
{
    return m_dataIsModified || !m_undoStack.isClean();
}

void SceneDocument::setUnmodified()
{
    m_dataIsModified = false;
    m_undoStack.setClean();
    Q_EMIT modifiedChanged();
}

void SceneDocument::setModified()
{
    m_dataIsModified = true;
    Q_EMIT modifiedChanged();
}

// The instances

WidgetHost SceneDocument::host() const
{
    WidgetHost host;
    host.library = m_session.library();
    host.plugin = m_session.plugin();
    host.actionManager = m_actionManager.get();
    host.data = &m_data;
    host.scene = m_scene.get();
    host.language = m_language;
    return host;
}

void SceneDocument::makeWidget(PlacedWidget &widget)
{
    m_gestureMonitor->forget(widget.item());
    const QStringList problems = widget.make(host());
    if (widget.item())
        m_gestureMonitor->watch(widget.item(), widget.name());
    m_events.add(EventLog::Kind::Life, widget.name(),
                 widget.widget() ? tr("made and initialised") : tr("could not be made"));
    for (const QString &problem : problems)
        Q_EMIT notice(problem);
    m_bindingsAreIndexed = false;
}

// Before the first of the new ones comes: the scene sorts its items when one comes after another
// has gone.
void SceneDocument::unmakeWidgets()
{
    for (PlacedWidget *widget : qAsConst(m_widgets))
        m_gestureMonitor->forget(widget->item());
    for (PlacedWidget *widget : qAsConst(m_widgets))
        widget->unmake();
}

void SceneDocument::makeWidgets()
{
    unmakeWidgets();
    for (PlacedWidget *widget : qAsConst(m_widgets))
        makeWidget(*widget);
    Q_EMIT geometryChanged();
}

void SceneDocument::makePlaceholders()
{
    if (m_session.isLoaded()) // what was open before goes on
        return;
    for (PlacedWidget *widget : qAsConst(m_widgets))
        widget->make(host());
}

void SceneDocument::setMode(Mode mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    makeWidgets();
    Q_EMIT modeChanged();
}

void SceneDocument::setLanguage(const QString &code)
{
    if (code == m_language)
        return;
    m_language = code;
    m_bindingsAreIndexed = false; // the fields have other titles
    for (PlacedWidget *widget : qAsConst(m_widgets))
        widget->setLanguage(code);
    Q_EMIT languageChanged();
}

void SceneDocument::connectWidget(PlacedWidget &widget)
{
    connect(&widget, &PlacedWidget::geometryChanged, this, &SceneDocument::geometryChanged);
    connect(&widget, &PlacedWidget::bindingsChanged, this,
            [this] { m_bindingsAreIndexed = false; });
    connect(&widget, &PlacedWidget::broken, this, [this, &widget](const QString &reason) {
        m_events.add(EventLog::Kind::Life, widget.name(), reason);
        Q_EMIT notice(QLatin1Char('"') + widget.name() + QLatin1String("\" ") + reason);
    });
    connect(&widget, &PlacedWidget::written, this,
            [this, &widget](const QString &fieldId, const QVariant &value) {
                m_events.add(EventLog::Kind::FieldWrite, widget.name(),
                             widget.fieldTitle(fieldId) + QLatin1String(" = ") + briefText(value));
            });
}

// Which one has thrown is found by trying.
void SceneDocument::findBroken()
{
    for (PlacedWidget *widget : qAsConst(m_widgets))
        widget->tryPaint();
}

void SceneDocument::tell(const QString &text)
{
    m_events.add(EventLog::Kind::Life, {}, text);
    Q_EMIT notice(text);
}

// What the widgets hear of

void SceneDocument::indexBindings()
{
    m_bindings.clear();
    for (PlacedWidget *widget : qAsConst(m_widgets)) {
        const QMap<QString, QString> &bindings = widget->state().bindings;
        for (auto it = bindings.begin(); it != bindings.end(); ++it) {
            if (widget->field(it.key()).tagCanBeAttached())
                m_bindings[*it].append({widget, it.key(), widget->fieldTitle(it.key())});
        }
    }
    m_bindingsAreIndexed = true;
}

// Told from the event loop, so that a widget that writes what it is told does not call itself.
void SceneDocument::queueTag(const QString &name, const QVariant &value)
{
    m_changedTags.append({name, value});
    if (!m_tagTimer.isActive())
        m_tagTimer.start(0);
}

void SceneDocument::deliverPending()
{
    if (!m_bindingsAreIndexed)
        indexBindings();
    const QVector<QPair<QString, QVariant>> changes = std::exchange(m_changedTags, {});
    for (const auto &[name, value] : changes) {
        const auto bindings = m_bindings.value(name);
        for (const Binding &binding : bindings) {
            binding.widget->takeTag(binding.fieldId, value);
            m_events.add(EventLog::Kind::FieldChange, binding.widget->name(),
                         binding.fieldTitle + QLatin1String(" = ") + briefText(value));
        }
    }
}

void SceneDocument::deliverAlarm(const NARV::AlarmInfo &alarm)
{
    const QString text = alarm.name() + QLatin1String(": ") + alarmStateNames().at(alarm.state());
    for (PlacedWidget *widget : qAsConst(m_widgets)) {
        if (!widget->description().receiveAlarmsEvents())
            continue;
        widget->takeAlarm(alarm);
        m_events.add(EventLog::Kind::Alarm, widget->name(), text);
    }
}

} // namespace NARV::DEV
