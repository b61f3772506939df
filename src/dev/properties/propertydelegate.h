#pragma once

#include "properties/propertyeditor.h"
#include "properties/propertyeditors.h"

#include <QStyledItemDelegate>

namespace NARV::DEV {

//! Draws the cells of the property tree and opens the editor of the type of each.
class PropertyDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PropertyDelegate(QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

Q_SIGNALS:
    //! What was typed cannot be taken; the editor stays open.
    void refused(const QString &problem);

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void finish(PropertyEditor *editor, PropertyEditor::Next next);
    void takeBack(const QPersistentModelIndex &index, const QVariant &before);

    PropertyEditors m_editors;
};

} // namespace NARV::DEV
