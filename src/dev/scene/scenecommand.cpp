#include "scene/scenecommand.h"

#include <QSet>

#include <algorithm>

namespace NARV::DEV {

static const int mergeableId = 1;

SceneCommand::SceneCommand(SceneDocument &document, const QString &text)
    : QUndoCommand(text)
    , m_document(document)
{
}

void SceneCommand::apply(const Step &step)
{
    const auto &[from, to] = step;
    if (!to)
        m_document.take(from->state.name);
    else if (!from)
        m_document.insert(*to);
    else if (PlacedWidget *widget = m_document.widget(to->state.name))
        widget->apply(from->state, to->state);
}

// Widgets that come or go do so as one: whoever looks at the selection or at the stacking order
// hears of it once.
void SceneCommand::apply(const QVector<Step> &steps)
{
    QSet<QString> leaving;
    bool isRestacked = false;
    for (const Step &step : steps) {
        if (!step.after)
            leaving += step.before->state.name;
        isRestacked = isRestacked || !step.before || !step.after;
    }
    m_document.deselect(leaving);
    for (const Step &step : steps)
        apply(step);
    if (isRestacked)
        m_document.restack();
    selectNew(steps);
}

// What has come back can be seen at once, and taken away again.
void SceneCommand::selectNew(const QVector<Step> &steps)
{
    QList<PlacedWidget *> widgets;
    for (const Step &step : steps) {
        if (!step.before)
            widgets += m_document.widget(step.after->state.name);
    }
    if (!widgets.isEmpty())
        m_document.select(widgets);
}

// Widgets are taken out from the highest to the lowest and put back the other way round, so that
// each comes to its own place.
void SceneCommand::undo()
{
    QVector<Step> steps;
    std::for_each(changes.crbegin(), changes.crend(), [&steps](const Change &change) {
        steps.append({change.after, change.before});
    });
    apply(steps);
    if (!orderBefore.isEmpty())
        m_document.applyOrder(orderBefore);
    if (pageBefore)
        m_document.applyPage(*pageBefore);
}

void SceneCommand::redo()
{
    apply(changes);
    if (!orderAfter.isEmpty())
        m_document.applyOrder(orderAfter);
    if (pageAfter)
        m_document.applyPage(*pageAfter);
}

int SceneCommand::id() const
{
    return mergeKey.isEmpty() ? -1 : mergeableId;
}

static bool isOfSameWidget(const SceneCommand::Change &a, const SceneCommand::Change &b)
{
    return a.after && b.after && a.after->state.name == b.after->state.name;
}

bool SceneCommand::mergeWith(const QUndoCommand *other)
{
    const auto *next = static_cast<const SceneCommand *>(other);
    if (next->mergeKey != mergeKey ||
        !std::equal(changes.begin(), changes.end(), next->changes.begin(), next->changes.end(),
                    isOfSameWidget))
        return false;
    for (int i = 0; i < changes.size(); ++i)
        changes[i].after = next->changes[i].after;
    pageAfter = next->pageAfter;
    return true;
}

} // namespace NARV::DEV
