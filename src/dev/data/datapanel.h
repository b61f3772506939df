#pragma once

#include <QHash>
#include <QWidget>

#include <zpplugin_dev_export.h>

#include <functional>

class QAbstractItemModel;
class QBoxLayout;
class QLabel;
class QSplitter;
class QTableView;
class QTimer;
class QToolButton;

namespace NARV::DEV {

class TestData;

//! What the panels of the test data have in common: a row of buttons, a table of a model with a
//! filter, beside or above it what belongs to the current row, and a line for messages.
class ZPPLUGIN_DEV_EXPORT DataPanel : public QWidget
{
    Q_OBJECT

public:
    //! The table's current row, in the model; -1 for none.
    int currentRow() const;
    void setCurrentRow(int row);

protected:
    //! Data and its model have to outlive the panel. The name is the panel's object name and the
    //! beginning of those of its parts.
    DataPanel(TestData &testData, QAbstractItemModel &model, const QString &name,
              const QString &title);
    ~DataPanel() override;

    QTableView &table() { return *m_table; }
    //! Also in the menu of the table, where the key is pressed. Its name is that of its icon.
    QToolButton *addButton(const QString &name, const QString &text,
                           const std::function<void()> &act, const QKeySequence &key = {});
    QToolButton *button(const QString &name) const { return m_buttons.value(name); }
    void allow(const char *button, bool isAllowed);
    void addGap();
    //! What belongs to the current row; the panel owns it.
    void setDetails(QWidget *details);
    //! For a few seconds.
    void showMessage(const QString &text);
    //! Says that a row is gone, with a button that calls takeBack(), which returns the row; until
    //! another message, or until rows come or go.
    void showRemoved(const QString &name, const std::function<int()> &takeBack);
    //! Another row is current, or has changed.
    virtual void showCurrent() = 0;

    void resizeEvent(QResizeEvent *event) override;

    TestData &m_data;

private:
    class Rows;
    void buildMessage();
    void buildTable(QAbstractItemModel &model, const QString &title);
    void connectModel(QAbstractItemModel &model);
    void withdrawOffer();
    void rowsChanged(int first, int last);

    QHash<QString, QToolButton *> m_buttons;
    QBoxLayout *m_bar;
    QSplitter *m_splitter;
    Rows *m_proxy;
    QTableView *m_table;
    QWidget *m_messageBar;
    QLabel *m_message;
    QToolButton *m_takeBackButton;
    std::function<int()> m_takeBack; // empty for no offer
    QTimer *m_messageTimer;
};

} // namespace NARV::DEV
