#pragma once

#include <QWidget>

#include <zpplugin_dev_export.h>

class QLabel;
class QLineEdit;
class QModelIndex;
class QStackedLayout;
class QTreeView;

namespace NARV::DEV {

class PaletteFilter;
class PaletteModel;
class PluginSession;

//! Where a person takes widgets from: the library's widgets with a filter. A widget is placed by a
//! double click, by Enter, or by dragging it.
class ZPPLUGIN_DEV_EXPORT PalettePanel : public QWidget
{
    Q_OBJECT

public:
    //! The session outlives the panel.
    explicit PalettePanel(PluginSession &session, QWidget *parent = nullptr);

    //! The language of names and descriptions; the library's own if it is empty.
    void setLanguage(const QString &code);

Q_SIGNALS:
    void placeRequested(const QString &widgetId, const QString &version);

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildFilter();
    void buildTree();
    void place(const QModelIndex &index);
    void placeCurrent();
    QModelIndex firstWidget(const QModelIndex &parent) const;
    void setWords(const QString &words);
    void showContent();

    PluginSession &m_session;
    PaletteModel *m_model;
    PaletteFilter *m_filter;
    QLineEdit *m_words;
    QTreeView *m_tree;
    QLabel *m_empty;
    QStackedLayout *m_pages;
};

} // namespace NARV::DEV
