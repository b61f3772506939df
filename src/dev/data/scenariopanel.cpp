#include "data/scenariopanel.h"

#include "data/scenario.h"
#include "data/scenarioplayer.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "window/icons.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace NARV::DEV {

ScenarioPanel::ScenarioPanel(TestData &testData)
    : m_data(testData)
    , m_tags(new QComboBox)
    , m_list(new QListWidget)
    , m_description(new QLabel)
    , m_run(new QPushButton(benchIcon(QStringLiteral("play")), tr("R&un")))
    , m_restore(new QPushButton(benchIcon(QStringLiteral("undo")), tr("Back to &normal")))
{
    buildLayout();
    fillTags();
    fillScenarios();
    connect(&testData, &TestData::tagsChanged, this, &ScenarioPanel::fillTags);
    connect(m_list, &QListWidget::currentRowChanged, this, &ScenarioPanel::showScenario);
    connect(m_list, &QListWidget::itemActivated, this, &ScenarioPanel::run);
    connect(m_run, &QPushButton::clicked, this, &ScenarioPanel::run);
    connect(m_restore, &QPushButton::clicked, &testData.scenarios(), &ScenarioPlayer::restore);
    connect(&testData.scenarios(), &ScenarioPlayer::activeChanged, this, [this] {
        showActive();
        showScenario(); // what was done is undone
    });
    showActive();
    showScenario();
}

ScenarioPanel::~ScenarioPanel() = default;

void ScenarioPanel::buildLayout()
{
    setObjectName(QStringLiteral("scenarios"));
    m_tags->setObjectName(QStringLiteral("scenarioTags"));
    m_tags->setAccessibleName(tr("Tags that a scenario is for"));
    m_tags->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_list->setObjectName(QStringLiteral("scenarioList"));
    m_list->setAccessibleName(tr("Scenarios"));
    m_list->setTabKeyNavigation(false);
    m_description->setObjectName(QStringLiteral("scenarioDescription"));
    m_description->setWordWrap(true);
    m_run->setObjectName(QStringLiteral("scenarioRun"));
    m_restore->setObjectName(QStringLiteral("scenarioRestore"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_run);
    buttons->addWidget(m_restore);
    buttons->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_tags);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_description);
    layout->addLayout(buttons);
}

void ScenarioPanel::fillTags()
{
    const QString chosen = m_tags->currentIndex() > 0 ? m_tags->currentText() : QString();
    m_tags->clear();
    m_tags->addItem(tr("All tags"));
    m_tags->addItems(m_data.tags().names());
    m_tags->setCurrentIndex(chosen.isEmpty() ? 0 : qMax(0, m_tags->findText(chosen)));
}

void ScenarioPanel::fillScenarios()
{
    for (const Scenario &scenario : scenarios()) {
        auto *item = new QListWidgetItem(scenario.title(), m_list);
        item->setToolTip(scenario.description());
    }
    m_list->setCurrentRow(0);
}

void ScenarioPanel::showActive()
{
    const QStringList &active = m_data.scenarios().active();
    m_restore->setEnabled(!active.isEmpty());
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem *item = m_list->item(row);
        const bool isActive = active.contains(scenarios().at(row).title());
        QFont font = m_list->font();
        font.setBold(isActive);
        item->setFont(font);
        item->setText(isActive ? tr("%1 (active)").arg(scenarios().at(row).title())
                               : scenarios().at(row).title());
    }
}

void ScenarioPanel::showScenario()
{
    const Scenario &scenario = scenarios().at(qMax(0, m_list->currentRow()));
    m_description->setText(scenario.description());
    m_tags->setEnabled(scenario.isForTags);
}

void ScenarioPanel::run()
{
    const Scenario &scenario = scenarios().at(qMax(0, m_list->currentRow()));
    const bool isForOne = scenario.isForTags && m_tags->currentIndex() > 0;
    const QStringList tags = isForOne ? QStringList{m_tags->currentText()} : QStringList();
    const int count = scenario.run(m_data, tags);
    const QString touched = scenario.isForTags ? tr("%1 (tags: %2)") : tr("%1 (alarms: %2)");
    m_description->setText(count > 0 ? touched.arg(scenario.title()).arg(count)
                                     : tr("%1: there is nothing it is for.").arg(scenario.title()));
}

} // namespace NARV::DEV
