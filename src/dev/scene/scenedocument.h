#pragma once

#include "scene/placedwidget.h"

#include <QColor>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QUndoStack>

class QGraphicsScene;

namespace NARV::DEV {

class EventLog;
class PluginSession;
class TestData;

//! The page with its widgets. Everything that a person does to it goes over the undo stack; the
//! instances are made and remade from the plugin of the session.
class ZPPLUGIN_DEV_EXPORT SceneDocument : public QObject
{
    Q_OBJECT

public:
    enum class Mode
    {
        Editor, //!< widgets are placed and moved, and told that they are inside the editor
        Runtime //!< all input belongs to the widgets
    };

    SceneDocument(PluginSession &session, TestData &data, EventLog &events,
                  QObject *parent = nullptr);
    ~SceneDocument() override;

    QUndoStack &undoStack();
    QGraphicsScene &graphicsScene();
    TestData &testData();
    PluginSession &session();

    //! In stacking order, the lowest first.
    const QList<PlacedWidget *> &widgets() const;
    //! The widget of that name, or null.
    PlacedWidget *widget(const QString &name) const;
    const QList<PlacedWidget *> &selection() const;
    //! The one that the property tree shows: the widget selected last, or null.
    PlacedWidget *currentWidget() const;
    void select(const QList<PlacedWidget *> &widgets);

    Mode mode() const;
    void setMode(Mode mode);
    //! The language of descriptions and of what widgets get of multi-language fields.
    const QString &language() const;
    void setLanguage(const QString &code);

    // Undoable.
    PlacedWidget *place(const QString &widgetId, const QString &version, const QPointF &centre);
    //! Value as PlacedWidget::fieldValue() gives it. Consecutive writes to the same field merge.
    void setFieldValue(PlacedWidget &widget, const QString &fieldId, const QVariant &value);
    void resetField(PlacedWidget &widget, const QString &fieldId);
    void resetAllFields(PlacedWidget &widget);
    //! Binds a tag or trend to a field; an empty name unbinds.
    void bind(PlacedWidget &widget, const QString &fieldId, const QString &name);

Q_SIGNALS:
    void widgetAdded(NARV::DEV::PlacedWidget *widget);
    void widgetAboutToBeRemoved(NARV::DEV::PlacedWidget *widget);
    void selectionChanged();
    void modeChanged();
    void languageChanged();
    //! Something that a person has to know, such as a field that no longer exists.
    void notice(const QString &text);
};

} // namespace NARV::DEV
