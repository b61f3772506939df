#pragma once

#include <QAbstractProxyModel>
#include <QStringList>

#include <zpplugin_dev_export.h>

#include <deque>

namespace NARV::DEV {

//! The rows of a RecordTable that a person wants to see. New rows are looked at once, as they come;
//! all rows only when the filter changes. The toolkit's own filter model would tell views of each
//! gap between hidden rows, which takes minutes with a hundred thousand.
//!
//! Works for tables that get rows at their end and lose rows at their front.
class ZPPLUGIN_DEV_EXPORT TailFilterModel : public QAbstractProxyModel
{
    Q_OBJECT

public:
    explicit TailFilterModel(QAbstractItemModel &source, QObject *parent = nullptr);

    //! Rows that contain all of these words, in any letter case.
    void setWords(const QString &words);
    //! While paused no new rows come up; afterwards those that came meanwhile do.
    void setPaused(bool isPaused);
    bool isPaused() const { return m_isPaused; }
    //! Rows of the source that came while paused and were not looked at.
    int waitingRows() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    QModelIndex mapToSource(const QModelIndex &index) const override;
    QModelIndex mapFromSource(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void waitingRowsChanged();

protected:
    virtual bool accepts(int sourceRow) const = 0;
    //! Whether each word is in one of the texts.
    bool hasWords(std::initializer_list<QString> texts) const;
    //! To be called when accepts() gives other answers.
    void filterChanged();
    //! To be called at the end of the constructor: looks at the rows that are there.
    void startAnew();

private:
    //! A row keeps its number while others go at the front.
    using Number = qint64;

    Number nextNumber() const { return m_dropped + sourceModel()->rowCount(); }
    std::deque<Number> acceptedFrom(Number first) const;
    void catchUp();
    void dropRows(int lastSourceRow);

    QStringList m_words;
    bool m_isPaused = false;
    std::deque<Number> m_rows; //!< the accepted ones
    Number m_dropped = 0;      //!< rows that the source has lost; the number of its first row
    Number m_next = 0;         //!< the first that was not looked at
};

} // namespace NARV::DEV
