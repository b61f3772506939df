#include "properties/referenceeditor.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>

namespace NARV::DEV {

static constexpr int shownRows = 8;
static constexpr int nameRole = Qt::UserRole;

ReferenceEditor::ReferenceEditor(QWidget *parent)
    : PropertyEditor(parent)
    , m_filter(new QLineEdit(this))
    , m_list(new QListView(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_filter);
    layout->addWidget(m_list);
    m_filter->setPlaceholderText(tr("Name or type"));
    m_filter->setAccessibleName(tr("Filter by name or type"));
    m_filter->installEventFilter(this);
    m_matches.setSourceModel(&m_names);
    m_matches.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setModel(&m_matches);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setUniformItemSizes(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setAccessibleName(tr("Names"));
    setFocusProxy(m_filter);
    connect(m_filter, &QLineEdit::textEdited, this, &ReferenceEditor::filter);
    connect(m_list, &QListView::clicked, this, [this] {
        setModified(true);
        finish(Next::Stay);
    });
}

void ReferenceEditor::addRow(const QString &text, const QString &name)
{
    auto *row = new QStandardItem(text);
    row->setData(name, nameRole);
    row->setToolTip(text);
    m_names.appendRow(row);
}

void ReferenceEditor::setKind(const ValueKind &kind)
{
    m_names.clear();
    addRow(tr("(none)"), QString());
    for (const Choice &choice : kind.choices)
        addRow(choice.detail.isEmpty() ? choice.text
                                       : tr("%1 (%2)").arg(choice.text, choice.detail),
               choice.value.toString());
    const int rows = qBound(2, m_names.rowCount(), shownRows);
    m_list->setFixedHeight(rows * (m_list->fontMetrics().height() + 4) + 2 * m_list->frameWidth());
}

void ReferenceEditor::filter(const QString &words)
{
    m_matches.setFilterFixedString(words);
    m_list->setCurrentIndex(m_matches.index(0, 0));
    setModified(true);
}

void ReferenceEditor::selectName(const QString &name)
{
    const QModelIndexList found = m_matches.match(m_matches.index(0, 0), nameRole, name, 1,
                                                  Qt::MatchExactly | Qt::MatchCaseSensitive);
    m_list->setCurrentIndex(found.value(0));
}

QVariant ReferenceEditor::value() const
{
    return m_list->currentIndex().data(nameRole).toString();
}

// A name that is not there (any more) stays until another is chosen.
void ReferenceEditor::setValue(const QVariant &value)
{
    m_filter->clear();
    m_matches.setFilterFixedString(QString());
    const QString name = value.toString();
    selectName(name);
    if (!m_list->currentIndex().isValid()) {
        addRow(tr("%1 (missing)").arg(name), name);
        selectName(name);
    }
    setModified(false);
}

QString ReferenceEditor::problem() const
{
    return m_list->currentIndex().isValid()
               ? QString()
               : tr("Nothing here is called \"%1\" or is of that type.").arg(m_filter->text());
}

// The list is led from the line above it.
bool ReferenceEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return PropertyEditor::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
                       key == Qt::Key_PageDown;
    if (!moves)
        return PropertyEditor::eventFilter(watched, event);
    QCoreApplication::sendEvent(m_list, event);
    setModified(true);
    return true;
}

} // namespace NARV::DEV
