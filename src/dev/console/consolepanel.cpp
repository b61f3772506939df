#include "console/consolepanel.h"

#include "console/logfiltermodel.h"
#include "console/patterncheck.h"
#include "window/icons.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace NARV::DEV {

//! The panel's own, with a model for it.
static LogFilterModel *newFilter(LogRelay &relay)
{
    auto *log = new LogModel(relay);
    auto *filter = new LogFilterModel(*log);
    log->setParent(filter);
    return filter;
}

ConsolePanel::ConsolePanel(LogRelay &relay, QWidget *parent)
    : ConsolePanel(newFilter(relay), relay, parent)
{
}

ConsolePanel::ConsolePanel(LogFilterModel *filter, LogRelay &relay, QWidget *parent)
    : RecordPanel(filter, tr("log records"), parent)
    , m_log(filter->log())
    , m_relay(relay)
    , m_filter(filter)
{
    setObjectName(QStringLiteral("console"));
    setAccessibleName(tr("Log console"));
    buildLevels();
    m_categories = addFilter(QStringLiteral("category"), tr("Category"));
    fillCategories();
    connect(&m_log, &LogModel::categoriesChanged, this, &ConsolePanel::fillCategories);
    connect(
        m_categories, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
            m_filter->setCategory(
                index > 0 ? std::optional(m_categories->itemData(index).toString()) : std::nullopt);
        });
    buildPattern();
    setColumnSamples({QStringLiteral("00:00:00.000"), QStringLiteral("XX Warning"),
                      QStringLiteral("PLUGIN_LOADING"), QStringLiteral("00000000")});
    setSpareColumns({LogModel::TimeColumn, LogModel::CategoryColumn, LogModel::SourceColumn});
}

void ConsolePanel::clearRecords()
{
    m_log.clear();
}

void ConsolePanel::buildLevels()
{
    QComboBox *levels = addFilter(QStringLiteral("level"), tr("Lowest level"));
    for (QtMsgType level : LogModel::levels()) {
        if (level != QtFatalMsg) // nobody lives to read those
            levels->addItem(LogModel::levelName(level), level);
    }
    connect(levels, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, levels] { m_filter->setLowestLevel(QtMsgType(levels->currentData().toInt())); });
}

void ConsolePanel::fillCategories()
{
    const QSignalBlocker blocker(m_categories);
    const QString current = m_categories->currentText();
    m_categories->clear();
    m_categories->addItem(tr("All"));
    for (const QString &category : m_log.categories())
        m_categories->addItem(category.isEmpty() ? tr("(none)") : category, category);
    m_categories->setCurrentIndex(qMax(0, m_categories->findText(current)));
}

//! Its menu puts a placeholder where the cursor is.
static QToolButton *newInsertButton(QLineEdit &edit)
{
    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("insertPlaceholder"));
    button->setText(ConsolePanel::tr("Insert"));
    button->setToolTip(ConsolePanel::tr("What a record can say"));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(button);
    const QStringList withFormat(QStringLiteral("%{TIME hh:mm:ss.zzz}"));
    for (const QString &placeholder : messagePatternPlaceholders() + withFormat)
        QObject::connect(menu->addAction(placeholder), &QAction::triggered, &edit,
                         [&edit, placeholder] {
                             edit.insert(placeholder);
                             edit.setFocus();
                         });
    button->setMenu(menu);
    return button;
}

void ConsolePanel::buildPattern()
{
    auto *row = new QWidget;
    auto *layout = new QGridLayout(row);
    layout->setContentsMargins(2, 0, 2, 0);
    auto *edit = new QLineEdit(m_relay.pattern());
    edit->setObjectName(QStringLiteral("pattern"));
    edit->setAccessibleName(tr("Message pattern"));
    edit->setPlaceholderText(tr("Message pattern, such as %{TYPE} %{FILE}:%{LINE} %{MESSAGE}"));
    edit->setToolTip(tr("How the text of new records is made"));
    m_patternProblem = new QLabel;
    m_patternProblem->setObjectName(QStringLiteral("patternProblem"));
    m_patternProblem->setWordWrap(true);
    layout->addWidget(edit, 0, 0);
    layout->addWidget(newInsertButton(*edit), 0, 1);
    layout->addWidget(m_patternProblem, 1, 0, 1, 2);
    row->hide();
    addRow(row);
    QAction *toggle = addAction(QStringLiteral("showPattern"), "properties", tr("Message pattern"));
    toggle->setCheckable(true);
    connect(toggle, &QAction::toggled, row, [row, edit](bool isOn) {
        row->setVisible(isOn);
        if (isOn)
            edit->setFocus();
    });
    connect(edit, &QLineEdit::textChanged, this, &ConsolePanel::checkPattern);
    checkPattern(edit->text());
}

//! A faulty pattern is shown, not used.
void ConsolePanel::checkPattern(const QString &pattern)
{
    const QString problem = messagePatternProblem(pattern);
    m_patternProblem->setText(problem);
    m_patternProblem->setVisible(!problem.isEmpty());
    if (problem.isEmpty())
        m_relay.setPattern(pattern);
}

} // namespace NARV::DEV
