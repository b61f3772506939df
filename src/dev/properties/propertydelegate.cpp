#include "properties/propertydelegate.h"

#include "properties/propertymodel.h"
#include "window/icons.h"

#include <QApplication>
#include <QPersistentModelIndex>

#include <memory>

namespace NARV::DEV {

static constexpr int rowMargin = 6; // above and below the text of a row, together
static constexpr int leastEditorWidth = 150;

PropertyDelegate::PropertyDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

QWidget *PropertyDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &index) const
{
    const auto kind = index.data(PropertyModel::KindRole).value<ValueKind>();
    auto *editor = qobject_cast<PropertyEditor *>(m_editors.createEditor(kind.type, parent));
    if (!editor)
        return nullptr;
    editor->setKind(kind);
    editor->setObjectName(QStringLiteral("propertyEditor"));
    const QModelIndex name = index.siblingAtColumn(PropertyModel::NameColumn);
    editor->setAccessibleName(name.data().toString());
    auto *self = const_cast<PropertyDelegate *>(this); // the base makes editors in const functions
    const QPersistentModelIndex cell(index);
    const QVariant before = index.data(PropertyModel::ValuesRole);
    const auto hasWritten = std::make_shared<bool>(false);
    connect(editor, &PropertyEditor::edited, self, [self, editor, hasWritten] {
        *hasWritten = true;
        Q_EMIT self->commitData(editor);
    });
    connect(editor, &PropertyEditor::finished, self,
            [self, editor](PropertyEditor::Next next) { self->finish(editor, next); });
    connect(editor, &PropertyEditor::cancelled, self, [=] {
        if (*hasWritten)
            self->takeBack(cell, before);
        Q_EMIT self->closeEditor(editor, RevertModelCache);
    });
    return editor;
}

void PropertyDelegate::finish(PropertyEditor *editor, PropertyEditor::Next next)
{
    static constexpr EndEditHint hints[] = {NoHint, EditNextItem, EditPreviousItem};
    const QString problem = editor->isModified() ? editor->problem() : QString();
    if (!problem.isEmpty()) {
        Q_EMIT refused(problem);
        return;
    }
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, hints[int(next)]);
}

// Not what the widget or a tag has written while the editor was open.
void PropertyDelegate::takeBack(const QPersistentModelIndex &index, const QVariant &before)
{
    auto *model = const_cast<QAbstractItemModel *>(index.model());
    if (model && index.data(PropertyModel::ValuesRole) != before)
        model->setData(index, before, PropertyModel::ValuesRole);
}

// What the widget writes meanwhile does not overwrite what a person is typing.
void PropertyDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *open = static_cast<PropertyEditor *>(editor);
    const QVariant value = index.data(Qt::EditRole);
    if (open->isModified() && open->value() != value)
        return;
    if (!open->isModified() || open->value().userType() != value.userType())
        open->setValue(value);
}

void PropertyDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    auto *open = static_cast<PropertyEditor *>(editor);
    if (!open->isModified() || !open->problem().isEmpty())
        return;
    const QVariant value = open->value();
    open->setModified(false);
    if (index.data(PropertyModel::DifferentRole).toBool() || index.data(Qt::EditRole) != value)
        model->setData(index, value, Qt::EditRole);
}

// Higher editors lie over the rows below, or above at the end of the view.
void PropertyDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                            const QModelIndex &) const
{
    const QRect view = editor->parentWidget()->rect();
    QRect place = option.rect;
    const bool isLarge = editor->minimumSizeHint().height() > place.height() + rowMargin;
    place.setHeight(
        qMax(place.height(), qMax(editor->minimumSizeHint().height(), editor->minimumHeight())));
    if (isLarge || place.width() < leastEditorWidth)
        place.setWidth(qMax(view.right() - place.left(), leastEditorWidth));
    place.moveRight(qMin(place.right(), view.right()));
    place.moveBottom(qMin(place.bottom(), view.bottom()));
    place.moveTop(qMax(place.top(), 0));
    editor->setGeometry(place);
}

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(option.fontMetrics.height() + rowMargin);
    return size;
}

//! A third of the way from the text to the background, so that it can still be read.
static void mute(QStyleOptionViewItem &option)
{
    const QColor text = option.palette.color(QPalette::Text);
    const QColor base = option.palette.color(QPalette::Base);
    const auto mix = [](int of, int with) { return (2 * of + with) / 3; };
    option.palette.setColor(QPalette::Text,
                            QColor(mix(text.red(), base.red()), mix(text.green(), base.green()),
                                   mix(text.blue(), base.blue())));
}

//! The name first, as a long value is cut off at its end. A long name leaves room for the value.
static QString withBinding(const QStyleOptionViewItem &option, const QString &name)
{
    const QString value = QStringLiteral(" → ") + option.text;
    const QFontMetrics metrics(option.font);
    const int width = option.rect.width() - rowMargin;
    const int room = qMax(width - metrics.horizontalAdvance(value), width * 2 / 3);
    return metrics.elidedText(name, Qt::ElideMiddle, room) + value;
}

static QIcon bindingIcon(const QModelIndex &index)
{
    if (!index.data(PropertyModel::BindableRole).toBool())
        return {};
    const auto kind = index.data(PropertyModel::KindRole).value<ValueKind>();
    return benchIcon(kind.type == FieldType::Trend ? QStringLiteral("trend")
                                                   : QStringLiteral("tag"));
}

void PropertyDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const bool isGroup = index.data(PropertyModel::GroupRole).toBool();
    const bool isValue = index.column() == PropertyModel::ValueColumn;
    const QString binding = index.data(PropertyModel::BindingRole).toString();
    option->font.setBold(isGroup || index.data(PropertyModel::ChangedRole).toBool());
    option->font.setItalic(index.data(PropertyModel::HiddenRole).toBool());
    const bool isPale = isValue && (!(index.flags() & Qt::ItemIsEditable) ||
                                    index.data(PropertyModel::DifferentRole).toBool());
    if (!isGroup && (option->font.italic() || isPale))
        mute(*option);
    if (isValue && !binding.isEmpty() && option->text != binding)
        option->text = withBinding(*option, binding);
    if (index.column() != PropertyModel::TagColumn)
        return;
    option->icon = bindingIcon(index);
    if (option->icon.isNull())
        return;
    option->features |= QStyleOptionViewItem::HasDecoration;
    if (binding.isEmpty()) // there may be a tag, but there is none
        option->icon = option->icon.pixmap(option->decorationSize, QIcon::Disabled);
}

// The editors say themselves when they are finished.
bool PropertyDelegate::eventFilter(QObject *, QEvent *)
{
    return false;
}

} // namespace NARV::DEV
