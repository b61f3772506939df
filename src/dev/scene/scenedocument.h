#pragma once

#include "scene/page.h"
#include "scene/placedwidget.h"

#include <QHash>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QUndoStack>
#include <QVector>

#include <memory>

class QGraphicsScene;

namespace NARV::DEV {

class EventLog;
class GestureMonitor;
class PluginSession;
class SceneActionManager;
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

    //! The state of a widget and its place in the stacking order, 0 for the lowest.
    struct StackedState
    {
        WidgetState state;
        int position = 0;
    };

    //! All three have to outlive the document.
    SceneDocument(PluginSession &session, TestData &data, EventLog &events,
                  QObject *parent = nullptr);
    ~SceneDocument() override;

    QUndoStack &undoStack() { return m_undoStack; }
    QGraphicsScene &graphicsScene() { return *m_scene; }
    TestData &testData() { return m_data; }
    PluginSession &session() { return m_session; }
    GestureMonitor &gestureMonitor() { return *m_gestureMonitor; }

    //! In stacking order, the lowest first.
    const QList<PlacedWidget *> &widgets() const { return m_widgets; }
    //! The widget of that name, or null.
    PlacedWidget *widget(const QString &name) const { return m_byName.value(name); }
    //! In the order in which they were selected.
    const QList<PlacedWidget *> &selection() const { return m_selection; }
    //! The one that the property tree shows: the widget selected last, or null.
    PlacedWidget *currentWidget() const;
    void select(const QList<PlacedWidget *> &widgets);
    //! What a person calls the widgets, such as "Gauge 2" or "3 widgets".
    QString titleOf(const QList<PlacedWidget *> &widgets) const;
    //! The topmost widget there, or null.
    PlacedWidget *widgetAt(const QPointF &scenePosition) const;

    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    //! The language of descriptions and of what widgets get of multi-language fields.
    const QString &language() const { return m_language; }
    void setLanguage(const QString &code);
    const Page &page() const { return m_page; }
    //! Tells the widgets now of tags that have changed; otherwise the event loop does it.
    void deliverPending();
    //! To be called when the painting of some widget has thrown: finds those whose does.
    void findBroken();
    //! Puts a text into the event log and before the person.
    void tell(const QString &text);

    // What follows can be undone.

    //! Places a new instance with its centre there and selects it; null if the library has no such
    //! widget.
    PlacedWidget *place(const QString &widgetId, const QString &version, const QPointF &centre);
    //! One value for each widget, as PlacedWidget::fieldValue() gives it. Consecutive writes to the
    //! same field of the same widgets merge.
    void setFieldValues(const QList<PlacedWidget *> &widgets, const QString &fieldId,
                        const QVector<QVariant> &values);
    void setFieldValue(PlacedWidget &widget, const QString &fieldId, const QVariant &value)
    {
        setFieldValues({&widget}, fieldId, {value});
    }
    //! Values and bindings.
    void resetFields(const QList<PlacedWidget *> &widgets, const QStringList &fieldIds);
    //! Binds a tag or trend to a field of each widget; an empty name unbinds.
    void bind(const QList<PlacedWidget *> &widgets, const QString &fieldId,
              const QStringList &names);
    void bind(PlacedWidget &widget, const QString &fieldId, const QString &name)
    {
        bind({&widget}, fieldId, QStringList(name));
    }
    void setGeometry(PlacedWidget &widget, const QPointF &position, const QSizeF &size,
                     double rotation);
    //! Sets position, size and rotation of widgets from states of the same names. Calls with the
    //! same mergeKey other than 0 become one step.
    void setGeometries(const QList<WidgetState> &states, const QString &text, int mergeKey = 0);
    void setPage(const Page &page);
    void setPageSize(const QSizeF &size);
    void remove(const QList<PlacedWidget *> &widgets);
    //! Adds copies under fresh names, shifted, and selects them.
    void add(QList<WidgetState> states, const QPointF &shift, const QString &text);
    //! Puts the widgets into this order; names all widgets, the lowest first.
    void setOrder(const QStringList &names, const QString &text);

    //! Replaces everything without undo, as opening a scene does.
    void reset(const Page &page, const QList<WidgetState> &states);
    //! Something that a scene file keeps was changed since setUnmodified().
    bool isModified() const;
    void setUnmodified();
    void setModified();

Q_SIGNALS:
    void widgetAdded(NARV::DEV::PlacedWidget *widget);
    void widgetAboutToBeRemoved(NARV::DEV::PlacedWidget *widget);
    void selectionChanged();
    //! Position, size, rotation or stacking of some widget.
    void geometryChanged();
    void pageChanged();
    void modeChanged();
    void languageChanged();
    void modifiedChanged();
    //! Something that a person has to know, such as a field that no longer exists.
    void notice(const QString &text);

private:
    friend class SceneCommand;

    // restack() has to follow when all have come and gone, deselect() to come before take().
    void insert(const StackedState &stacked);
    void take(const QString &name);
    void restack();
    void deselect(const QSet<QString> &names);
    void applyPage(const Page &page);
    void applyOrder(const QStringList &names);
    void giveFreshNames(QList<WidgetState> &states) const;
    void changeStates(const QList<WidgetState> &after, const QString &text,
                      const QString &mergeKey = {});

    WidgetHost host() const;
    void makeWidget(PlacedWidget &widget);
    void unmakeWidgets();
    void makeWidgets();
    void makePlaceholders();
    void connectWidget(PlacedWidget &widget);
    void indexBindings();
    void takeEdit(std::unique_ptr<QUndoCommand> edit);
    void followRenamedTag(const QString &from, const QString &to);
    void queueTag(const QString &name, const QVariant &value);
    void deliverAlarm(const NARV::AlarmInfo &alarm);

    PluginSession &m_session;
    TestData &m_data;
    EventLog &m_events;
    std::unique_ptr<QGraphicsScene> m_scene;
    std::unique_ptr<GestureMonitor> m_gestureMonitor;
    std::unique_ptr<SceneActionManager> m_actionManager;
    QUndoStack m_undoStack;
    std::unique_ptr<QUndoCommand> m_renaming; //!< of the tag that is being edited
    QList<PlacedWidget *> m_widgets;
    QHash<QString, PlacedWidget *> m_byName;
    QList<PlacedWidget *> m_selection;
    Page m_page;
    Mode m_mode = Mode::Editor;
    QString m_language;

    struct Binding
    {
        PlacedWidget *widget;
        QString fieldId;
        QString fieldTitle;
    };
    //! The fields that hear of a tag.
    QHash<QString, QVector<Binding>> m_bindings;
    bool m_bindingsAreIndexed = true;
    QVector<QPair<QString, QVariant>> m_changedTags;
    QTimer m_tagTimer;
    bool m_dataIsModified = false;
};

} // namespace NARV::DEV
