#include "data/trendspanel.h"

#include "data/tagtable.h"
#include "data/testdata.h"
#include "data/trendplot.h"
#include "data/trendstore.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTableView>
#include <QToolButton>

namespace NARV::DEV {

TrendsPanel::TrendsPanel(TestData &testData)
    : DataPanel(testData, testData.trends(), QStringLiteral("trends"), tr("Trends"))
    , m_plot(new TrendPlot)
{
    addButtons();
    setDetails(m_plot);
    table().horizontalHeader()->resizeSection(TrendStore::NameColumn, 110);
    table().horizontalHeader()->resizeSection(TrendStore::SourceColumn, 110);
    table().horizontalHeader()->resizeSection(TrendStore::CapacityColumn, 70);
    connect(&testData.trends(), &TrendStore::refused, this, &TrendsPanel::showMessage);
    setCurrentRow(0);
}

TrendsPanel::~TrendsPanel() = default;

void TrendsPanel::addButtons()
{
    QToolButton *add = addButton(
        QStringLiteral("add"), tr("Add trend"), [this] { addOfTag(); }, Qt::Key_Insert);
    add->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addButton(
        QStringLiteral("open"), tr("Add a trend from a CSV file"), [this] { addOfFile(); },
        Qt::SHIFT + Qt::Key_Insert);
    addButton(
        QStringLiteral("remove"), tr("Remove trend"), [this] { removeTrend(); },
        QKeySequence::Delete);
    addButton(
        QStringLiteral("clear"), tr("Forget what was recorded"),
        [this] { m_data.trends().clear(currentRow()); }, Qt::SHIFT + Qt::Key_Delete);
    addGap();
}

void TrendsPanel::showCurrent()
{
    const int row = currentRow();
    for (const char *name : {"remove", "clear"})
        allow(name, row >= 0);
    m_plot->setVisible(row >= 0);
    if (row < 0 || !m_plot->isVisible())
        return;
    constexpr unsigned int mostSamples = 400;
    const QString name = m_data.trends().trend(row).name;
    m_plot->show(
        m_data.trends()
            .samples(name, {}, {}, mostSamples, WidgetActionManager::MillisecondsSinceEpoch)
            .toList(),
        m_data.trends().problem(row));
}

void TrendsPanel::addOfTag()
{
    const QStringList tags = m_data.tags().names();
    if (tags.isEmpty())
        return showMessage(tr("A trend is the history of a tag: add a tag first."));
    Trend trend;
    trend.tagName = tags.first();
    for (const QString &tag : tags) { // one that has no trend yet
        if (!m_data.trends().contains(tag)) {
            trend.tagName = tag;
            break;
        }
    }
    trend.name = trend.tagName;
    setCurrentRow(m_data.trends().add(trend));
    table().setFocus();
    showMessage(tr("Choose its tag in the column Source."));
}

void TrendsPanel::addOfFile()
{
    auto *dialog = new QFileDialog(this, tr("Trend from a CSV file"), {}, tr("CSV files (*.csv)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &file) {
        Trend trend;
        trend.name = QFileInfo(file).completeBaseName();
        trend.file = file;
        m_data.edit([&] { setCurrentRow(m_data.trends().add(trend)); });
        const int row = currentRow();
        showMessage(m_data.trends().problem(row));
    });
    dialog->open();
}

void TrendsPanel::removeTrend()
{
    const Trend trend = m_data.trends().trend(currentRow());
    m_data.trends().remove(currentRow());
    showRemoved(trend.name, [this, trend] { return m_data.trends().add(trend); });
}

} // namespace NARV::DEV
