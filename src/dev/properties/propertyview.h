#pragma once

#include "properties/propertymodel.h"

#include <QSet>
#include <QTreeView>

namespace NARV::DEV {

class PropertyFilter;

//! The property tree with its keys and its menu. Opens groups as they were left for the last
//! widget.
class ZPPLUGIN_DEV_EXPORT PropertyView : public QTreeView
{
    Q_OBJECT

public:
    //! Model and filter have to outlive the view.
    PropertyView(PropertyModel &model, PropertyFilter &filter, QWidget *parent = nullptr);

    //! Makes the row current and opens its editor.
    void editValue(const QString &valueId);

Q_SIGNALS:
    void currentRowChanged(const QModelIndex &index);
    //! What was typed cannot be taken, and why.
    void refused(const QString &problem);

protected:
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    void resizeEvent(QResizeEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    struct Command;
    static const Command commands[];
    static const Command *commandOf(const QKeyEvent &event);
    void addCommands();

    void open(const QModelIndex &index);
    void editCurrent();
    void editBinding();
    void unbind();
    void resetCurrent();
    void addEntry();
    void removeEntry();
    void moveEntryUp();
    void moveEntryDown();

    QModelIndex currentSource(int column = PropertyModel::ValueColumn) const;
    void noteExpansion(const QModelIndex &index, bool isExpanded);
    void restoreExpansion(const QModelIndex &parent = {});

    PropertyModel &m_model;
    PropertyFilter &m_filter;
    QSet<QString> m_toggled; //!< paths of rows that are not as they are at first
};

} // namespace NARV::DEV
