#include "data/tagspanel.h"

#include "data/generatoreditor.h"
#include "data/tagtable.h"
#include "data/tagvalueeditor.h"
#include "data/testdata.h"
#include "data/trendstore.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace NARV::DEV {

TagsPanel::TagsPanel(TestData &testData)
    : DataPanel(testData, testData.tags(), QStringLiteral("tags"), tr("Tags"))
    , m_name(new QLabel)
    , m_value(new TagValueEditor)
    , m_generator(new GeneratorEditor)
    , m_problem(new QLabel)
    , m_details(new QWidget)
{
    addButtons();
    addDetails();
    table().horizontalHeader()->resizeSection(TagTable::NameColumn, 110);
    table().horizontalHeader()->resizeSection(TagTable::ValueColumn, 100);
    table().horizontalHeader()->resizeSection(TagTable::TypeColumn, 80);
    table().horizontalHeader()->resizeSection(TagTable::QualityColumn, 70);
    connect(&testData.tags(), &TagTable::refused, this, &TagsPanel::showMessage);
    setCurrentRow(0);
}

TagsPanel::~TagsPanel() = default;

void TagsPanel::addButtons()
{
    QToolButton *add = addButton(
        QStringLiteral("add"), tr("Add tag"), [this] { addTag(); }, Qt::Key_Insert);
    add->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addButton(
        QStringLiteral("duplicate"), tr("Duplicate tag"),
        [this] { setCurrentRow(m_data.tags().duplicate(currentRow())); }, Qt::CTRL + Qt::Key_D);
    addButton(
        QStringLiteral("remove"), tr("Remove tag"), [this] { removeTag(); }, QKeySequence::Delete);
    addButton(
        QStringLiteral("trend"), tr("Record a trend of the tag"), [this] { recordTrend(); },
        Qt::CTRL + Qt::Key_T);
    addGap();
}

void TagsPanel::addDetails()
{
    auto *layout = new QVBoxLayout(m_details);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(6);
    QFont bold = m_name->font();
    bold.setBold(true);
    m_name->setFont(bold);
    m_name->setTextFormat(Qt::PlainText);
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name is cut off
    m_problem->setObjectName(QStringLiteral("tagProblem"));
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    layout->addWidget(m_name);
    layout->addWidget(m_value);
    layout->addWidget(m_problem);
    layout->addWidget(m_generator);
    layout->addStretch(1);
    setDetails(m_details);
    connect(m_value, &TagValueEditor::edited, this, &TagsPanel::moveByHand);
    connect(m_generator, &GeneratorEditor::edited, this, [this](const auto &settings) {
        if (currentRow() >= 0)
            m_data.edit([&] { m_data.tags().setGenerator(currentRow(), settings); });
    });
}

void TagsPanel::showCurrent()
{
    const int row = currentRow();
    for (const char *name : {"duplicate", "remove", "trend"})
        allow(name, row >= 0);
    m_details->setVisible(row >= 0);
    if (row < 0)
        return;
    const Tag &tag = m_data.tags().tag(row);
    const QString problem = m_data.tags().problem(row);
    m_name->setText(tag.name);
    m_value->show(tag, m_data.tags().value(row));
    m_generator->show(tag.type, tag.generator);
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
}

void TagsPanel::addTag()
{
    Tag tag;
    tag.name = tr("tag 1");
    tag.value = 0.0;
    const int row = m_data.tags().add(tag);
    setCurrentRow(row);
    table().setFocus();
    table().edit(table().currentIndex());
}

void TagsPanel::removeTag()
{
    const Tag tag = m_data.tags().tag(currentRow());
    m_data.tags().remove(currentRow());
    showRemoved(tag.name, [this, tag] { return m_data.tags().add(tag); });
}

//! A generator would write over it at once, so it stops; its settings stay.
void TagsPanel::moveByHand(const QVariant &value)
{
    const int row = currentRow();
    if (row < 0)
        return;
    QVariant converted = value;
    const QString problem = toTagValue(m_data.tags().tag(row).type, converted);
    showMessage(problem);
    if (!problem.isEmpty())
        return;
    GeneratorSettings settings = m_data.tags().tag(row).generator;
    settings.kind = GeneratorKind::None;
    m_data.edit([&] {
        m_data.tags().setGenerator(row, settings);
        m_data.tags().write(row, converted);
    });
}

void TagsPanel::recordTrend()
{
    Trend trend;
    trend.tagName = m_data.tags().tag(currentRow()).name;
    trend.name = trend.tagName;
    const int row = m_data.trends().add(trend);
    showMessage(
        tr("“%1” is recorded as trend “%2”.").arg(trend.tagName, m_data.trends().trend(row).name));
}

} // namespace NARV::DEV
