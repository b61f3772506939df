#pragma once

#include <QWidget>

#include <zpplugin_dev_export.h>

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;
class QToolBar;

namespace NARV::DEV {

class TailFilterModel;

//! A table of records that come in at its end, with a filter by words, and actions to pause, follow
//! the end, copy, save and clear. The console and the event list add what is theirs.
class ZPPLUGIN_DEV_EXPORT RecordPanel : public QWidget
{
    Q_OBJECT

public:
    //! Writes all rows that the filter lets through, a line a row, tabs between the columns. False,
    //! and the reason in problem, if that fails.
    bool saveTo(const QString &path, QString &problem) const;
    //! Puts the selected rows on the clipboard, as saveTo() writes them.
    void copySelection() const;

protected:
    //! The model belongs to this panel from now on. subject: "log records".
    RecordPanel(TailFilterModel *model, const QString &subject, QWidget *parent);

    //! A choice beside the words.
    QComboBox *addFilter(const QString &name, const QString &accessibleName);
    //! An action in the tool bar and in the menu of the table.
    QAction *addAction(const QString &name, const char *icon, const QString &text,
                       const QKeySequence &shortcut = {});
    //! Something between the tool bar and the table.
    void addRow(QWidget *widget);
    //! How wide the columns are at first: as wide as these texts; the last one takes the rest.
    void setColumnSamples(const QStringList &samples);
    //! Columns that are not shown where there is no room for them.
    void setSpareColumns(const QVector<int> &columns);
    virtual void clearRecords() = 0;

    void resizeEvent(QResizeEvent *event) override;

private:
    void buildFilterRow();
    void buildTable();
    void buildActions();
    void askAndSave();
    void setFollowing(bool isFollowing);
    void scrolled();
    void showStatus();
    QString rowText(int row) const;

    TailFilterModel *m_model;
    QString m_subject;
    QVector<int> m_spareColumns;
    QWidget *m_filterRow;
    QLineEdit *m_words;
    QToolBar *m_toolBar;
    QAction *m_follow = nullptr;
    QTableView *m_table;
    QLabel *m_status;
};

} // namespace NARV::DEV
