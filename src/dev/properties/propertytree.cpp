#include "properties/propertytree.h"

#include "properties/textentries.h"

#include <QCoreApplication>

#include <algorithm>
#include <functional>

namespace NARV::DEV {

using INTERNAL::WidgetLibraryPluginMetaInformation;

static QString translated(const char *text)
{
    return QCoreApplication::translate("PropertyTree", text);
}

int PropertyItem::row() const
{
    if (!parent)
        return 0;
    const auto self = std::find_if(parent->children.begin(), parent->children.end(),
                                   [this](const auto &child) { return child.get() == this; });
    return int(self - parent->children.begin());
}

const PropertyItem &PropertyItem::owner() const
{
    return isPart() ? parent->owner() : *this;
}

PropertyItem &PropertyItem::add(ValuePart what)
{
    children.push_back(std::make_unique<PropertyItem>());
    PropertyItem &child = *children.back();
    child.parent = this;
    child.field = field;
    child.isReadOnly = isReadOnly;
    child.part = std::move(what);
    return child;
}

static bool isReference(const FieldMetaInformation &field)
{
    return field.type() == FieldType::Tag || field.type() == FieldType::Trend;
}

QString geometryId()
{
    return QStringLiteral("geometry."); // fields have no dots
}

QVariant propertyValue(const PropertyItem &item, const PropertySource &source, int widget)
{
    if (item.isPart())
        return item.part.get(propertyValue(*item.parent, source, widget));
    if (item.valueId == geometryId())
        return QVariant::fromValue(source.geometry(widget));
    return isReference(item.field) ? source.binding(widget, item.valueId)
                                   : source.value(widget, item.valueId);
}

QVariant propertyDefault(const PropertyItem &item, const PropertySource &source, int widget)
{
    if (item.isPart())
        return item.part.get(propertyDefault(*item.parent, source, widget));
    return source.defaultValue(widget, item.valueId);
}

QVector<ValuePart> propertyParts(const PropertyItem &item, const PropertySource &source)
{
    const QVariant value = propertyValue(item, source);
    if (item.isDifferent && hasTextEntries(value))
        return {};
    return valueParts(value, {item.field, source.language(), source.languages()});
}

static bool isChangedIn(int widget, const PropertyItem &item, const PropertySource &source)
{
    return source.isChanged(widget, item.owner().valueId) &&
           (!item.isPart() || !isSameValue(propertyValue(item, source, widget),
                                           propertyDefault(item, source, widget)));
}

void PropertyItem::refresh(const PropertySource &source)
{
    const int count = source.widgetCount();
    const QVariant first = propertyValue(*this, source);
    isDifferent = isBoundDifferently = isChanged = false;
    for (int i = 1; i < count && !isDifferent && valueId != geometryId(); ++i)
        isDifferent = !isSameValue(propertyValue(*this, source, i), first);
    for (int i = 1; i < count && !isBoundDifferently && isBindable; ++i)
        isBoundDifferently = source.binding(i, valueId) != source.binding(0, valueId);
    for (int i = 0; i < count && !isChanged && field.isValid(); ++i)
        isChanged = isChangedIn(i, *this, source);
}

//! The field of that id in each of the widgets; less than that if not all have it.
static SharedField fieldOfEach(const QString &id, const PropertySource &source)
{
    SharedField fields;
    for (int i = 0; i < source.widgetCount(); ++i) {
        const FieldMetaInformation field = source.description(i).fields().value(id);
        const bool isSame =
            field.isValid() &&
            (i == 0 || (field.type() == fields.first().type() &&
                        field.isMultiLanguageText() == fields.first().isMultiLanguageText()));
        if (!isSame)
            break;
        fields += field;
    }
    return fields;
}

QVector<SharedField> sharedFields(const PropertySource &source)
{
    QVector<SharedField> shared;
    for (const QString &id : source.description(0).fields().keys()) {
        const SharedField fields = fieldOfEach(id, source);
        if (fields.size() == source.widgetCount())
            shared += fields;
    }
    return shared;
}

static QVector<Choice> optionChoices(const SharedField &fields)
{
    QVector<Choice> choices;
    for (const QPair<int, QString> &option : fields.first().options()) {
        if (std::all_of(fields.begin(), fields.end(), [&](const FieldMetaInformation &field) {
                return field.options().contains(option);
            }))
            choices.append({option.first, option.second, {}});
    }
    return choices;
}

static QVector<Choice> trendChoices(const PropertySource &source)
{
    QVector<Choice> choices;
    for (const QString &name : source.trends())
        choices.append({name, name, {}});
    return choices;
}

static QVector<Choice> tagChoices(const QString &fieldId, const PropertySource &source)
{
    const auto fields = fieldOfEach(fieldId, source);
    QVector<Choice> choices;
    for (const TagName &tag : source.tags()) {
        if (std::all_of(fields.begin(), fields.end(), [&tag](const FieldMetaInformation &field) {
                const auto &accepted = field.tagAcceptedTypes();
                return accepted.isEmpty() || accepted.contains(tag.type);
            }))
            choices.append({tag.name, tag.name,
                            WidgetLibraryPluginMetaInformation::tagTypeToString(tag.type)});
    }
    return choices;
}

ValueKind bindingKind(const FieldMetaInformation &field, const PropertySource &source)
{
    const bool isTrend = field.type() == FieldType::Trend;
    return {isTrend ? FieldType::Trend : FieldType::Tag,
            {},
            {},
            isTrend ? trendChoices(source) : tagChoices(field.id(), source)};
}

static ValuePart fieldRow(const SharedField &fields, bool isFont, const QString &language)
{
    const FieldMetaInformation &field = fields.first();
    const ValueKind font{FieldType::Font, {}, {}, {}};
    const ValueKind own{field.type(), field.minimum(), field.maximum(), optionChoices(fields)};
    return {fieldLabel(field, isFont, language), isFont ? font : own, nullptr, nullptr};
}

static bool isBindable(const FieldMetaInformation &field)
{
    return field.tagCanBeAttached() || isReference(field);
}

static void addParts(PropertyItem &item, const PropertySource &source)
{
    item.refresh(source);
    for (const ValuePart &part : propertyParts(item, source))
        addParts(item.add(part), source);
}

namespace {

//! Puts the rows of fields under their groups.
class TreeBuilder
{
public:
    TreeBuilder(PropertyTree &tree, const PropertySource &source)
        : m_tree(tree)
        , m_source(source)
    {
    }

    void addGeometry();
    void addFields(bool showPrivate);

private:
    void addField(PropertyItem &group, const SharedField &fields);
    PropertyItem &addRow(PropertyItem &group, const SharedField &fields, bool isFont);

    PropertyTree &m_tree;
    const PropertySource &m_source;
    QMap<QString, FieldRequirements::Field> m_requirements;
};

void TreeBuilder::addGeometry()
{
    PropertyItem &item = m_tree.root->add(
        {translated(QT_TRANSLATE_NOOP("PropertyTree", "Geometry")), {}, nullptr, nullptr});
    item.valueId = geometryId();
    m_tree.byValueId.insert(item.valueId, &item);
    addParts(item, m_source);
}

PropertyItem &TreeBuilder::addRow(PropertyItem &group, const SharedField &fields, bool isFont)
{
    PropertyItem &item = group.add(fieldRow(fields, isFont, m_source.language()));
    item.field = fields.first();
    item.valueId = isFont ? fontId(item.field.id()) : item.field.id();
    item.isReadOnly =
        std::any_of(fields.begin(), fields.end(), std::mem_fn(&FieldMetaInformation::readOnly));
    item.isBindable = !isFont && std::all_of(fields.begin(), fields.end(), isBindable);
    m_tree.byValueId.insert(item.valueId, &item);
    addParts(item, m_source);
    return item;
}

void TreeBuilder::addField(PropertyItem &group, const SharedField &fields)
{
    FieldRequirements::Field &entry = m_requirements[fields.first().id()];
    for (const FieldMetaInformation &field : fields)
        entry.requirements += field.requirements();
    entry.rows += &addRow(group, fields, false);
    if (fields.first().isMultiLanguageText())
        entry.rows += &addRow(group, fields, true);
}

using FieldsByGroup = QMap<QString, QVector<SharedField>>;

//! By the name of the group, and by label within.
FieldsByGroup fieldsByGroup(const PropertySource &source, bool showPrivate)
{
    const QString language = source.language();
    const auto label = [&](const SharedField &field) {
        return field.first().display().get(language, true);
    };
    const auto isBefore = [&](const SharedField &a, const SharedField &b) {
        return label(a).localeAwareCompare(label(b)) < 0;
    };
    FieldsByGroup groups;
    for (const SharedField &field : sharedFields(source)) {
        const bool isPrivate =
            std::any_of(field.begin(), field.end(), std::mem_fn(&FieldMetaInformation::isPrivate));
        const QString name = field.first().group().get(language, true);
        const QString fallback = translated(QT_TRANSLATE_NOOP("PropertyTree", "General"));
        if (showPrivate || !isPrivate)
            groups[name.isEmpty() ? fallback : name] += field;
    }
    for (QVector<SharedField> &fields : groups)
        std::stable_sort(fields.begin(), fields.end(), isBefore);
    return groups;
}

void TreeBuilder::addFields(bool showPrivate)
{
    const FieldsByGroup fields = fieldsByGroup(m_source, showPrivate);
    QMap<QString, FieldRequirements::Group> groups;
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        PropertyItem &group = m_tree.root->add({it.key(), {}, nullptr, nullptr});
        for (const SharedField &field : *it)
            addField(group, field);
        FieldRequirements::Group &entry = *groups.insert(it.key(), {&group, {}});
        for (const auto &child : group.children)
            entry.children += child.get();
    }
    m_tree.requirements = FieldRequirements(m_requirements, groups);
}

} // namespace

PropertyTree::PropertyTree(const PropertySource &source, bool showPrivate)
{
    if (!source.hasWidget())
        return;
    TreeBuilder builder(*this, source);
    builder.addGeometry();
    builder.addFields(showPrivate);
}

} // namespace NARV::DEV
