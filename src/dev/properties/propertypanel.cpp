#include "properties/propertypanel.h"

#include "properties/propertyview.h"
#include "properties/sceneproperties.h"
#include "window/icons.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace NARV::DEV {

static constexpr int infoLines = 4;
static constexpr int leastWidth = 220;
static constexpr int pageWithTree = 0;
static constexpr int emptyPage = 1;

PropertyPanel::PropertyPanel(SceneDocument &document, QWidget *parent)
    : PropertyPanel(std::make_unique<SceneProperties>(document), parent)
{
}

PropertyPanel::PropertyPanel(std::unique_ptr<PropertySource> source, QWidget *parent)
    : PropertyPanel(*source, parent)
{
    m_ownSource = std::move(source);
}

PropertyPanel::PropertyPanel(PropertySource &source, QWidget *parent)
    : QWidget(parent)
    , m_source(source)
    , m_model(source)
    , m_name(new QLabel(this))
    , m_kind(new QLabel(this))
    , m_search(new QLineEdit(this))
    , m_view(nullptr)
    , m_noMatch(new QLabel(this))
    , m_pages(new QStackedLayout)
    , m_info(new QLabel(this))
    , m_infoArea(new QScrollArea(this))
{
    setMinimumWidth(leastWidth);
    m_filter.setSourceModel(&m_model);
    m_view = new PropertyView(m_model, m_filter, this);
    auto *tree = new QWidget(this);
    auto *layout = new QVBoxLayout(tree);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_name);
    layout->addWidget(m_kind);
    layout->addWidget(makeTools());
    layout->addWidget(m_view, 1);
    layout->addWidget(m_noMatch, 1);
    layout->addWidget(makeInfo());
    m_pages->addWidget(tree);
    m_pages->addWidget(makeEmptyState());
    setLayout(m_pages);

    QFont strong = m_name->font();
    strong.setBold(true);
    m_name->setWordWrap(true);
    m_name->setObjectName(QStringLiteral("widgetName"));
    m_name->setFont(strong);
    for (QLabel *label : {m_name, m_kind}) {
        label->setTextFormat(Qt::PlainText);
        label->setMinimumWidth(0);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

    connect(&m_model, &QAbstractItemModel::modelReset, this, &PropertyPanel::showWidget);
    connect(&m_filter, &QAbstractItemModel::modelReset, this, &PropertyPanel::showMatches);
    connect(&m_filter, &QAbstractItemModel::rowsInserted, this, &PropertyPanel::showMatches);
    connect(&m_filter, &QAbstractItemModel::rowsRemoved, this, &PropertyPanel::showMatches);
    connect(m_search, &QLineEdit::textChanged, this, &PropertyPanel::showMatches);
    connect(&m_model, &PropertyModel::notice, this,
            [this](const QString &text) { say(text.toHtmlEscaped(), true); });
    connect(m_view, &PropertyView::refused, this,
            [this](const QString &text) { say(text.toHtmlEscaped(), true); });
    connect(m_view, &PropertyView::currentRowChanged, this, &PropertyPanel::describe);
    showWidget();
    showMatches();
}

QToolButton *PropertyPanel::addButton(const char *icon, const QString &name, bool isCheckable)
{
    auto *button = new QToolButton(this);
    button->setIcon(benchIcon(QLatin1String(icon)));
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setAutoRaise(true);
    button->setCheckable(isCheckable);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QWidget *PropertyPanel::makeTools()
{
    auto *tools = new QWidget(this);
    auto *layout = new QHBoxLayout(tools);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_search, 1);
    m_search->setObjectName(QStringLiteral("propertySearch"));
    m_search->setPlaceholderText(tr("Search fields"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    QToolButton *hidden = addButton("filter", tr("Show hidden fields"), true);
    QToolButton *secret = addButton("lock", tr("Show private fields"), true);
    QToolButton *reset = addButton("reset", tr("Reset all fields"), false);
    hidden->setObjectName(QStringLiteral("showHidden"));
    secret->setObjectName(QStringLiteral("showPrivate"));
    reset->setObjectName(QStringLiteral("resetAll"));
    QWidget *last = m_search;
    for (QToolButton *button : {hidden, secret, reset}) {
        layout->addWidget(button);
        setTabOrder(last, button);
        last = button;
    }
    setTabOrder(last, m_view);
    setTabOrder(m_view, m_infoArea);
    connect(m_search, &QLineEdit::textChanged, &m_filter, &PropertyFilter::setWords);
    connect(hidden, &QToolButton::toggled, &m_filter, &PropertyFilter::setShowHidden);
    connect(secret, &QToolButton::toggled, &m_model, &PropertyModel::setShowPrivate);
    connect(reset, &QToolButton::clicked, &m_model, &PropertyModel::resetAll);
    return tools;
}

QWidget *PropertyPanel::makeEmptyState()
{
    auto *label = new QLabel(tr("Select a widget on the page to see and change its fields.\n\n"
                                "To place one, double-click it in the panel “Widgets”."),
                             this);
    label->setObjectName(QStringLiteral("propertyEmptyState"));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(16);
    return label;
}

// A long text is scrolled, so that the tree does not jump from row to row.
QWidget *PropertyPanel::makeInfo()
{
    m_noMatch->setObjectName(QStringLiteral("noMatch"));
    m_noMatch->setTextFormat(Qt::PlainText);
    m_noMatch->setWordWrap(true);
    m_noMatch->setAlignment(Qt::AlignCenter);
    m_info->setObjectName(QStringLiteral("propertyInfo"));
    m_info->setWordWrap(true);
    m_info->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_infoArea->setWidget(m_info);
    m_infoArea->setWidgetResizable(true);
    m_infoArea->setAccessibleName(tr("About the field"));
    m_infoArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_infoArea->setFrameStyle(int(QFrame::NoFrame) | int(QFrame::Plain));
    m_infoArea->installEventFilter(this); // shows the focus
    m_infoArea->setFixedHeight(infoLines * m_info->fontMetrics().lineSpacing() + 2);
    return m_infoArea;
}

//! The different kinds of widgets; empty if the library does not have one of them.
static QStringList kindsOf(const PropertySource &source)
{
    QStringList kinds;
    for (int i = 0; i < source.widgetCount(); ++i) {
        const WidgetMetaInformation &widget = source.description(i);
        if (!widget.isValid())
            return {};
        kinds +=
            PropertyPanel::tr("%1, version %2")
                .arg(widget.display().get(source.language(), true), widget.version().version());
    }
    kinds.removeDuplicates();
    return kinds;
}

void PropertyPanel::showWidget()
{
    m_pages->setCurrentIndex(m_source.hasWidget() ? pageWithTree : emptyPage);
    m_info->clear();
    leadFocus();
    const int count = m_source.widgetCount();
    if (count == 0)
        return;
    m_name->setText(count == 1 ? m_source.name(0) : tr("%1 widgets").arg(count));
    m_name->setToolTip(m_name->text());
    const QStringList kinds = kindsOf(m_source);
    const QString together = kinds.join(QStringLiteral("; "));
    if (kinds.isEmpty())
        m_kind->setText(count == 1 ? m_source.missingReason(0)
                                   : tr("The fields of some of them are not known"));
    else
        m_kind->setText(kinds.size() == 1 ? together
                                          : tr("What %1 kinds have in common").arg(kinds.size()));
    m_kind->setToolTip(kinds.size() > 1
                           ? together
                           : m_source.description(0).description().get(m_source.language(), true));
}

// The tree would be empty without a word.
void PropertyPanel::showMatches()
{
    const bool isEmpty = m_filter.rowCount() == 0;
    m_noMatch->setText(tr("No field fits \"%1\".").arg(m_search->text()));
    m_noMatch->setVisible(isEmpty);
    m_view->setVisible(!isEmpty);
    leadFocus();
}

// Tab does not get past a proxy that is hidden.
void PropertyPanel::leadFocus()
{
    const bool hasRows = m_source.hasWidget() && m_filter.rowCount() > 0;
    setFocusProxy(hasRows ? m_view : nullptr);
}

void PropertyPanel::describe(const QModelIndex &index)
{
    say(index.data(Qt::ToolTipRole).toString(), false);
}

void PropertyPanel::say(const QString &text, bool isProblem)
{
    m_info->setText(isProblem ? QStringLiteral("<b>⚠ %1</b>").arg(text) : text);
    m_info->setAccessibleName(text);
    m_info->setToolTip(text);
    m_infoArea->verticalScrollBar()->setValue(0);
}

void PropertyPanel::search()
{
    m_search->setFocus();
    m_search->selectAll();
}

void PropertyPanel::editField(const QString &fieldId)
{
    m_view->setFocus();
    m_view->editValue(fieldId);
}

// Down leads from the line to search on to what it has found; the description shows its focus.
bool PropertyPanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool comes = event->type() == QEvent::FocusIn;
    if (watched == m_infoArea && (comes || event->type() == QEvent::FocusOut))
        m_infoArea->setFrameShape(comes ? QFrame::Box : QFrame::NoFrame);
    const bool isDown =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down;
    if (watched == m_infoArea || !isDown)
        return QWidget::eventFilter(watched, event);
    m_view->setFocus();
    return true;
}

} // namespace NARV::DEV
