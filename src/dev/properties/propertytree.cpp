#include "properties/propertytree.h"

#include <QCoreApplication>

#include <algorithm>

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
    child.part = std::move(what);
    return child;
}

QString geometryId()
{
    return QStringLiteral("geometry."); // fields have no dots
}

QVariant propertyValue(const PropertyItem &item, const PropertySource &source)
{
    if (item.isPart())
        return item.part.get(propertyValue(*item.parent, source));
    if (item.valueId == geometryId())
        return QVariant::fromValue(source.geometry());
    const int type = item.field.type();
    const bool isReference = type == FieldType::Tag || type == FieldType::Trend;
    return isReference ? source.binding(item.valueId) : source.value(item.valueId);
}

QVariant propertyDefault(const PropertyItem &item, const PropertySource &source)
{
    if (item.isPart())
        return item.part.get(propertyDefault(*item.parent, source));
    return source.defaultValue(item.valueId);
}

PartContext partContext(const PropertyItem &item, const PropertySource &source)
{
    return {item.field, source.language(), source.languages()};
}

static QVector<Choice> optionChoices(const FieldMetaInformation &field)
{
    QVector<Choice> choices;
    for (const QPair<int, QString> &option : field.options())
        choices.append({option.first, option.second, {}});
    return choices;
}

static QVector<Choice> trendChoices(const PropertySource &source)
{
    QVector<Choice> choices;
    for (const QString &name : source.trends())
        choices.append({name, name, {}});
    return choices;
}

static QVector<Choice> tagChoices(const FieldMetaInformation &field, const PropertySource &source)
{
    const auto &accepted = field.tagAcceptedTypes();
    QVector<Choice> choices;
    for (const TagName &tag : source.tags()) {
        if (accepted.isEmpty() || accepted.contains(tag.type))
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
            isTrend ? trendChoices(source) : tagChoices(field, source)};
}

static ValuePart fieldRow(const FieldMetaInformation &field, const QString &language)
{
    return {field.display().get(language, true),
            {field.type(), field.minimum(), field.maximum(), optionChoices(field)},
            nullptr,
            nullptr};
}

static ValuePart fontRow(const FieldMetaInformation &field, const QString &language)
{
    const QString name = translated(QT_TRANSLATE_NOOP("PropertyTree", "%1: font"))
                             .arg(field.display().get(language, true));
    return {name, {FieldType::Font, {}, {}, {}}, nullptr, nullptr};
}

static void addParts(PropertyItem &item, const PropertySource &source)
{
    const QVariant value = propertyValue(item, source);
    for (const ValuePart &part : valueParts(value, partContext(item, source)))
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
    PropertyItem &addValue(PropertyItem &parent, const QString &id, const ValuePart &row,
                           const FieldMetaInformation &field);
    void addField(PropertyItem &group, const FieldMetaInformation &field);

    PropertyTree &m_tree;
    const PropertySource &m_source;
    QMap<QString, FieldRequirements::Field> m_requirements;
};

PropertyItem &TreeBuilder::addValue(PropertyItem &parent, const QString &id, const ValuePart &row,
                                    const FieldMetaInformation &field)
{
    PropertyItem &item = parent.add(row);
    item.valueId = id;
    item.field = field;
    m_tree.byValueId.insert(id, &item);
    addParts(item, m_source);
    return item;
}

void TreeBuilder::addGeometry()
{
    addValue(*m_tree.root, geometryId(),
             {translated(QT_TRANSLATE_NOOP("PropertyTree", "Geometry")), {}, nullptr, nullptr}, {});
}

void TreeBuilder::addField(PropertyItem &group, const FieldMetaInformation &field)
{
    const QString language = m_source.language();
    FieldRequirements::Field &entry = m_requirements[field.id()];
    entry.requirements = field.requirements();
    entry.rows += &addValue(group, field.id(), fieldRow(field, language), field);
    if (field.isMultiLanguageText())
        entry.rows += &addValue(group, fontId(field.id()), fontRow(field, language), field);
}

using FieldsByGroup = QMap<QString, QVector<FieldMetaInformation>>;

//! By the name of the group, and by label within.
FieldsByGroup fieldsByGroup(const PropertySource &source, bool showPrivate)
{
    const QString language = source.language();
    const auto isBefore = [&](const FieldMetaInformation &a, const FieldMetaInformation &b) {
        return a.display().get(language, true).localeAwareCompare(b.display().get(language, true)) <
               0;
    };
    FieldsByGroup groups;
    for (const FieldMetaInformation &field : source.description().fields()) {
        const QString name = field.group().get(language, true);
        const QString fallback = translated(QT_TRANSLATE_NOOP("PropertyTree", "General"));
        if (showPrivate || !field.isPrivate())
            groups[name.isEmpty() ? fallback : name] += field;
    }
    for (QVector<FieldMetaInformation> &fields : groups)
        std::stable_sort(fields.begin(), fields.end(), isBefore);
    return groups;
}

void TreeBuilder::addFields(bool showPrivate)
{
    const FieldsByGroup fields = fieldsByGroup(m_source, showPrivate);
    QMap<QString, FieldRequirements::Group> groups;
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        PropertyItem &group = m_tree.root->add({it.key(), {}, nullptr, nullptr});
        for (const FieldMetaInformation &field : *it)
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
