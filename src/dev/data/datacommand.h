#pragma once

#include "data/testdatafile.h"

#include <QElapsedTimer>
#include <QUndoCommand>

#include <optional>

namespace NARV::DEV {

class TestData;

//! What a person has done to the definitions of tags, trends and alarms: what they are, not what
//! they have at the moment. Items go by their names.
class DataCommand : public QUndoCommand
{
public:
    //! Both are of the data, which has to outlive the command and already is as after.
    DataCommand(TestData &data, const TestDataContent &before, const TestDataContent &after);

    bool isEmpty() const { return m_tags.isEmpty() && m_trends.isEmpty() && m_alarms.isEmpty(); }

    void undo() override;
    void redo() override;
    int id() const override;
    //! The steps of one and the same edit that follow each other quickly become one.
    bool mergeWith(const QUndoCommand *other) override;

private:
    //! An item that is added is none before, one that is removed none after.
    template<typename Item>
    struct Change
    {
        std::optional<Item> before;
        std::optional<Item> after;
        int row;
    };
    template<typename Item>
    using Changes = QVector<Change<Item>>;

    template<typename Item>
    static Changes<Item> difference(const QVector<Item> &before, const QVector<Item> &after);
    template<typename Table, typename Item>
    static void apply(Table &table, const Changes<Item> &changes);
    template<typename Item>
    static Changes<Item> reversed(const Changes<Item> &changes);
    template<typename Item>
    static QString describe(const Changes<Item> &changes, const char *const (&texts)[4]);
    template<typename Item>
    static void merge(Changes<Item> &changes, const Changes<Item> &next);

    TestData &m_data;
    Changes<Tag> m_tags;
    Changes<Trend> m_trends;
    Changes<Alarm> m_alarms;
    QElapsedTimer m_age;
    bool m_isDone = true; // pushing it does it once more
};

} // namespace NARV::DEV
