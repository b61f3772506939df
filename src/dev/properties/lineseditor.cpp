#include "properties/lineseditor.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace NARV::DEV {

static constexpr int mostLines = 8; // more are scrolled

LinesEditor::LinesEditor(Enter enter, QWidget *parent)
    : PropertyEditor(parent)
    , m_enter(enter)
    , m_edit(new QPlainTextEdit(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit);
    m_edit->setTabChangesFocus(true);
    m_edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_edit->document()->setDocumentMargin(1);
    m_edit->setAccessibleName(tr("Text"));
    m_edit->installEventFilter(this);
    setFocusProxy(m_edit);
    connect(m_edit, &QPlainTextEdit::textChanged, this, [this] {
        setModified(true);
        grow();
    });
}

QString LinesEditor::text() const
{
    return m_edit->toPlainText();
}

void LinesEditor::setValue(const QVariant &value)
{
    m_edit->setPlainText(write(value));
    QTextCursor all(m_edit->document()); // from the end, so that the first line is in view
    all.movePosition(QTextCursor::End);
    all.movePosition(QTextCursor::Start, QTextCursor::KeepAnchor);
    m_edit->setTextCursor(all);
    setModified(false);
}

void LinesEditor::grow()
{
    const int count = qBound(1, m_edit->blockCount(), mostLines);
    const int height = count * m_edit->fontMetrics().lineSpacing() + 2 * m_edit->frameWidth() + 4;
    m_edit->setVerticalScrollBarPolicy(count < mostLines ? Qt::ScrollBarAlwaysOff
                                                         : Qt::ScrollBarAsNeeded);
    setMinimumHeight(height);
    resize(width(), qMax(height, count == 1 ? this->height() : height));
}

bool LinesEditor::isFinishing(const QKeyEvent &event) const
{
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    if (m_enter == Enter::BeginsALine)
        return event.modifiers() & Qt::ControlModifier;
    return !(event.modifiers() & Qt::ShiftModifier);
}

bool LinesEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !isFinishing(*static_cast<QKeyEvent *>(event)))
        return PropertyEditor::eventFilter(watched, event);
    finish(Next::Stay);
    return true;
}

} // namespace NARV::DEV
