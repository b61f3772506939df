#pragma once

#include "data/csvseries.h"

#include <NARV/WidgetActionManager>

#include <QAbstractTableModel>
#include <QDateTime>
#include <QVector>

#include <zpplugin_dev_export.h>

#include <deque>
#include <memory>

namespace NARV::DEV {

class SimulationClock;
class TagTable;

//! A trend as a scene file keeps it: the history of a tag, or what stands in a CSV file.
struct Trend
{
    static constexpr int shortestInterval = 50;
    static constexpr int longestInterval = 60 * 60 * 1000;
    static constexpr int mostSamples = 100000;

    QString name;
    QString tagName;
    QString file;        //!< not empty for a trend from a file; relative to the scene's folder
    int interval = 500;  //!< milliseconds between two samples of a tag
    int capacity = 7200; //!< samples kept of a tag; the oldest go first
};

//! The trends of the simulated machine, a row each.
//!
//! Seconds in a CSV file count from the start of the clock and may be negative.
class ZPPLUGIN_DEV_EXPORT TrendStore : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        SourceColumn, //!< the name of a tag or of a file
        IntervalColumn,
        CapacityColumn,
        SamplesColumn,
        ColumnCount
    };

    //! Tags and clock have to outlive the store.
    TrendStore(const TagTable &tags, const SimulationClock &clock, QObject *parent = nullptr);
    ~TrendStore() override;

    int find(const QString &name) const;
    bool contains(const QString &name) const { return find(name) >= 0; }
    QStringList names() const;
    const Trend &trend(int row) const;
    //! The faults of a trend's CSV file; empty if there are none.
    QString problem(int row) const;

    //! The new row. A name that is taken gets a number.
    int add(const Trend &trend);
    void insert(int row, const Trend &trend);
    //! Makes it another one; of another tag nothing is known yet.
    void assign(int row, const Trend &trend);
    void remove(int row);
    //! Forgets what was recorded.
    void clear(int row);
    void replaceAll(const QVector<Trend> &trends);
    //! The trends of a tag that has another name go on with it.
    void renameTag(const QString &from, const QString &to);

    //! Takes a sample of each tag that is due, its value or, if it has none or of bad quality, a
    //! gap.
    void record();
    //! Notes that nothing is known from this time on until the next sample.
    void addGap(const QDateTime &from);
    //! Takes CSV files anew.
    void reload();

    //! The samples of a trend from one time to another, both included, in ascending time: a list
    //! of lists of time and value, and of the quality, 1 uncertain or 2 bad, if it is not good. An
    //! invalid value is a gap. An invalid time is no limit. Invalid if there is no such trend.
    //!
    //! Where there are more than count, they are divided into count / 2 equal parts, of each of
    //! which come the least and the greatest value in their order of time (the first and the last
    //! if the values are no numbers), or one of them and the gap if the part holds one.
    QVariant samples(const QString &name, const QDateTime &from, const QDateTime &to,
                     unsigned int count, WidgetActionManager::TrendTimeFormat format) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    void trendsChanged();
    void modified();
    void refused(const QString &reason);

private:
    using Point = CsvSeries::Point;
    struct Entry
    {
        Trend trend;
        std::deque<Point> history;
        std::shared_ptr<const CsvSeries> series;
    };

    QVariant display(int row, int column) const;
    QString edit(Trend &trend, int column, const QVariant &value) const;
    QVector<Point> pointsBetween(const Entry &entry, qint64 from, qint64 to) const;
    qint64 fileOffset(const Entry &entry) const;
    void load(Entry &entry) const;
    static void append(Entry &entry, const Point &point);
    void trendsHaveChanged();

    const TagTable &m_tags;
    const SimulationClock &m_clock;
    QVector<Entry> m_entries;
};

//! At most count of the points, as TrendStore::samples() says.
ZPPLUGIN_DEV_EXPORT QVector<CsvSeries::Point> decimate(const QVector<CsvSeries::Point> &points,
                                                       unsigned int count);

} // namespace NARV::DEV
