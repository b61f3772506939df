#include "data/alarmspanel.h"

#include "data/alarmeditor.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "window/icons.h"

#include <QHeaderView>
#include <QMenu>
#include <QTableView>
#include <QToolButton>

namespace NARV::DEV {

static const int roomyLetters = 50;

//! The buttons that act on the current alarm; names are those of icons.
static const struct
{
    const char *name;
    const char *text;
    int key;
    AlarmAction action;
} actionButtons[] = {
    {"alarm", QT_TRANSLATE_NOOP("NARV::DEV::AlarmsPanel", "Raise"), Qt::Key_F8, AlarmAction::Raise},
    {"clear", QT_TRANSLATE_NOOP("NARV::DEV::AlarmsPanel", "Clear"), Qt::SHIFT + Qt::Key_F8,
     AlarmAction::Clear},
    {"acknowledge", QT_TRANSLATE_NOOP("NARV::DEV::AlarmsPanel", "Acknowledge"), Qt::Key_F9,
     AlarmAction::Acknowledge},
    {"reset", QT_TRANSLATE_NOOP("NARV::DEV::AlarmsPanel", "Reset"), Qt::SHIFT + Qt::Key_F9,
     AlarmAction::Reset}};

AlarmsPanel::AlarmsPanel(TestData &testData)
    : DataPanel(testData, testData.alarms(), QStringLiteral("alarms"), tr("Alarms"))
    , m_editor(new AlarmEditor)
{
    addEditButtons();
    addActionButtons();
    setDetails(m_editor);
    QHeaderView *header = table().horizontalHeader();
    header->resizeSection(AlarmTable::NameColumn, 95);
    const QString &usual = alarmStateNames().at(AlarmInfo::StateTriggeredNotAcknowledged);
    header->resizeSection(AlarmTable::StateColumn, fontMetrics().horizontalAdvance(usual) + 12);
    header->resizeSection(AlarmTable::SeverityColumn, 85);
    header->resizeSection(AlarmTable::CauseColumn, 80);
    header->resizeSection(AlarmTable::TimeColumn, 70);
    connect(m_editor, &AlarmEditor::edited, this, [this](const Alarm &alarm) {
        if (currentRow() >= 0)
            m_data.edit([&] { m_data.alarms().edit(currentRow(), alarm); });
    });
    connect(&testData.alarms(), &AlarmTable::refused, this, &AlarmsPanel::showMessage);
    const auto setTags = [this] { m_editor->setTags(m_data.tags().names()); };
    connect(&testData, &TestData::tagsChanged, this, setTags);
    setTags();
    setCurrentRow(0);
}

AlarmsPanel::~AlarmsPanel() = default;

void AlarmsPanel::addActionButtons()
{
    for (const auto &entry : actionButtons)
        addButton(
            QLatin1String(entry.name), tr(entry.text),
            [this, action = entry.action] { m_data.alarms().apply(currentRow(), action); },
            entry.key);
    button(QStringLiteral("alarm"))->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addMenu();
}

void AlarmsPanel::addMenu()
{
    auto *more = addButton(QStringLiteral("more"), tr("More"), [] {});
    auto *menu = new QMenu(more);
    menu->addAction(benchIcon(QStringLiteral("acknowledge")), tr("Acknowledge &all"), this,
                    [this] { m_data.alarms().acknowledgeAll(); });
    menu->addAction(benchIcon(QStringLiteral("reset")), tr("&Reset all"), this,
                    [this] { m_data.alarms().resetAll(); });
    menu->addAction(tr("&Switch off or on"), this, [this] { toggleEnabled(); });
    QAction *duplicate = menu->addAction(benchIcon(QStringLiteral("duplicate")), tr("&Duplicate"),
                                         this, [this] { duplicateAlarm(); });
    duplicate->setShortcut(Qt::CTRL + Qt::Key_D);
    duplicate->setShortcutContext(Qt::WidgetShortcut);
    table().addAction(duplicate);
    more->defaultAction()->setMenu(menu);
    more->setPopupMode(QToolButton::InstantPopup);
}

void AlarmsPanel::addEditButtons()
{
    QToolButton *add = addButton(
        QStringLiteral("add"), tr("Add alarm"), [this] { addAlarm(); }, Qt::Key_Insert);
    add->setMinimumWidth(add->sizeHint().width());
    add->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addButton(
        QStringLiteral("remove"), tr("Remove alarm"), [this] { removeAlarm(); },
        QKeySequence::Delete);
    addGap();
}

// There are many buttons: in a narrow panel the text of one makes room.
void AlarmsPanel::resizeEvent(QResizeEvent *event)
{
    const bool isNarrow = width() < roomyLetters * fontMetrics().averageCharWidth();
    button(QStringLiteral("add"))
        ->setToolButtonStyle(isNarrow ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    DataPanel::resizeEvent(event);
}

void AlarmsPanel::showCurrent()
{
    const int row = currentRow();
    for (const auto &entry : actionButtons)
        allow(entry.name, row >= 0 && m_data.alarms().isPossible(row, entry.action));
    allow("remove", row >= 0);
    m_editor->setVisible(row >= 0);
    if (row >= 0)
        m_editor->show(m_data.alarms().alarm(row));
}

void AlarmsPanel::addAlarm()
{
    setCurrentRow(m_data.alarms().add(defaultAlarm(tr("alarm 1"))));
    table().setFocus();
    table().edit(table().currentIndex());
}

void AlarmsPanel::duplicateAlarm()
{
    if (currentRow() >= 0)
        m_data.edit([this] { setCurrentRow(m_data.alarms().duplicate(currentRow())); });
}

void AlarmsPanel::removeAlarm()
{
    const Alarm alarm = m_data.alarms().alarm(currentRow());
    const bool isPassing = m_data.alarms().isPassing(currentRow()); // it would come back to stay
    m_data.alarms().remove(currentRow());
    if (!isPassing)
        showRemoved(alarm.info.name, [this, alarm] { return m_data.alarms().add(alarm); });
}

void AlarmsPanel::toggleEnabled()
{
    const int row = currentRow();
    if (row >= 0 && !m_data.alarms().apply(row, AlarmAction::Enable))
        m_data.alarms().apply(row, AlarmAction::Disable);
}

} // namespace NARV::DEV
