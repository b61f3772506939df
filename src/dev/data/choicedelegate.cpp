#include "data/choicedelegate.h"

#include "data/tagtable.h"
#include "window/icons.h"

#include <QComboBox>

namespace NARV::DEV {

QWidget *ChoiceDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                      const QModelIndex &index) const
{
    const QVariant choices = index.data(ChoicesRole);
    if (!choices.isValid())
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *box = new QComboBox(parent);
    box->addItems(choices.toStringList());
    box->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    connect(box, QOverload<int>::of(&QComboBox::activated), this, [this, box] {
        auto *self = const_cast<ChoiceDelegate *>(this); // signals of a delegate are not const
        Q_EMIT self->commitData(box);
        Q_EMIT self->closeEditor(box);
    });
    return box;
}

void ChoiceDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *box = qobject_cast<QComboBox *>(editor))
        box->setCurrentText(index.data(Qt::EditRole).toString());
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void ChoiceDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                  const QModelIndex &index) const
{
    if (const auto *box = qobject_cast<QComboBox *>(editor))
        model->setData(index, box->currentText());
    else
        QStyledItemDelegate::setModelData(editor, model, index);
}

void ChoiceDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QVariant back = index.data(Qt::BackgroundRole);
    if (back.isValid()) {
        option->palette.setColor(QPalette::Highlight, back.value<QColor>());
        option->palette.setColor(QPalette::HighlightedText,
                                 index.data(Qt::ForegroundRole).value<QColor>());
    }
    if (!index.data(ProblemRole).isValid())
        return;
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = benchIcon(QStringLiteral("warning"));
    option->decorationSize = {option->fontMetrics.height(), option->fontMetrics.height()};
}

} // namespace NARV::DEV
