#include "output/table.h"

#include "terminal/text.h"

#include <numeric>

namespace ZPPluginTool {

static const int gap = 2;
static const int narrowest = 8;

Table::Table(const QVector<TableColumn> &columns)
    : m_columns(columns)
{
    QStringList headings;
    for (const TableColumn &column : columns)
        headings += column.heading;
    m_rows.append(headings);
}

void Table::addRow(const QStringList &cells)
{
    Q_ASSERT(cells.size() == m_columns.size());
    QStringList row;
    for (const QString &cell : cells)
        row += printable(cell);
    m_rows.append(row);
}

//! The widest column that may shrink, or -1.
static int widestToShrink(const QVector<TableColumn> &columns, const QVector<int> &widths)
{
    int widest = -1;
    for (int i = 0; i < columns.size(); ++i) {
        const bool shrinks = columns[i].mayShrink && widths[i] > narrowest;
        if (shrinks && (widest < 0 || widths[i] > widths[widest]))
            widest = i;
    }
    return widest;
}

QVector<int> Table::widths(int terminalWidth) const
{
    QVector<int> result(m_columns.size());
    for (const QStringList &row : m_rows) {
        for (int i = 0; i < row.size(); ++i)
            result[i] = qMax(result[i], ZPPluginTool::columns(row[i]));
    }
    if (terminalWidth == 0)
        return result;
    int total = std::accumulate(result.begin(), result.end(), gap * (result.size() - 1));
    while (total > terminalWidth) {
        const int widest = widestToShrink(m_columns, result);
        if (widest < 0)
            break;
        --result[widest];
        --total;
    }
    return result;
}

QString Table::line(const QStringList &cells, const QVector<int> &widths) const
{
    QString result;
    for (int i = 0; i < cells.size(); ++i) {
        const QString cell = elided(cells[i], widths[i]);
        const QString padding(widths[i] - ZPPluginTool::columns(cell), QLatin1Char(' '));
        result += m_columns[i].alignRight ? padding + cell : cell + padding;
        result += QString(gap, QLatin1Char(' '));
    }
    while (result.endsWith(QLatin1Char(' ')))
        result.chop(1);
    return result;
}

void Table::print(Terminal &terminal) const
{
    const QVector<int> columnWidths = widths(terminal.width());
    for (const QStringList &row : m_rows) {
        const QString text = line(row, columnWidths);
        terminal.print(&row == &m_rows.first() ? terminal.styled(text, Style::Bold) : text);
    }
}

} // namespace ZPPluginTool
