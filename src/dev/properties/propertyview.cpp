#include "properties/propertyview.h"

#include "properties/propertydelegate.h"
#include "properties/propertyfilter.h"
#include "window/icons.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace NARV::DEV {

PropertyView::PropertyView(PropertyModel &model, PropertyFilter &filter, QWidget *parent)
    : QTreeView(parent)
    , m_model(model)
    , m_filter(filter)
{
    auto *delegate = new PropertyDelegate(this);
    setModel(&filter);
    setItemDelegate(delegate);
    setObjectName(QStringLiteral("propertyTree"));
    setAccessibleName(tr("Fields of the widget"));
    setUniformRowHeights(true);
    setIndentation(11);
    setSelectionBehavior(SelectRows);
    setEditTriggers(EditKeyPressed | AnyKeyPressed | DoubleClicked | SelectedClicked);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(PropertyModel::ValueColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(PropertyModel::TagColumn, QHeaderView::Fixed);
    header()->setMinimumSectionSize(24);
    addCommands();
    connect(delegate, &PropertyDelegate::refused, this, &PropertyView::refused);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex &index) { noteExpansion(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex &index) { noteExpansion(index, false); });
    connect(&filter, &QAbstractItemModel::modelReset, this, [this] { restoreExpansion(); });
    connect(&filter, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &above) { restoreExpansion(above); });
    restoreExpansion();
}

namespace {

bool isEditable(const QModelIndex &row)
{
    return row.flags() & Qt::ItemIsEditable;
}

template<PropertyModel::Role role>
bool has(const QModelIndex &row)
{
    return row.data(role).toBool();
}

//! The value is chosen from a list.
bool isOption(const QModelIndex &value)
{
    return isEditable(value) &&
           value.data(PropertyModel::KindRole).value<ValueKind>().type == FieldType::Option;
}

bool isBound(const QModelIndex &row)
{
    return !row.data(PropertyModel::BindingRole).toString().isEmpty();
}

template<PropertyModel::Role role>
bool isEditableWith(const QModelIndex &row)
{
    return isEditable(row) && has<role>(row);
}

} // namespace

struct PropertyView::Command
{
    const char *text;
    const char *icon; //!< null for none
    int key;
    void (PropertyView::*run)();
    bool (*applies)(const QModelIndex &row); //!< is offered in the menu
};

// Enter and Space are not among the keys: an open editor needs them.
const PropertyView::Command PropertyView::commands[] = {
    {QT_TR_NOOP("Edit"), nullptr, Qt::Key_F2, &PropertyView::editCurrent, isEditable},
    {QT_TR_NOOP("Attach a tag or trend…"), "tag", Qt::CTRL + Qt::Key_T, &PropertyView::editBinding,
     has<PropertyModel::BindableRole>},
    {QT_TR_NOOP("Detach"), "clear", Qt::CTRL + Qt::SHIFT + Qt::Key_T, &PropertyView::unbind,
     isBound},
    {QT_TR_NOOP("Reset"), "reset", Qt::CTRL + Qt::Key_Backspace, &PropertyView::resetCurrent,
     has<PropertyModel::ChangedRole>},
    {QT_TR_NOOP("Add a text"), "add", Qt::Key_Insert, &PropertyView::addEntry,
     isEditableWith<PropertyModel::EntriesRole>},
    {QT_TR_NOOP("Remove the text"), "remove", Qt::Key_Delete, &PropertyView::removeEntry,
     isEditableWith<PropertyModel::EntryRole>},
    {QT_TR_NOOP("Move up"), "up", Qt::ALT + Qt::Key_Up, &PropertyView::moveEntryUp,
     isEditableWith<PropertyModel::EntryRole>},
    {QT_TR_NOOP("Move down"), "down", Qt::ALT + Qt::Key_Down, &PropertyView::moveEntryDown,
     isEditableWith<PropertyModel::EntryRole>},
};

void PropertyView::addCommands()
{
    for (const Command &command : commands) {
        auto *action = new QAction(tr(command.text), this);
        if (command.icon)
            action->setIcon(benchIcon(QLatin1String(command.icon)));
        action->setShortcut(QKeySequence(command.key));
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, command.run);
        addAction(action);
    }
}

QModelIndex PropertyView::currentSource(int column) const
{
    return m_filter.mapToSource(currentIndex()).siblingAtColumn(column);
}

void PropertyView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    Q_EMIT currentRowChanged(m_filter.mapToSource(current));
}

void PropertyView::editValue(const QString &valueId)
{
    const QModelIndex index = m_filter.mapFromSource(m_model.indexOf(valueId));
    setCurrentIndex(index);
    if (index.isValid())
        open(index);
}

//! As a person asks for it: a list of choices is open at once.
void PropertyView::open(const QModelIndex &index)
{
    edit(index);
    if (auto *editor = qobject_cast<PropertyEditor *>(indexWidget(index)))
        editor->showChoices();
}

void PropertyView::editCurrent()
{
    const QModelIndex index = m_filter.buddy(currentIndex());
    if (index.flags() & Qt::ItemIsEditable)
        open(index);
}

void PropertyView::editBinding()
{
    if (currentSource().data(PropertyModel::BindableRole).toBool())
        edit(currentIndex().siblingAtColumn(PropertyModel::TagColumn));
}

void PropertyView::unbind()
{
    m_model.setData(currentSource(PropertyModel::TagColumn), QString(), Qt::EditRole);
}

void PropertyView::resetCurrent()
{
    m_model.reset(currentSource());
}

void PropertyView::addEntry()
{
    m_model.addEntry(currentSource());
    expand(currentIndex().siblingAtColumn(PropertyModel::NameColumn));
}

void PropertyView::removeEntry()
{
    if (currentSource().data(PropertyModel::EntryRole).toBool())
        m_model.removeEntry(currentSource());
    else
        m_model.reset(currentSource());
}

static constexpr int up = -1;
static constexpr int down = 1;

void PropertyView::moveEntryUp()
{
    m_model.moveEntry(currentSource(), up);
}

void PropertyView::moveEntryDown()
{
    m_model.moveEntry(currentSource(), down);
}

const PropertyView::Command *PropertyView::commandOf(const QKeyEvent &event)
{
    const int key = event.key() | int(event.modifiers() & ~Qt::KeypadModifier);
    const auto *found = std::find_if(std::begin(commands), std::end(commands),
                                     [key](const Command &command) { return command.key == key; });
    return found == std::end(commands) ? nullptr : found;
}

// Keys that mean something here come before the shortcuts of the window, which has a Delete, too.
bool PropertyView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &press = *static_cast<QKeyEvent *>(event);
        const bool isPlain = !(press.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
        if (commandOf(press) || (isPlain && !press.text().isEmpty()))
            event->accept();
    }
    return QTreeView::event(event);
}

//! Who comes by key sees where he is: at the first field, below the name of its group.
void PropertyView::focusInEvent(QFocusEvent *event)
{
    const bool isFirst = !currentIndex().isValid() && event->reason() != Qt::MouseFocusReason;
    QTreeView::focusInEvent(event);
    const QModelIndex first = indexBelow(model()->index(0, 0));
    if (isFirst && first.isValid())
        setCurrentIndex(first);
}

void PropertyView::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool opensList = event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier &&
                           isOption(m_filter.buddy(currentIndex()));
    if (opensList || (isEnter && event->modifiers() == Qt::NoModifier))
        editCurrent();
    else if (const Command *command = commandOf(*event))
        (this->*command->run)();
    else
        QTreeView::keyPressEvent(event);
}

void PropertyView::mousePressEvent(QMouseEvent *event)
{
    QTreeView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->pos());
    if (event->button() != Qt::LeftButton)
        return;
    if (index.column() == PropertyModel::TagColumn)
        editBinding();
    else if (index.column() == PropertyModel::ValueColumn && isOption(index))
        editCurrent();
}

void PropertyView::contextMenuEvent(QContextMenuEvent *event)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    int next = 0;
    for (QAction *action : actions()) {
        if (commands[next++].applies(currentSource()))
            menu->addAction(action);
    }
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(isByKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                        : event->globalPos());
}

void PropertyView::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    if (index.data(PropertyModel::GroupRole).toBool())
        painter->fillRect(option.rect, option.palette.button());
    QTreeView::drawRow(painter, option, index);
}

// The name gets a good half of what the narrow last column leaves.
void PropertyView::resizeEvent(QResizeEvent *event)
{
    const int tagWidth = fontMetrics().height() + 10;
    header()->resizeSection(PropertyModel::TagColumn, tagWidth);
    if (event->oldSize().width() != event->size().width())
        header()->resizeSection(PropertyModel::NameColumn,
                                (event->size().width() - tagWidth) * 11 / 20);
    QTreeView::resizeEvent(event);
}

// From an editor on to the next line that can be edited.
QModelIndex PropertyView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (action != MoveNext && action != MovePrevious)
        return QTreeView::moveCursor(action, modifiers);
    QModelIndex index = currentIndex();
    do {
        index = action == MoveNext ? indexBelow(index) : indexAbove(index);
    } while (index.isValid() &&
             !(index.siblingAtColumn(PropertyModel::ValueColumn).flags() & Qt::ItemIsEditable));
    return index.siblingAtColumn(PropertyModel::ValueColumn);
}

// Groups are open at first, the parts of values are not.
void PropertyView::noteExpansion(const QModelIndex &index, bool isExpanded)
{
    const QString path = index.data(PropertyModel::PathRole).toString();
    if (isExpanded == index.data(PropertyModel::GroupRole).toBool())
        m_toggled.remove(path);
    else
        m_toggled.insert(path);
}

void PropertyView::restoreExpansion(const QModelIndex &parent)
{
    const QSignalBlocker blocker(this); // this is not what a person has done
    for (int row = 0; row < m_filter.rowCount(parent); ++row) {
        const QModelIndex index = m_filter.index(row, 0, parent);
        setFirstColumnSpanned(row, parent, index.data(PropertyModel::GroupRole).toBool());
        if (!m_filter.hasChildren(index))
            continue;
        const bool isToggled = m_toggled.contains(index.data(PropertyModel::PathRole).toString());
        setExpanded(index, isToggled != index.data(PropertyModel::GroupRole).toBool());
        restoreExpansion(index);
    }
}

} // namespace NARV::DEV
