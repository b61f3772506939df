#include "scene/scenecommand.h"

#include <algorithm>

namespace NARV::DEV {

static const int mergeableId = 1;

SceneCommand::SceneCommand(SceneDocument &document, const QString &text)
    : QUndoCommand(text)
    , m_document(document)
{
}

void SceneCommand::apply(const std::optional<StackedState> &from,
                         const std::optional<StackedState> &to)
{
    if (!to)
        m_document.take(from->state.name);
    else if (!from)
        m_document.insert(*to);
    else if (PlacedWidget *widget = m_document.widget(to->state.name))
        widget->apply(from->state, to->state);
}

// Widgets are taken out from the highest to the lowest and put back the other way round, so that
// each comes to its own place.
void SceneCommand::undo()
{
    std::for_each(changes.crbegin(), changes.crend(),
                  [&](const Change &change) { apply(change.after, change.before); });
    if (!orderBefore.isEmpty())
        m_document.applyOrder(orderBefore);
    if (pageBefore)
        m_document.applyPage(*pageBefore);
}

void SceneCommand::redo()
{
    for (const Change &change : qAsConst(changes))
        apply(change.before, change.after);
    if (!orderAfter.isEmpty())
        m_document.applyOrder(orderAfter);
    if (pageAfter)
        m_document.applyPage(*pageAfter);
}

int SceneCommand::id() const
{
    return mergeKey.isEmpty() ? -1 : mergeableId;
}

bool SceneCommand::mergeWith(const QUndoCommand *other)
{
    const auto *next = static_cast<const SceneCommand *>(other);
    if (next->mergeKey != mergeKey || next->changes.size() != changes.size())
        return false;
    for (int i = 0; i < changes.size(); ++i)
        changes[i].after = next->changes[i].after;
    pageAfter = next->pageAfter;
    return true;
}

} // namespace NARV::DEV
