#include "data/tagtable.h"

#include "data/csvshelf.h"
#include "data/namechoice.h"

#include <QDir>
#include <QFont>

namespace NARV::DEV {

using Library = INTERNAL::WidgetLibraryPluginMetaInformation;

TagTable::TagTable(QObject *parent)
    : QAbstractTableModel(parent)
    , m_shelf(std::make_unique<CsvShelf>())
{
    connect(m_shelf.get(), &CsvShelf::changed, this, [this] {
        reload();
        Q_EMIT filesChanged();
    });
}

TagTable::~TagTable() = default;

int TagTable::find(const QString &name) const
{
    return m_rows.value(name, -1);
}

QStringList TagTable::names() const
{
    QStringList names;
    names.reserve(m_entries.size());
    for (const Entry &entry : m_entries)
        names.append(entry.tag.name);
    return names;
}

const Tag &TagTable::tag(int row) const
{
    return m_entries.at(row).tag;
}

QVariant TagTable::value(int row) const
{
    const Entry &entry = m_entries.at(row);
    return entry.forced ? entry.forced->value : entry.tag.value;
}

Quality TagTable::quality(int row) const
{
    const Entry &entry = m_entries.at(row);
    return entry.forced ? entry.forced->quality : entry.tag.quality;
}

QString TagTable::problem(int row) const
{
    const Entry &entry = m_entries.at(row);
    const GeneratorSettings &generator = entry.tag.generator;
    if (entry.series && !entry.series->problems.isEmpty())
        return entry.series->problems.join(QLatin1Char('\n'));
    if (generator.kind == GeneratorKind::TextList && generator.texts.isEmpty())
        return tr("The list holds no texts");
    QVariant value = generator.value;
    return generator.kind == GeneratorKind::Constant ? toTagValue(entry.tag.type, value)
                                                     : QString();
}

int TagTable::add(const Tag &tag)
{
    const int row = m_entries.size();
    insert(row, tag);
    return row;
}

void TagTable::insert(int row, const Tag &tag)
{
    Entry entry{tag, {}, {}};
    entry.tag.name =
        freeName(tag.name.trimmed(), [this](const QString &name) { return contains(name); });
    loadSeries(entry);
    beginInsertRows({}, row, row);
    storeSample(entry, m_elapsed);
    m_entries.insert(row, entry);
    if (row == m_entries.size() - 1)
        m_rows.insert(entry.tag.name, row);
    else
        rebuildIndex();
    endInsertRows();
    Q_EMIT tagsChanged();
    Q_EMIT modified();
    tellValue(row);
}

void TagTable::assign(int row, const Tag &tag)
{
    rename(row, tag.name);
    Entry &entry = m_entries[row];
    if (entry.tag.type != tag.type || entry.tag.generator.kind != tag.generator.kind)
        entry.tag.value = tag.value;
    entry.tag.type = tag.type;
    entry.tag.quality = tag.quality;
    entry.tag.generator = tag.generator;
    loadSeries(entry);
    storeSample(entry, m_elapsed);
    announce(row, row);
    Q_EMIT tagsChanged();
    Q_EMIT modified();
    tellValue(row);
}

int TagTable::duplicate(int row)
{
    return add(tag(row));
}

void TagTable::remove(int row)
{
    const QString name = tag(row).name;
    beginRemoveRows({}, row, row);
    m_entries.removeAt(row);
    rebuildIndex();
    endRemoveRows();
    Q_EMIT tagsChanged();
    Q_EMIT modified();
    Q_EMIT tagChanged(name, {});
}

QString TagTable::rename(int row, const QString &name)
{
    const QString before = tag(row).name;
    if (name == before)
        return {};
    QString problem = nameProblem(name, [this](const QString &other) { return contains(other); });
    if (!problem.isEmpty())
        return problem;
    m_entries[row].tag.name = name;
    rebuildIndex();
    announce(row, row);
    Q_EMIT renamed(before, name);
    Q_EMIT tagsChanged();
    Q_EMIT modified();
    return {};
}

QString TagTable::write(int row, const QVariant &value)
{
    Entry &entry = m_entries[row];
    QVariant converted = value;
    QString problem = toTagValue(entry.tag.type, converted);
    const bool isSame = converted == entry.tag.value && entry.tag.quality == Quality::Good;
    if (!problem.isEmpty() || (isSame && !entry.forced))
        return problem;
    const bool isKept = entry.tag.generator.kind == GeneratorKind::None;
    entry.tag.value = converted;
    entry.tag.quality = Quality::Good;
    entry.forced.reset();
    announce(row, row);
    tellValue(row);
    if (isKept)
        Q_EMIT modified();
    return {};
}

void TagTable::setType(int row, TagType type)
{
    Tag &tag = m_entries[row].tag;
    if (tag.type == type)
        return;
    tag.type = type;
    if (!toTagValue(type, tag.value).isEmpty())
        tag.value.clear();
    loadSeries(m_entries[row]);
    storeSample(m_entries[row], m_elapsed);
    announce(row, row);
    Q_EMIT tagsChanged();
    Q_EMIT modified();
    tellValue(row);
}

void TagTable::setQuality(int row, Quality quality)
{
    Tag &tag = m_entries[row].tag;
    if (tag.quality == quality && tag.generator.quality == quality)
        return;
    tag.quality = quality;
    tag.generator.quality = quality;
    announce(row, row);
    tellValue(row);
    Q_EMIT modified();
}

void TagTable::setGenerator(int row, const GeneratorSettings &settings)
{
    Entry &entry = m_entries[row];
    if (entry.tag.generator == settings)
        return;
    const bool isOtherKind = entry.tag.generator.kind != settings.kind;
    const bool isOtherFile = entry.tag.generator.file != settings.file || isOtherKind;
    entry.tag.generator = settings;
    if (isOtherKind && settings.kind == GeneratorKind::Constant && settings.value.isEmpty())
        entry.tag.generator.value = tagValueText(entry.tag.value);
    if (isOtherFile)
        loadSeries(entry);
    const bool isOther = storeSample(entry, m_elapsed);
    announce(row, row);
    if (isOther && !isForced(row))
        tellValue(row);
    Q_EMIT modified();
}

void TagTable::replaceAll(const QVector<Tag> &tags)
{
    const QStringList before = names();
    beginResetModel();
    m_entries.clear();
    for (const Tag &tag : tags) {
        m_entries.append({tag, {}, {}});
        loadSeries(m_entries.last());
        storeSample(m_entries.last(), m_elapsed);
    }
    rebuildIndex();
    endResetModel();
    Q_EMIT tagsChanged();
    Q_EMIT modified();
    for (const QString &name : before) {
        if (!contains(name))
            Q_EMIT tagChanged(name, {});
    }
    const QStringList after = names();
    for (const QString &name : after) {
        if (const int row = find(name); row >= 0)
            tellValue(row);
    }
}

void TagTable::setBaseFolder(const QString &folder)
{
    if (m_baseFolder == folder)
        return;
    m_baseFolder = folder;
    reload();
}

void TagTable::reload()
{
    for (Entry &entry : m_entries)
        loadSeries(entry);
    announce(0, m_entries.size() - 1);
    generate(m_elapsed);
}

std::shared_ptr<const CsvSeries> TagTable::series(const QString &file, CsvValues values) const
{
    return m_shelf->series(file.isEmpty() ? file : QDir(m_baseFolder).filePath(file), values);
}

void TagTable::force(int row, const QVariant &value, Quality quality)
{
    m_entries[row].forced = std::make_shared<Forced>(Forced{value, quality});
    announce(row, row);
    tellValue(row);
}

bool TagTable::isForced(int row) const
{
    return m_entries.at(row).forced != nullptr;
}

void TagTable::release(const QStringList &names)
{
    for (const QString &name : names) {
        const int row = find(name);
        if (row < 0 || !isForced(row))
            continue;
        m_entries[row].forced.reset();
        announce(row, row);
        tellValue(row);
    }
}

void TagTable::generate(qint64 elapsed)
{
    m_elapsed = elapsed;
    int first = m_entries.size();
    int last = -1;
    QVector<QPair<QString, QVariant>> changes; // told when all are in, as a listener may edit tags
    for (int row = 0; row < m_entries.size(); ++row) {
        Entry &entry = m_entries[row];
        if (!storeSample(entry, elapsed) || entry.forced)
            continue;
        changes.append({entry.tag.name, entry.tag.value});
        first = qMin(first, row);
        last = row;
    }
    announce(first, last);
    for (const auto &change : qAsConst(changes))
        Q_EMIT tagChanged(change.first, change.second);
}

//! True if the generator has given something else than before.
bool TagTable::storeSample(Entry &entry, qint64 elapsed) const
{
    Tag &tag = entry.tag;
    if (tag.generator.kind == GeneratorKind::None)
        return false;
    GeneratorSample sample = DEV::generate(tag.type, tag.generator, entry.series.get(), elapsed);
    if (sample.value == tag.value && sample.quality == tag.quality)
        return false;
    tag.value = sample.value;
    tag.quality = sample.quality;
    return true;
}

void TagTable::rebuildIndex()
{
    m_rows.clear();
    for (int row = 0; row < m_entries.size(); ++row)
        m_rows.insert(m_entries.at(row).tag.name, row);
}

void TagTable::loadSeries(Entry &entry) const
{
    const GeneratorSettings &generator = entry.tag.generator;
    const bool isPlayed = generator.kind == GeneratorKind::CsvPlayback;
    const auto values = entry.tag.type == TagType::String ? CsvValues::Texts : CsvValues::Numbers;
    entry.series = isPlayed ? series(generator.file, values) : nullptr;
}

void TagTable::announce(int firstRow, int lastRow)
{
    if (firstRow <= lastRow)
        Q_EMIT dataChanged(index(firstRow, 0), index(lastRow, ColumnCount - 1));
}

void TagTable::tellValue(int row)
{
    Q_EMIT tagChanged(tag(row).name, value(row));
}

// The item model

int TagTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int TagTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TagTable::display(int row, int column) const
{
    const Tag &tag = this->tag(row);
    switch (column) {
    case NameColumn:
        return tag.name;
    case ValueColumn:
        return tagValueText(value(row));
    case TypeColumn:
        return Library::tagTypeToString(tag.type);
    case QualityColumn:
        return qualityName(quality(row));
    default:
        return generatorTitle(tag.generator.kind);
    }
}

QVariant TagTable::choices(int column) const
{
    QStringList texts;
    if (column == TypeColumn) {
        for (const TagType type : tagTypes())
            texts.append(Library::tagTypeToString(type));
    } else if (column == QualityColumn) {
        texts = qualityNames();
    } else if (column == GeneratorColumn) {
        for (const GeneratorInfo &info : generators())
            texts.append(generatorTitle(info.kind));
    }
    return texts.isEmpty() ? QVariant() : texts;
}

QVariant TagTable::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int row = index.row();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        if (column == ValueColumn)
            return value(row).isValid() ? shortTagValueText(value(row)) : tr("(none)");
        return display(row, column);
    case Qt::EditRole:
        return display(row, column);
    case ChoicesRole:
        return choices(column);
    case ProblemRole:
    case Qt::ToolTipRole:
        if (column == GeneratorColumn && !problem(row).isEmpty())
            return problem(row);
        return role == Qt::ToolTipRole && isForced(row)
                   ? QVariant(tr("Put here by a scenario; the tag's own value goes on beneath"))
                   : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setItalic(isForced(row) && (column == ValueColumn || column == QualityColumn));
        return font.italic() ? QVariant(font) : QVariant();
    }
    default:
        return {};
    }
}

QString TagTable::edit(int row, int column, const QVariant &value)
{
    const int choice = choices(column).toStringList().indexOf(value.toString());
    switch (column) {
    case NameColumn:
        return rename(row, value.toString().trimmed());
    case ValueColumn:
        return write(row, value);
    default:
        if (choice < 0)
            return tr("“%1” is not among the choices").arg(value.toString());
    }
    if (column == TypeColumn)
        setType(row, tagTypes().at(choice));
    else if (column == QualityColumn)
        setQuality(row, Quality(choice));
    else {
        GeneratorSettings settings = tag(row).generator;
        settings.kind = generators().at(choice).kind;
        setGenerator(row, settings);
    }
    return {};
}

bool TagTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    const QString problem = edit(index.row(), index.column(), value);
    if (!problem.isEmpty())
        Q_EMIT refused(problem);
    return problem.isEmpty();
}

Qt::ItemFlags TagTable::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsEditable : flags;
}

QVariant TagTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QString titles[] = {tr("Name"), tr("Value"), tr("Type"), tr("Quality"), tr("Generator")};
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle && section >= 0 && section < ColumnCount
               ? titles[section]
               : QAbstractTableModel::headerData(section, orientation, role);
}

} // namespace NARV::DEV
