#pragma once

#include "properties/propertyfilter.h"
#include "properties/propertymodel.h"

#include <QWidget>

#include <memory>

class QLabel;
class QLineEdit;
class QScrollArea;
class QStackedLayout;
class QToolButton;

namespace NARV::DEV {

class PropertyView;
class SceneDocument;

//! Shows and edits the fields of the selected widgets: their name, a line to search, the tree, and
//! what there is to say about the current row.
class ZPPLUGIN_DEV_EXPORT PropertyPanel : public QWidget
{
    Q_OBJECT

public:
    //! The source has to outlive the panel.
    explicit PropertyPanel(PropertySource &source, QWidget *parent = nullptr);
    //! For the selected widgets of the document, which has to outlive the panel.
    explicit PropertyPanel(SceneDocument &document, QWidget *parent = nullptr);

    //! Shows and hides rows as the requirements of their fields ask, with the values as they are.
    void updateRequirements() { m_model.updateRequirements(); }
    PropertyModel &model() { return m_model; }

public Q_SLOTS:
    //! Puts the focus into the line to search.
    void search();
    //! Opens the editor of a field.
    void editField(const QString &fieldId);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PropertyPanel(std::unique_ptr<PropertySource> source, QWidget *parent);
    QToolButton *addButton(const char *icon, const QString &name, bool isCheckable);
    QWidget *makeTools();
    QWidget *makeEmptyState();
    QWidget *makeInfo();
    void showWidget();
    void showMatches();
    void leadFocus();
    void describe(const QModelIndex &index);
    void say(const QString &text, bool isProblem);

    std::unique_ptr<PropertySource> m_ownSource; // if it is not somebody else's; goes last
    PropertySource &m_source;
    PropertyModel m_model;
    PropertyFilter m_filter;
    QLabel *m_name;
    QLabel *m_kind;
    QLineEdit *m_search;
    PropertyView *m_view;
    QLabel *m_noMatch; // in place of the tree
    QStackedLayout *m_pages;
    QLabel *m_info;
    QScrollArea *m_infoArea;
};

} // namespace NARV::DEV
