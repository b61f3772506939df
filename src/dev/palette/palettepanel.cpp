#include "palette/palettepanel.h"

#include "palette/palettefilter.h"
#include "palette/palettemodel.h"
#include "session/pluginsession.h"
#include "window/icons.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStackedLayout>
#include <QTreeView>

namespace NARV::DEV {

static const int iconSize = 32;
static const int indentation = 12;
static const int leastWidth = 160;
static const int leastWidthWithVersions = 200;
static const int galleryAndGroup = 1; //!< the depth of headings that stand open

PalettePanel::PalettePanel(PluginSession &session, QWidget *parent)
    : QWidget(parent)
    , m_session(session)
    , m_model(new PaletteModel(session, this))
    , m_filter(new PaletteFilter(this))
    , m_words(new QLineEdit)
    , m_tree(new QTreeView)
    , m_empty(new QLabel)
    , m_pages(new QStackedLayout)
{
    setObjectName(QStringLiteral("palettePanel"));
    setAccessibleName(tr("Widget palette"));
    setMinimumWidth(leastWidth);
    m_filter->setSourceModel(m_model);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_words);
    layout->addLayout(m_pages, 1);
    m_pages->addWidget(m_tree);
    m_pages->addWidget(m_empty);
    m_empty->setObjectName(QStringLiteral("empty"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setMargin(indentation);
    buildFilter();
    buildTree();
    connect(&session, &PluginSession::loaded, this, &PalettePanel::showContent);
    connect(&session, &PluginSession::failed, this, &PalettePanel::showContent);
    connect(&session, &PluginSession::closed, this, &PalettePanel::showContent);
    showContent();
}

void PalettePanel::buildFilter()
{
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setAccessibleName(tr("Filter widgets by words"));
    m_words->setPlaceholderText(tr("Filter widgets"));
    m_words->setToolTip(tr("Enter places the first widget that fits"));
    m_words->setClearButtonEnabled(true);
    m_words->addAction(benchIcon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    m_words->installEventFilter(this);
    connect(m_words, &QLineEdit::textChanged, this, &PalettePanel::setWords);
    connect(m_words, &QLineEdit::returnPressed, this, [this] { place(firstWidget({})); });
}

void PalettePanel::buildTree()
{
    m_tree->setObjectName(QStringLiteral("widgets"));
    m_tree->setAccessibleName(tr("Widgets"));
    m_tree->setModel(m_filter);
    m_tree->setHeaderHidden(true);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(PaletteModel::NameColumn, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(PaletteModel::VersionColumn,
                                           QHeaderView::ResizeToContents);
    m_tree->setIndentation(indentation);
    m_tree->setIconSize(QSize(iconSize, iconSize));
    m_tree->setDragDropMode(QAbstractItemView::DragOnly);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setExpandsOnDoubleClick(false); // that places a widget
    connect(m_tree, &QTreeView::doubleClicked, this, &PalettePanel::place);
    for (int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(key, m_tree);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &PalettePanel::placeCurrent);
    }
}

void PalettePanel::resizeEvent(QResizeEvent *event)
{
    m_tree->setColumnHidden(PaletteModel::VersionColumn, width() < leastWidthWithVersions);
    QWidget::resizeEvent(event);
}

// Escape clears the words; without any it is for the window.
bool PalettePanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || m_words->text().isEmpty() ||
        static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return QWidget::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        m_words->clear();
    return true;
}

void PalettePanel::setLanguage(const QString &code)
{
    m_model->setLanguage(code);
    showContent();
}

void PalettePanel::setWords(const QString &words)
{
    m_filter->setWords(words);
    showContent();
}

//! Opens what is to be open, and says why if there is nothing to see.
void PalettePanel::showContent()
{
    const bool isEmpty = m_filter->rowCount() == 0;
    if (!m_session.isLoaded())
        m_empty->setText(tr("Open a plugin to see its widgets here."));
    else if (m_model->rowCount() == 0)
        m_empty->setText(tr("This library offers no widgets."));
    else
        m_empty->setText(tr("No widget fits \"%1\".").arg(m_words->text()));
    m_pages->setCurrentIndex(isEmpty ? 1 : 0);
    m_tree->expandToDepth(galleryAndGroup);
}

void PalettePanel::place(const QModelIndex &index)
{
    const QVariant id = index.data(PaletteModel::IdRole);
    if (id.isValid())
        Q_EMIT placeRequested(id.toString(), index.data(PaletteModel::VersionRole).toString());
    else
        m_tree->setExpanded(index, !m_tree->isExpanded(index));
}

void PalettePanel::placeCurrent()
{
    if (m_tree->currentIndex().isValid())
        place(m_tree->currentIndex());
}

QModelIndex PalettePanel::firstWidget(const QModelIndex &parent) const
{
    const QModelIndex first = m_filter->index(0, PaletteModel::NameColumn, parent);
    if (!first.isValid() || first.data(PaletteModel::IdRole).isValid())
        return first;
    return firstWidget(first);
}

} // namespace NARV::DEV
