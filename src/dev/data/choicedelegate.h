#pragma once

#include <QStyledItemDelegate>

namespace NARV::DEV {

//! Edits an item that has ChoicesRole by a list of its choices, others as usual.
class ChoiceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    //! Items with ProblemRole carry a warning sign; those with a colour keep it when selected.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace NARV::DEV
