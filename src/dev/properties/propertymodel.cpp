#include "properties/propertymodel.h"

#include "properties/textentries.h"
#include "properties/valuetexts.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QFont>

#include <functional>

namespace NARV::DEV {

PropertyModel::PropertyModel(PropertySource &source, QObject *parent)
    : QAbstractItemModel(parent)
    , m_source(source)
{
    connect(&source, &PropertySource::replaced, this, &PropertyModel::rebuild);
    connect(&source, &PropertySource::valueChanged, this, &PropertyModel::update);
    connect(&source, &PropertySource::geometryChanged, this, [this] { update(geometryId()); });
    rebuild();
}

void PropertyModel::setShowPrivate(bool show)
{
    m_showPrivate = show;
    rebuild();
}

void PropertyModel::rebuild()
{
    beginResetModel();
    m_tree = PropertyTree(m_source, m_showPrivate);
    endResetModel();
    updateRequirements();
}

void PropertyModel::updateRequirements()
{
    std::vector<const PropertyItem *> rows;
    for (const auto &group : m_tree.root->children) {
        rows.push_back(group.get());
        for (const auto &child : group->children)
            rows.push_back(child.get());
    }
    std::vector<bool> before;
    for (const PropertyItem *row : rows)
        before.push_back(row->isHidden);
    m_tree.requirements.update(
        [this](int widget, const QString &id) { return m_source.heldValue(widget, id); });
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows[i]->isHidden != before[i])
            Q_EMIT dataChanged(indexOf(*rows[i], NameColumn), indexOf(*rows[i], TagColumn));
    }
}

// What the tree does not show, such as a private field, may still be what others require.
void PropertyModel::update(const QString &valueId)
{
    if (PropertyItem *item = m_tree.byValueId.value(valueId))
        updateParts(*item);
    if (valueId != geometryId())
        updateRequirements();
}

void PropertyModel::updateParts(PropertyItem &item)
{
    item.refresh(m_source);
    const QVector<ValuePart> parts = propertyParts(item, m_source);
    resizeParts(item, parts.size());
    for (int i = 0; i < parts.size(); ++i) {
        item.children[size_t(i)]->part = parts[i];
        updateParts(*item.children[size_t(i)]);
    }
    Q_EMIT dataChanged(indexOf(item, NameColumn), indexOf(item, TagColumn));
}

void PropertyModel::resizeParts(PropertyItem &item, int count)
{
    const int before = int(item.children.size());
    const QModelIndex parent = indexOf(item, NameColumn);
    if (count < before) {
        beginRemoveRows(parent, count, before - 1);
        item.children.resize(size_t(count));
        endRemoveRows();
    } else if (count > before) {
        beginInsertRows(parent, before, count - 1);
        for (int i = before; i < count; ++i)
            item.add({{}, {}, [](const QVariant &) { return QVariant(); }, nullptr});
        endInsertRows();
    }
}

PropertyItem &PropertyModel::item(const QModelIndex &index) const
{
    return index.isValid() ? *static_cast<PropertyItem *>(index.internalPointer()) : *m_tree.root;
}

QModelIndex PropertyModel::indexOf(const PropertyItem &item, int column) const
{
    if (&item == m_tree.root.get())
        return {};
    return createIndex(item.row(), column, const_cast<PropertyItem *>(&item));
}

QModelIndex PropertyModel::indexOf(const QString &valueId, int column) const
{
    const PropertyItem *found = m_tree.byValueId.value(valueId);
    return found ? indexOf(*found, column) : QModelIndex();
}

QModelIndex PropertyModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, item(parent).children[size_t(row)].get());
}

QModelIndex PropertyModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(*item(index).parent, NameColumn) : QModelIndex();
}

int PropertyModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > NameColumn ? 0 : int(item(parent).children.size());
}

int PropertyModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QVariant PropertyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString names[] = {tr("Field"), tr("Value"), tr("Tag")};
    return names[section];
}

bool PropertyModel::isEntry(const PropertyItem &item) const
{
    return item.isPart() && item.parent->isField() &&
           hasTextEntries(propertyValue(*item.parent, m_source));
}

bool PropertyModel::isMapEntry(const PropertyItem &item) const
{
    return isEntry(item) && isTextMap(propertyValue(*item.parent, m_source));
}

bool PropertyModel::isEditable(const PropertyItem &item, int column) const
{
    if (item.isGroup() && !item.isPart())
        return false;
    if (column == TagColumn)
        return item.isBindable;
    if (item.isReadOnly)
        return false;
    return column == ValueColumn || isMapEntry(item);
}

Qt::ItemFlags PropertyModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const PropertyItem &row = item(index);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    flags.setFlag(Qt::ItemNeverHasChildren, row.children.empty());
    if (!isEditable(row, index.column()))
        return flags;
    flags |= Qt::ItemIsEditable;
    flags.setFlag(Qt::ItemIsUserCheckable,
                  index.column() == ValueColumn && row.part.kind.type == FieldType::Bool);
    return flags;
}

// Editing starts in the column that can be edited.
QModelIndex PropertyModel::buddy(const QModelIndex &index) const
{
    const bool isName = index.column() == NameColumn && !isMapEntry(item(index));
    return isName ? index.siblingAtColumn(ValueColumn) : index;
}

QString PropertyModel::reason(const QString &fieldId) const
{
    const auto [text, widget] = m_tree.requirements.reason(fieldId);
    return text.isEmpty() || m_source.widgetCount() == 1
               ? text
               : tr("%1: %2").arg(m_source.name(widget), text);
}

QString PropertyModel::path(const PropertyItem &item) const
{
    const QString name = item.valueId.isEmpty() ? item.part.name : item.valueId;
    return item.parent ? path(*item.parent) + QLatin1Char('/') + name : name;
}

QString PropertyModel::toolTip(const PropertyItem &item) const
{
    if (!item.field.isValid())
        return item.part.name.toHtmlEscaped();
    const ValuePart &owner = item.owner().part;
    const bool isFontOfText = item.owner().valueId == fontId(item.field.id());
    const QString tip = isFontOfText ? fontToolTip(item.field, owner.name)
                                     : fieldToolTip(item.field, owner.kind, m_source.language());
    const QString why = reason(item.field.id());
    return why.isEmpty() ? tip : tr("<i>Hidden: %1</i><br/>").arg(why.toHtmlEscaped()) + tip;
}

QVariant PropertyModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    using Reader = QVariant (PropertyModel::*)(const PropertyItem &, int) const;
    static constexpr Reader readers[] = {&PropertyModel::nameData, &PropertyModel::valueData,
                                         &PropertyModel::tagData};
    const PropertyItem &row = item(index);
    if (role == ValuesRole)
        return values(row, index.column());
    const QVariant ofColumn = (this->*readers[index.column()])(row, role);
    return ofColumn.isValid() ? ofColumn : rowData(row, role);
}

static QString differentText()
{
    return PropertyModel::tr("(different)");
}

QVariant PropertyModel::rowData(const PropertyItem &item, int role) const
{
    switch (role) {
    case Qt::ToolTipRole:
        return toolTip(item);
    case Qt::FontRole: {
        QFont font;
        font.setBold(item.isChanged);
        return font.bold() ? font : QVariant();
    }
    case IdRole:
        return item.owner().valueId;
    case PathRole:
        return path(item);
    case HiddenRole:
        return item.isHidden;
    case ReasonRole:
        return reason(item.field.id());
    case ChangedRole:
        return item.isChanged;
    case BindingRole:
        if (item.isBoundDifferently)
            return differentText();
        return item.isField() ? m_source.binding(0, item.valueId) : QString();
    case BindableRole:
        return item.isBindable;
    case GroupRole:
        return item.isGroup();
    case EntryRole:
        return isEntry(item);
    case EntriesRole:
        return isEntry(item) || (item.isField() && !item.isDifferent &&
                                 hasTextEntries(propertyValue(item, m_source)));
    case DifferentRole:
        return item.isDifferent;
    default:
        return {};
    }
}

QVariant PropertyModel::nameData(const PropertyItem &item, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return item.part.name;
    case Qt::EditRole:
        return isMapEntry(item) ? item.part.name.toInt() : QVariant(item.part.name);
    case KindRole:
        return QVariant::fromValue(ValueKind{FieldType::Integer, {}, {}, {}});
    default:
        return {};
    }
}

static bool isReferenceKind(const ValueKind &kind)
{
    return kind.type == FieldType::Tag || kind.type == FieldType::Trend;
}

QVariant PropertyModel::valueData(const PropertyItem &item, int role) const
{
    if (item.isGroup())
        return {};
    const auto value = [&] {
        return inLanguage(propertyValue(item, m_source), m_source.language());
    };
    const ValueKind &kind = item.part.kind;
    switch (role) {
    case Qt::DisplayRole:
        return item.isDifferent ? differentText() : shortValueText(value(), kind);
    case Qt::EditRole:
        return value();
    case Qt::DecorationRole:
        return item.isDifferent ? QVariant() : valueDecoration(value(), kind);
    case Qt::CheckStateRole:
        if (kind.type != FieldType::Bool)
            return {};
        return item.isDifferent ? Qt::PartiallyChecked
                                : (value().toBool() ? Qt::Checked : Qt::Unchecked);
    case KindRole:
        return QVariant::fromValue(isReferenceKind(kind) ? bindingKind(item.field, m_source)
                                                         : kind);
    default:
        return {};
    }
}

QVariant PropertyModel::tagData(const PropertyItem &item, int role) const
{
    if (!item.isBindable)
        return {};
    switch (role) {
    case Qt::AccessibleTextRole:
        return rowData(item, BindingRole);
    case Qt::EditRole:
        return m_source.binding(0, item.valueId);
    case DifferentRole:
        return item.isBoundDifferently;
    case KindRole:
        return QVariant::fromValue(bindingKind(item.field, m_source));
    default:
        return {};
    }
}

bool PropertyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!(flags(index) & Qt::ItemIsEditable))
        return false;
    const PropertyItem &row = item(index);
    if (role == Qt::CheckStateRole)
        return setEdited(row, value.toInt() == Qt::Checked);
    if (role == ValuesRole)
        return setValues(row, index.column(), value.toList());
    if (role != Qt::EditRole)
        return false;
    if (index.column() == NameColumn)
        return setKey(row, value.toInt());
    if (index.column() == ValueColumn && !row.part.kind.type)
        return false;
    if (index.column() == ValueColumn)
        return setEdited(row, value);
    bind(row, value.toString());
    return true;
}

//! Of the value that the row is a part of, or of the binding.
QVariant PropertyModel::values(const PropertyItem &item, int column) const
{
    const PropertyItem &owner = item.owner();
    QVariantList values;
    for (int i = 0; i < m_source.widgetCount(); ++i)
        values += column == TagColumn ? m_source.binding(i, owner.valueId)
                                      : propertyValue(owner, m_source, i);
    return values;
}

bool PropertyModel::setValues(const PropertyItem &item, int column, const QVariantList &values)
{
    const PropertyItem &owner = item.owner();
    if (column == TagColumn || isReferenceKind(owner.part.kind))
        m_source.bind(owner.valueId, QVariant(values).toStringList());
    else
        write(owner, [&values](const QVariant &, int widget) { return values.value(widget); });
    return true;
}

void PropertyModel::bind(const PropertyItem &item, const QString &name)
{
    m_source.bind(item.valueId, QVector<QString>(m_source.widgetCount(), name).toList());
}

bool PropertyModel::setEdited(const PropertyItem &item, const QVariant &edited)
{
    if (isReferenceKind(item.part.kind)) {
        bind(item, edited.toString());
        return true;
    }
    const QString language = m_source.language();
    const ValueKind kind = item.part.kind;
    QVariant bounded = edited;
    write(item, [&](const QVariant &before, int widget) {
        const QVariant taken = checked(item, edited, widget);
        if (taken != edited)
            bounded = taken;
        return taken.userType() == QMetaType::QStringList
                   ? withEditedList(before, taken.toStringList(), language)
                   : withLanguage(before, taken, language);
    });
    tellOfBound(kind, edited, bounded);
    tellOfDriver(item);
    return true;
}

void PropertyModel::tellOfDriver(const PropertyItem &item)
{
    for (int i = 0; i < m_source.widgetCount(); ++i) {
        const QString tag = m_source.binding(i, item.owner().valueId);
        if (!m_source.isDriven(tag))
            continue;
        Q_EMIT notice(tr("The tag %1 is driven by its generator; set the tag by hand.").arg(tag));
        return;
    }
}

// A part is written by writing what it is a part of.
void PropertyModel::write(const PropertyItem &item, const Change &change)
{
    if (item.isPart()) {
        const ValuePart part = item.part; // the row may go
        write(*item.parent, [&](const QVariant &whole, int widget) {
            return part.set(whole, change(part.get(whole), widget));
        });
        return;
    }
    QVector<QVariant> values;
    QVector<Geometry> geometries;
    for (int i = 0; i < m_source.widgetCount(); ++i) {
        values += change(propertyValue(item, m_source, i), i);
        geometries += values.last().value<Geometry>();
    }
    if (item.valueId == geometryId())
        m_source.setGeometries(geometries);
    else
        m_source.setValues(item.valueId, values);
}

void PropertyModel::write(const PropertyItem &item, const QVariant &value)
{
    write(item, [&value](const QVariant &, int) { return value; });
}

static QVariant clamped(const QVariant &value, const ValueKind &kind)
{
    if (kind.minimum.isValid() && value.toDouble() < kind.minimum.toDouble())
        return kind.minimum;
    if (kind.maximum.isValid() && value.toDouble() > kind.maximum.toDouble())
        return kind.maximum;
    return value;
}

//! Within the bounds of the widget's own field.
QVariant PropertyModel::checked(const PropertyItem &item, const QVariant &value, int widget) const
{
    const ValueKind &kind = item.part.kind;
    if (kind.type != FieldType::Integer && kind.type != FieldType::Double)
        return value;
    return item.isPart() ? clamped(value, kind)
                         : INTERNAL::WidgetLibraryPluginUtils::fieldValueCheckBeforeSet(
                               kind.type, value, item.valueId, m_source.description(widget));
}

void PropertyModel::tellOfBound(const ValueKind &kind, const QVariant &value, const QVariant &taken)
{
    if (kind.type != FieldType::Integer && kind.type != FieldType::Double)
        return;
    if (taken.toDouble() < value.toDouble())
        Q_EMIT notice(tr("%1 is above the maximum: set to %2.")
                          .arg(valueText(value, kind), valueText(taken, kind)));
    if (taken.toDouble() > value.toDouble())
        Q_EMIT notice(tr("%1 is below the minimum: set to %2.")
                          .arg(valueText(value, kind), valueText(taken, kind)));
}

bool PropertyModel::setKey(const PropertyItem &item, int key)
{
    const QVariant before = propertyValue(*item.parent, m_source);
    TextEntries entries = textEntries(before);
    for (const TextEntry &entry : qAsConst(entries)) {
        if (entry.key == key && key != item.part.name.toInt()) {
            Q_EMIT notice(tr("There is a text for %1 already.").arg(key));
            return false;
        }
    }
    entries[item.row()].key = key;
    write(*item.parent, withTextEntries(before, entries));
    return true;
}

void PropertyModel::reset(const QModelIndex &index)
{
    const PropertyItem &row = item(index);
    if (!index.isValid() || !row.field.isValid() || row.isReadOnly)
        return;
    if (row.isPart() && !isEntry(row))
        write(row,
              [&](const QVariant &, int widget) { return propertyDefault(row, m_source, widget); });
    else
        m_source.reset({row.owner().valueId});
}

void PropertyModel::resetAll()
{
    if (!m_source.hasWidget())
        return;
    QStringList ids;
    for (const SharedField &field : sharedFields(m_source))
        ids << field.first().id() << fontId(field.first().id());
    m_source.reset(ids);
}

const PropertyItem *PropertyModel::entriesItem(const QModelIndex &index) const
{
    if (!index.isValid() || !index.data(EntriesRole).toBool() || item(index).isReadOnly)
        return nullptr;
    const PropertyItem &row = item(index);
    return isEntry(row) ? row.parent : &row;
}

void PropertyModel::addEntry(const QModelIndex &index)
{
    const PropertyItem *entries = entriesItem(index);
    if (!entries)
        return;
    const PropertyItem &row = item(index);
    const int position = &row == entries ? int(entries->children.size()) : row.row() + 1;
    write(*entries, withEntryAdded(propertyValue(*entries, m_source), position));
}

void PropertyModel::removeEntry(const QModelIndex &index)
{
    const PropertyItem *entries = entriesItem(index);
    if (entries && isEntry(item(index)))
        write(*entries, withEntryRemoved(propertyValue(*entries, m_source), index.row()));
}

void PropertyModel::moveEntry(const QModelIndex &index, int by)
{
    const PropertyItem *entries = entriesItem(index);
    if (entries && isEntry(item(index)))
        write(*entries,
              withEntryMoved(propertyValue(*entries, m_source), index.row(), index.row() + by));
}

} // namespace NARV::DEV
