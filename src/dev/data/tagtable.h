#pragma once

#include "data/generator.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QVector>

#include <zpplugin_dev_export.h>

#include <functional>
#include <memory>

namespace NARV::DEV {

class CsvShelf;

//! A tag as a scene file keeps it.
struct Tag
{
    QString name;
    TagType type = TagType::Double;
    QVariant value; //!< as toTagValue() gives it; invalid for no value
    Quality quality = Quality::Good;
    GeneratorSettings generator;
};

//! The roles of the bench's tables beyond Qt's own.
enum TableRole
{
    ChoicesRole = Qt::UserRole, //!< what may be chosen for an item, as QStringList; none if invalid
    ProblemRole                 //!< what is wrong with an item, a text; none if invalid
};

//! The tags of the simulated machine, a row each.
//!
//! A view may edit it. What an edit may not be is refused, and refused() says why.
class ZPPLUGIN_DEV_EXPORT TagTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        ValueColumn,
        TypeColumn,
        QualityColumn,
        GeneratorColumn,
        ColumnCount
    };

    explicit TagTable(QObject *parent = nullptr);
    ~TagTable() override;

    //! The row of a tag; -1 if there is none of that name.
    int find(const QString &name) const;
    bool contains(const QString &name) const { return find(name) >= 0; }
    QStringList names() const;
    //! A row that exists, here and below.
    const Tag &tag(int row) const;
    //! What the world sees: the value, or what a scenario has put in its place.
    QVariant value(int row) const;
    Quality quality(int row) const;
    //! Why the generator does not work, such as the faults of its CSV file; empty if it does.
    QString problem(int row) const;

    //! The new row. A name that is taken gets a number.
    int add(const Tag &tag);
    void insert(int row, const Tag &tag);
    //! Makes it another one; the value that it has goes along with the type and the kind of
    //! generator.
    void assign(int row, const Tag &tag);
    int duplicate(int row);
    void remove(int row);
    //! These return why nothing was changed, empty if all went well.
    QString rename(int row, const QString &name);
    QString write(int row, const QVariant &value);
    //! The value stays as far as it converts.
    void setType(int row, TagType type);
    void setQuality(int row, Quality quality);
    void setGenerator(int row, const GeneratorSettings &settings);
    void replaceAll(const QVector<Tag> &tags);
    //! Relative CSV files are looked for here.
    void setBaseFolder(const QString &folder);
    //! What is in a CSV file, read once for all who ask.
    std::shared_ptr<const CsvSeries> series(const QString &file, CsvValues values) const;

    //! Lets the world see any value of any type in place of the tag's own, which goes on beneath,
    //! until it is released or written.
    void force(int row, const QVariant &value, Quality quality);
    bool isForced(int row) const;
    void release(const QStringList &names);

    //! Lets the generators give what they have at that time.
    void generate(qint64 elapsed);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    void tagChanged(const QString &name, const QVariant &value);
    //! Tags were added, removed or renamed, or have another type.
    void tagsChanged();
    void renamed(const QString &from, const QString &to);
    void modified();
    void refused(const QString &reason);
    //! CSV files have other content.
    void filesChanged();

private:
    struct Forced
    {
        QVariant value;
        Quality quality;
    };
    struct Entry
    {
        Tag tag;
        std::shared_ptr<const CsvSeries> series;
        std::shared_ptr<const Forced> forced;
    };

    QVariant display(int row, int column) const;
    QVariant choices(int column) const;
    QString edit(int row, int column, const QVariant &value);
    void rebuildIndex();
    void loadSeries(Entry &entry) const;
    void reload();
    void announce(int firstRow, int lastRow);
    void tellValue(int row);
    bool storeSample(Entry &entry, qint64 elapsed) const;

    QVector<Entry> m_entries;
    QHash<QString, int> m_rows;
    QString m_baseFolder;
    const std::unique_ptr<CsvShelf> m_shelf;
    qint64 m_elapsed = 0;
};

} // namespace NARV::DEV
