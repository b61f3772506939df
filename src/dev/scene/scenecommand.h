#pragma once

#include "scene/scenedocument.h"

#include <QUndoCommand>

#include <optional>

namespace NARV::DEV {

//! One step of the undo stack: what each part of the page was before and is after. Widgets go by
//! their names, since undoing a removal makes a new object.
class SceneCommand : public QUndoCommand
{
public:
    using StackedState = SceneDocument::StackedState;

    //! A widget that is added has no state before, one that is removed none after.
    struct Change
    {
        std::optional<StackedState> before;
        std::optional<StackedState> after;
    };

    SceneCommand(SceneDocument &document, const QString &text);

    QVector<Change> changes;
    //! The stacking order; empty if it stays.
    QStringList orderBefore, orderAfter;
    std::optional<Page> pageBefore, pageAfter;
    //! Steps with the same key that follow each other become one; empty for none.
    QString mergeKey;

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand *other) override;

private:
    //! From the state before to the state after, or the other way round.
    using Step = Change;

    void apply(const QVector<Step> &steps);
    void selectNew(const QVector<Step> &steps);
    void apply(const Step &step);

    SceneDocument &m_document;
};

} // namespace NARV::DEV
