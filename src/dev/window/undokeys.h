#pragma once

#include <QObject>

class QWidget;

namespace NARV::DEV {

//! Lets the keys of undo and redo pass through a box in which nothing that was typed is left to
//! take back, so that they reach the page. An editor inside a list keeps them: it has a value that
//! is not the list's yet.
class UndoKeys : public QObject
{
    Q_OBJECT

public:
    //! For the boxes that get the focus inside the bench, which owns this.
    explicit UndoKeys(QWidget *bench);
    ~UndoKeys() override;

    bool eventFilter(QObject *box, QEvent *event) override;
};

} // namespace NARV::DEV
