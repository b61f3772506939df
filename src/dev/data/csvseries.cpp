#include "data/csvseries.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

#include <cmath>

namespace NARV::DEV {

static constexpr qint64 mostBytes = 16 * 1024 * 1024;
static constexpr int mostRows = 200000;
static constexpr int longestLine = 4096;
static constexpr int mostProblems = 20;
static constexpr double mostSeconds = 1e10;

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::CsvSeries", text);
}

//! Reads the lines one after another and notes every fault with its place.
class CsvSeriesReader
{
public:
    CsvSeriesReader(const QString &fileName, CsvValues values)
        : m_fileName(fileName)
        , m_values(values)
    {
    }

    CsvSeries read(const QByteArray &content);

private:
    void readLine(const QString &line);
    QStringList cellsOf(const QString &line);
    bool isHeading(const QStringList &cells) const;
    bool fitsWidth(const QStringList &cells);
    void readRow(const QStringList &cells);
    bool readTime(const QString &cell, qint64 &time);
    bool readValue(const QString &cell, QVariant &value);
    bool readQuality(const QString &cell, Quality &quality);
    void fail(const QString &reason, int column = 0);

    QString m_fileName;
    CsvValues m_values;
    CsvSeries m_series;
    bool m_isOver = false; // nothing behind is worth reading
    int m_line = 0;
    int m_width = 0; // cells a row; 0 before the first one
};

void CsvSeriesReader::fail(const QString &reason, int column)
{
    if (m_series.problems.size() == mostProblems)
        return;
    QString place = m_fileName;
    if (m_line > 0)
        place += tr(", line %1").arg(m_line);
    if (column > 0)
        place += tr(", column %1").arg(column);
    m_series.problems.append(QStringLiteral("%1: %2").arg(place, reason));
    m_isOver = m_series.problems.size() >= mostProblems;
}

CsvSeries CsvSeriesReader::read(const QByteArray &content)
{
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(content.constData(), content.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        fail(tr("The file is not in UTF-8"));
    for (int begin = 0; begin < text.size() && !m_isOver;) {
        int end = text.indexOf(QLatin1Char('\n'), begin);
        end = end < 0 ? text.size() : end;
        ++m_line;
        readLine(text.mid(begin, end - begin).trimmed());
        begin = end + 1;
    }
    m_line = 0;
    if (m_series.points.isEmpty() && m_series.problems.isEmpty())
        fail(tr("The file holds no values"));
    if (!m_series.problems.isEmpty())
        m_series.points.clear();
    return m_series;
}

void CsvSeriesReader::readLine(const QString &line)
{
    if (line.isEmpty())
        return;
    if (line.size() > longestLine)
        return fail(tr("The line has more than %1 characters").arg(longestLine));
    const QStringList cells = cellsOf(line);
    if (cells.isEmpty() || (m_width == 0 && isHeading(cells)) || !fitsWidth(cells))
        return;
    if (m_series.points.size() < mostRows)
        return readRow(cells);
    fail(tr("There are more than %1 rows").arg(mostRows));
    m_isOver = true;
}

QStringList CsvSeriesReader::cellsOf(const QString &line)
{
    QStringList cells{QString()};
    bool isQuoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar letter = line.at(i);
        if (letter == QLatin1Char('"')) {
            if (isQuoted && i + 1 < line.size() && line.at(i + 1) == letter)
                cells.last() += line.at(i++);
            else
                isQuoted = !isQuoted;
        } else if (letter == QLatin1Char(',') && !isQuoted) {
            cells.append(QString());
        } else {
            cells.last() += letter;
        }
    }
    if (!isQuoted)
        return cells;
    fail(tr("A double quote is not closed"), cells.size());
    return {};
}

bool CsvSeriesReader::isHeading(const QStringList &cells) const
{
    if (m_line > 1 || (cells.size() == 1 && m_values == CsvValues::Texts))
        return false;
    for (const QString &cell : cells) {
        bool isNumber = false;
        cell.toDouble(&isNumber);
        if (isNumber || QDateTime::fromString(cell, Qt::ISODateWithMs).isValid())
            return false;
    }
    return true;
}

bool CsvSeriesReader::fitsWidth(const QStringList &cells)
{
    if (cells.size() > 3) {
        fail(tr("A row is a time, a value and a quality, no more"), 4);
        return false;
    }
    if (m_width == 0)
        m_width = cells.size();
    if (m_width == cells.size())
        return true;
    fail(tr("The row has %1 cells, the rows before have %2").arg(cells.size()).arg(m_width));
    return false;
}

void CsvSeriesReader::readRow(const QStringList &cells)
{
    CsvSeries::Point point{m_series.points.size(), {}, Quality::Good};
    const bool isTimed = cells.size() > 1;
    bool isGood = !isTimed || readTime(cells.at(0).trimmed(), point.time);
    isGood = readValue(cells.at(isTimed ? 1 : 0), point.value) && isGood;
    isGood = readQuality(cells.value(2).trimmed(), point.quality) && isGood;
    if (isGood)
        m_series.points.append(point);
}

bool CsvSeriesReader::readTime(const QString &cell, qint64 &time)
{
    bool isNumber = false;
    const double seconds = cell.toDouble(&isNumber);
    const QDateTime date = isNumber ? QDateTime() : QDateTime::fromString(cell, Qt::ISODateWithMs);
    const auto times = isNumber ? CsvSeries::Times::Seconds : CsvSeries::Times::Absolute;
    const auto &points = m_series.points;
    if (isNumber ? !(std::abs(seconds) <= mostSeconds) : !date.isValid())
        fail(tr("“%1” is no time: seconds or an ISO 8601 date and time").arg(cell.left(40)), 1);
    else if (!points.isEmpty() && m_series.times != times)
        fail(tr("Seconds and dates are mixed"), 1);
    else if (time = isNumber ? qRound64(seconds * 1000) : date.toMSecsSinceEpoch();
             !points.isEmpty() && time <= points.last().time)
        fail(tr("The time is not later than that of the row before"), 1);
    else {
        m_series.times = times;
        return true;
    }
    return false;
}

bool CsvSeriesReader::readValue(const QString &cell, QVariant &value)
{
    if (m_values == CsvValues::Texts) {
        value = cell;
        return true;
    }
    if (cell.trimmed().isEmpty())
        return true; // a gap
    bool isNumber = false;
    value = cell.trimmed().toDouble(&isNumber);
    if (!isNumber)
        fail(tr("“%1” is not a number").arg(cell.trimmed().left(40)), m_width > 1 ? 2 : 1);
    return isNumber;
}

bool CsvSeriesReader::readQuality(const QString &cell, Quality &quality)
{
    if (cell.isEmpty() || qualityFromName(cell, quality))
        return true;
    fail(tr("“%1” is no quality: good, uncertain or bad").arg(cell.left(40)), 3);
    return false;
}

CsvSeries parseCsvSeries(const QByteArray &content, const QString &fileName, CsvValues values)
{
    return CsvSeriesReader(fileName, values).read(content);
}

static CsvSeries failed(const QString &problem)
{
    CsvSeries series;
    series.problems.append(problem);
    return series;
}

static CsvSeries failed(const QString &fileName, const QString &reason)
{
    return failed(QStringLiteral("%1: %2").arg(fileName, reason));
}

CsvSeries readCsvSeries(const QString &filePath, CsvValues values)
{
    const QFileInfo info(filePath);
    if (filePath.isEmpty())
        return failed(tr("Choose a CSV file"));
    if (!info.isFile())
        return failed(info.fileName(), tr("There is no such file"));
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly))
        return failed(info.fileName(), file.errorString());
    const QByteArray content = file.read(mostBytes + 1);
    if (content.size() > mostBytes)
        return failed(info.fileName(), tr("The file is larger than 16 MiB"));
    return parseCsvSeries(content, info.fileName(), values);
}

} // namespace NARV::DEV
