#pragma once

#include "terminal/terminal.h"

#include <QStringList>
#include <QVector>

namespace ZPPluginTool {

//! One column of a table.
struct TableColumn
{
    QString heading;
    bool alignRight = false;
    bool mayShrink = false; //!< its texts may be cut when the terminal is too narrow
};

//! Rows of texts below headings, as wide as they need to be and no wider than the terminal.
class Table
{
public:
    explicit Table(const QVector<TableColumn> &columns);

    void addRow(const QStringList &cells);
    void print(Terminal &terminal) const;

private:
    QVector<int> widths(int terminalWidth) const;
    QString line(const QStringList &cells, const QVector<int> &widths) const;

    QVector<TableColumn> m_columns;
    QVector<QStringList> m_rows;
};

} // namespace ZPPluginTool
