#include "data/datapanel.h"

#include "data/choicedelegate.h"
#include "data/testdata.h"
#include "window/icons.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace NARV::DEV {

static constexpr int messageTime = 6000;
static constexpr int offerTime = 20000;

//! The rows that fit the filter. What is edited in them is done by a person.
class DataPanel::Rows : public QSortFilterProxyModel
{
public:
    Rows(TestData &data, QObject *parent)
        : QSortFilterProxyModel(parent)
        , m_data(data)
    {
    }

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        bool isTaken = false;
        m_data.edit([&] { isTaken = QSortFilterProxyModel::setData(index, value, role); });
        return isTaken;
    }

private:
    TestData &m_data;
};

DataPanel::DataPanel(TestData &testData, QAbstractItemModel &model, const QString &name,
                     const QString &title)
    : m_data(testData)
    , m_bar(new QHBoxLayout)
    , m_splitter(new QSplitter(Qt::Vertical))
    , m_proxy(new Rows(testData, this))
    , m_table(new QTableView)
    , m_messageBar(new QWidget)
    , m_message(new QLabel)
    , m_takeBackButton(new QToolButton)
    , m_messageTimer(new QTimer(this))
{
    setObjectName(name);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addLayout(m_bar);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(m_messageBar);
    m_bar->setSpacing(1);
    m_splitter->setChildrenCollapsible(false);
    buildMessage();
    buildTable(model, title);
    connectModel(model);
}

DataPanel::~DataPanel() = default;

void DataPanel::buildMessage()
{
    auto *layout = new QHBoxLayout(m_messageBar);
    layout->setContentsMargins({});
    layout->addWidget(m_message, 1);
    layout->addWidget(m_takeBackButton);
    m_message->setObjectName(objectName() + QLatin1String("Message"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_takeBackButton->setObjectName(objectName() + QLatin1String("TakeBack"));
    m_takeBackButton->setIcon(benchIcon(QStringLiteral("undo")));
    m_takeBackButton->setText(tr("Take back"));
    m_takeBackButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_takeBackButton->setFocusPolicy(Qt::StrongFocus);
    m_messageBar->hide();
    m_messageTimer->setSingleShot(true);
    connect(m_messageTimer, &QTimer::timeout, this, [this] { showMessage({}); });
    connect(m_takeBackButton, &QToolButton::clicked, this, [this] {
        const auto takeBack = m_takeBack; // as the row that comes withdraws the offer
        if (takeBack)
            m_data.edit([&] { setCurrentRow(takeBack()); });
        m_table->setFocus();
    });
}

void DataPanel::buildTable(QAbstractItemModel &model, const QString &title)
{
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins({});
    layout->setSpacing(4);
    auto *filter = new QLineEdit;
    filter->setObjectName(objectName() + QLatin1String("Filter"));
    filter->setPlaceholderText(tr("Filter"));
    filter->setAccessibleName(tr("Filter: %1").arg(title));
    filter->setClearButtonEnabled(true);
    layout->addWidget(filter);
    layout->addWidget(m_table);
    m_splitter->addWidget(side);

    m_proxy->setSourceModel(&model);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    connect(filter, &QLineEdit::textChanged, m_proxy, &QSortFilterProxyModel::setFilterFixedString);
    m_table->setObjectName(objectName() + QLatin1String("Table"));
    m_table->setAccessibleName(title);
    m_table->setModel(m_proxy);
    m_table->setItemDelegate(new ChoiceDelegate(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_table->setWordWrap(false);
    m_table->setAlternatingRowColors(true);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setMinimumHeight(70);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
}

void DataPanel::connectModel(QAbstractItemModel &model)
{
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { showCurrent(); });
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                rowsChanged(first.row(), last.row());
            });
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&model, change, this, &DataPanel::withdrawOffer);
    connect(&model, &QAbstractItemModel::modelReset, this, &DataPanel::withdrawOffer);
    connect(m_proxy, &QAbstractItemModel::modelReset, this, [this] { setCurrentRow(0); });
    connect(m_proxy, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex &, int row) {
        if (!m_table->currentIndex().isValid())
            m_table->setCurrentIndex(m_proxy->index(row, 0));
    });
    connect(m_proxy, &QAbstractItemModel::rowsRemoved, this, [this] { showCurrent(); });
}

void DataPanel::rowsChanged(int first, int last)
{
    const int row = currentRow();
    if (row >= first && row <= last)
        showCurrent();
}

int DataPanel::currentRow() const
{
    return m_proxy->mapToSource(m_table->currentIndex()).row();
}

void DataPanel::setCurrentRow(int row)
{
    const QModelIndex index = m_proxy->mapFromSource(m_proxy->sourceModel()->index(row, 0));
    m_table->setCurrentIndex(index);
    m_table->scrollTo(index);
    showCurrent();
}

QToolButton *DataPanel::addButton(const QString &name, const QString &text,
                                  const std::function<void()> &act, const QKeySequence &key)
{
    auto *action = new QAction(benchIcon(name), text, m_table);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setToolTip(key.isEmpty() ? text
                                     : QStringLiteral("%1 (%2)").arg(
                                           text, key.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, [this, act] { m_data.edit(act); });
    m_table->addAction(action);
    auto *button = new QToolButton;
    button->setObjectName(objectName() + QLatin1Char('.') + name);
    button->setDefaultAction(action);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    m_buttons.insert(name, button);
    m_bar->addWidget(button);
    return button;
}

void DataPanel::allow(const char *button, bool isAllowed)
{
    m_buttons.value(QLatin1String(button))->defaultAction()->setEnabled(isAllowed);
}

void DataPanel::addGap()
{
    m_bar->addStretch(1);
}

void DataPanel::setDetails(QWidget *details)
{
    auto *area = new QScrollArea;
    area->setObjectName(objectName() + QLatin1String("Details"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(details);
    area->setMinimumHeight(70);
    m_splitter->addWidget(area);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
}

void DataPanel::showMessage(const QString &text)
{
    m_takeBack = {};
    m_takeBackButton->hide();
    m_message->setText(text);
    m_messageBar->setVisible(!text.isEmpty());
    m_messageTimer->start(messageTime);
}

void DataPanel::showRemoved(const QString &name, const std::function<int()> &takeBack)
{
    showMessage(tr("“%1” was removed").arg(name));
    m_takeBack = takeBack;
    m_takeBackButton->show();
    m_messageTimer->start(offerTime);
}

void DataPanel::withdrawOffer()
{
    if (m_takeBack)
        showMessage({});
}

void DataPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const bool isWide = width() > 640 && width() > height();
    const auto orientation = isWide ? Qt::Horizontal : Qt::Vertical;
    if (m_splitter->orientation() == orientation)
        return;
    m_splitter->setOrientation(orientation);
    m_splitter->setSizes({isWide ? 4000 : 3000, 2000});
}

} // namespace NARV::DEV
