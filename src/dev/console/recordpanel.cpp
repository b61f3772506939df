#include "console/recordpanel.h"

#include "console/tailfiltermodel.h"
#include "window/icons.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDateTime>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSaveFile>
#include <QScrollBar>
#include <QTableView>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>

#include <algorithm>

namespace NARV::DEV {

static const int roomyLetters = 60; //!< a panel of that width shows all its columns
static const int filterLetters = 5;
static const int rowMargin = 4;
static const int columnMargin = 16;

RecordPanel::RecordPanel(TailFilterModel *model, const QString &subject, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_subject(subject)
    , m_filterRow(new QWidget)
    , m_words(new QLineEdit)
    , m_toolBar(new QToolBar)
    , m_table(new QTableView)
    , m_status(new QLabel)
{
    m_model->setParent(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_filterRow);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_status);
    m_status->setObjectName(QStringLiteral("status"));
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_status->setIndent(rowMargin);
    buildFilterRow();
    buildTable();
    buildActions();
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_model, signal, this, &RecordPanel::showStatus);
    connect(m_model, &QAbstractItemModel::modelReset, this, &RecordPanel::showStatus);
    connect(m_model, &TailFilterModel::waitingRowsChanged, this, &RecordPanel::showStatus);
    showStatus();
}

void RecordPanel::buildFilterRow()
{
    auto *layout = new QHBoxLayout(m_filterRow);
    layout->setContentsMargins(2, 2, 2, 0);
    layout->addWidget(m_words, 1);
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setAccessibleName(tr("Filter by words"));
    m_words->setPlaceholderText(tr("Filter"));
    m_words->setToolTip(tr("Shows %1 that contain all of these words").arg(m_subject));
    m_words->setClearButtonEnabled(true);
    m_words->addAction(benchIcon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    m_words->setMinimumWidth(m_words->fontMetrics().averageCharWidth() * 2 * filterLetters);
    // A hundred thousand records are not looked through at every letter.
    auto *delay = new QTimer(this);
    delay->setSingleShot(true);
    delay->setInterval(150);
    connect(m_words, &QLineEdit::textChanged, delay, QOverload<>::of(&QTimer::start));
    connect(delay, &QTimer::timeout, this, [this] { m_model->setWords(m_words->text()); });
}

void RecordPanel::buildTable()
{
    m_table->setObjectName(QStringLiteral("records"));
    m_table->setAccessibleName(m_subject);
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setMinimumSectionSize(fontMetrics().height());
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowMargin);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(m_table->verticalScrollBar(), &QScrollBar::actionTriggered, this,
            // The slider has not moved yet.
            [this] { QTimer::singleShot(0, this, &RecordPanel::scrolled); });
    const auto follow = [this] {
        if (m_follow->isChecked())
            m_table->scrollToBottom();
    };
    connect(m_model, &QAbstractItemModel::rowsInserted, this, follow);
    connect(m_model, &QAbstractItemModel::modelReset, this, follow);
    // Also what came while the panel was hidden, and when the table becomes lower.
    connect(m_table->verticalScrollBar(), &QScrollBar::rangeChanged, this, follow);
}

void RecordPanel::buildActions()
{
    m_toolBar->setAccessibleName(tr("Actions for %1").arg(m_subject));
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_toolBar->setIconSize(QSize(size, size));
    QAction *pause = addAction(QStringLiteral("pause"), "pause", tr("Pause"));
    pause->setCheckable(true);
    connect(pause, &QAction::toggled, m_model, &TailFilterModel::setPaused);
    m_follow = addAction(QStringLiteral("follow"), "down", tr("Follow the newest"));
    m_follow->setCheckable(true);
    m_follow->setChecked(true);
    connect(m_follow, &QAction::toggled, this, &RecordPanel::setFollowing);
    QAction *copy =
        addAction(QStringLiteral("copy"), "copy", tr("Copy selection"), QKeySequence::Copy);
    connect(copy, &QAction::triggered, this, &RecordPanel::copySelection);
    QAction *save = addAction(QStringLiteral("save"), "save", tr("Save to a file..."));
    connect(save, &QAction::triggered, this, &RecordPanel::askAndSave);
    QAction *clear = addAction(QStringLiteral("clear"), "clear", tr("Clear"));
    connect(clear, &QAction::triggered, this, [this] { clearRecords(); });
}

QComboBox *RecordPanel::addFilter(const QString &name, const QString &accessibleName)
{
    auto *box = new QComboBox;
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->setToolTip(accessibleName);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(filterLetters);
    m_filterRow->layout()->addWidget(box);
    return box;
}

QAction *RecordPanel::addAction(const QString &name, const char *icon, const QString &text,
                                const QKeySequence &shortcut)
{
    QAction *action = m_toolBar->addAction(benchIcon(QLatin1String(icon)), text);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_table->addAction(action);
    QWidget *button = m_toolBar->widgetForAction(action);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(text);
    return action;
}

void RecordPanel::addRow(QWidget *widget)
{
    auto *box = static_cast<QVBoxLayout *>(layout());
    box->insertWidget(box->indexOf(m_table), widget);
}

void RecordPanel::setColumnSamples(const QStringList &samples)
{
    for (int i = 0; i < samples.size(); ++i)
        m_table->setColumnWidth(i, fontMetrics().horizontalAdvance(samples[i]) + columnMargin);
}

void RecordPanel::setSpareColumns(const QVector<int> &columns)
{
    m_spareColumns = columns;
}

void RecordPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const bool isRoomy = width() >= roomyLetters * fontMetrics().averageCharWidth();
    for (int column : qAsConst(m_spareColumns))
        m_table->setColumnHidden(column, !isRoomy);
}

void RecordPanel::setFollowing(bool isFollowing)
{
    if (isFollowing)
        m_table->scrollToBottom();
}

//! Who scrolls up wants to read; who scrolls to the end wants to see what comes.
void RecordPanel::scrolled()
{
    const QScrollBar *bar = m_table->verticalScrollBar();
    m_follow->setChecked(bar->value() == bar->maximum());
}

void RecordPanel::showStatus()
{
    const QLocale locale;
    const int shown = m_model->rowCount();
    const int all = m_model->sourceModel()->rowCount();
    const int waiting = m_model->waitingRows();
    QString text = shown == all ? locale.toString(all)
                                : tr("%1 of %2").arg(locale.toString(shown), locale.toString(all));
    if (m_model->isPaused())
        text += tr(", paused: %1 new").arg(locale.toString(waiting));
    m_status->setText(text);
}

QString RecordPanel::rowText(int row) const
{
    QStringList cells;
    for (int column = 0; column < m_model->columnCount(); ++column)
        cells += m_model->index(row, column).data().toString();
    return cells.join(QLatin1Char('\t'));
}

void RecordPanel::copySelection() const
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex &index : qAsConst(rows))
        lines += rowText(index.row());
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

bool RecordPanel::saveTo(const QString &path, QString &problem) const
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        for (int row = 0; row < m_model->rowCount(); ++row)
            stream << rowText(row) << '\n';
        stream.flush();
        if (stream.status() == QTextStream::Ok && file.flush() && file.commit())
            return true;
    }
    problem = tr("%1 could not be written: %2").arg(path, file.errorString());
    return false;
}

void RecordPanel::askAndSave()
{
    auto *dialog = new QFileDialog(this, tr("Save %1").arg(m_subject));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    dialog->setNameFilters(
        {tr("Text, tabs between the columns (*.txt *.tsv *.log)"), tr("All files (*)")});
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    dialog->selectFile(QStringLiteral("%1-%2.txt").arg(objectName(), time));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        QString message;
        if (saveTo(path, message))
            message = tr("Saved to %1").arg(path);
        m_status->setText(message);
        m_status->setToolTip(message);
    });
    dialog->open();
}

} // namespace NARV::DEV
