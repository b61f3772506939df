#include "properties/propertyeditor.h"

#include <QApplication>
#include <QKeyEvent>

namespace NARV::DEV {

PropertyEditor::PropertyEditor(QWidget *parent)
    : QWidget(parent)
{
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    connect(qApp, &QApplication::focusChanged, this, &PropertyEditor::watchFocus);
}

// A widget that goes loses the focus when all but the plain QWidget is gone already.
PropertyEditor::~PropertyEditor()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void PropertyEditor::take()
{
    m_isModified = true;
    Q_EMIT edited();
}

// A view gives the focus back to itself only if the editor has it, not a widget inside.
void PropertyEditor::finish(Next next)
{
    if (isAncestorOf(QApplication::focusWidget()))
        setFocus();
    Q_EMIT finished(next);
}

// Dialogs of an editor, such as the one for colours, belong to it.
static bool belongsTo(const QWidget *widget, const QWidget *editor)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget == editor)
            return true;
    }
    return false;
}

// No new focus means that the window is not active any more, which does not end the editing.
void PropertyEditor::watchFocus(QWidget *old, QWidget *now)
{
    if (now && belongsTo(old, this) && !belongsTo(now, this))
        Q_EMIT finished(Next::Stay);
}

// Keys such as Escape and Delete are for the editor, not for shortcuts of the window.
bool PropertyEditor::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto modifiers = static_cast<QKeyEvent *>(event)->modifiers();
        event->setAccepted(!(modifiers & (Qt::ControlModifier | Qt::AltModifier)));
    }
    return QWidget::event(event);
}

QWidgetList PropertyEditor::tabStops() const
{
    QWidgetList stops;
    for (QWidget *child : findChildren<QWidget *>()) {
        const bool isStop = (child->focusPolicy() & Qt::TabFocus) && !child->focusProxy();
        if (isStop && child->isVisibleTo(this) && child->isEnabled())
            stops += child;
    }
    return stops;
}

bool PropertyEditor::focusNextPrevChild(bool next)
{
    const QWidgetList stops = tabStops();
    const int current = stops.indexOf(QApplication::focusWidget());
    QWidget *stop = stops.value(current + (next ? 1 : -1), nullptr);
    if (current >= 0 && stop)
        stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    else
        finish(next ? Next::Following : Next::Preceding);
    return true;
}

void PropertyEditor::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        finish(Next::Stay);
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    // Nothing that is typed here is meant for the tree.
    event->accept();
}

} // namespace NARV::DEV
