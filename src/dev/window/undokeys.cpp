#include "window/undokeys.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

namespace NARV::DEV {

//! Null for a widget into which nobody types a line.
static QLineEdit *lineOf(QObject *box)
{
    return qobject_cast<QAbstractSpinBox *>(box) ? box->findChild<QLineEdit *>()
                                                 : qobject_cast<QLineEdit *>(box);
}

static bool isBoxOf(const QObject *bench, const QObject *box)
{
    while (box && box != bench && !qobject_cast<const QAbstractItemView *>(box))
        box = box->parent();
    return box == bench;
}

UndoKeys::UndoKeys(QWidget *bench)
    : QObject(bench)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *left, QWidget *entered) {
        if (left)
            left->removeEventFilter(this);
        if (lineOf(entered) && isBoxOf(parent(), entered))
            entered->installEventFilter(this);
    });
}

UndoKeys::~UndoKeys() = default;

bool UndoKeys::eventFilter(QObject *box, QEvent *event)
{
    QLineEdit *line = lineOf(box);
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!line || (!isPress && event->type() != QEvent::ShortcutOverride))
        return QObject::eventFilter(box, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (isPress &&
        (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) // then it is taken
        QTimer::singleShot(0, line, [line] { line->setModified(false); });
    const bool isTyped = line->isModified() && line->isUndoAvailable();
    const bool isForPage = (key->matches(QKeySequence::Undo) && !isTyped) ||
                           (key->matches(QKeySequence::Redo) && !line->isRedoAvailable());
    if (isPress || !isForPage)
        return QObject::eventFilter(box, event);
    event->ignore(); // not wanted here
    return true;
}

} // namespace NARV::DEV
