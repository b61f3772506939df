#pragma once

#include "recordinghost.h"

#include <NARV/DataRole>
#include <NARV/Event>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetPrivateAccessor>

#include <functional>

//! Notes every event it hears: "?" and the type in narvEvent(), "!" and the type in the handler.
template<class Base>
class Recording : public Base
{
public:
    using Base::Base;
    using Base::data;
    using Base::getFieldValue;
    using Base::setFieldValue;
    using Hook = std::function<void(NARV::Event *)>;

    QString name;
    QStringList *journal = nullptr;
    bool consumes = false;
    Hook onEvent = [](NARV::Event *) {};
    Hook onHandler = onEvent;

protected:
    bool narvEvent(NARV::Event *event) override
    {
        const bool answer = consumes;
        hear('?', event, onEvent);
        return answer;
    }
    void initEvent(NARV::InitEvent *event) override { hear('!', event, onHandler); }
    void deinitEvent(NARV::DeinitEvent *event) override { hear('!', event, onHandler); }
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override
    {
        hear('!', event, onHandler);
    }
    void alarmStatusIsChangedEvent(NARV::AlarmStatusIsChangedEvent *event) override
    {
        hear('!', event, onHandler);
    }

    void hear(char where, NARV::Event *event, const Hook &action)
    {
        const Hook hook = action; // may delete the receiver
        if (journal)
            *journal += name + QLatin1Char(where) + QVariant::fromValue(event->type()).toString();
        hook(event);
    }
};

class RecordingWidget : public Recording<NARV::Widget>
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit RecordingWidget(const NARV::WidgetData &data)
        : Recording(data)
    {
    }
    QIcon icon() override { return ownIcon; }

    QIcon ownIcon;
};

class RecordingItem : public Recording<NARV::GraphicsObject>
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit RecordingItem(const NARV::GraphicsObjectData &data)
        : Recording(data)
    {
    }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}
    using NARV::GraphicsObject::sceneEvent;

    QStringList mouse;
    bool acceptsMouse = true;
    std::function<void()> onMouse = [] {};

protected:
    void resizeEvent(NARV::ResizeEvent *event) override { hear('!', event, onHandler); }
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override { hearMouse("press", event); }
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override { hearMouse("move", event); }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override
    {
        hearMouse("release", event);
    }

private:
    void hearMouse(const char *what, QGraphicsSceneMouseEvent *event);
};

//! A library with the widget "gauge" 1.0.0 and its fields: "level" (integer), "secret" (integer
//! that plugin code may neither read nor write), "ratio" (double), "texts" (texts by
//! number) and "picture" (image).
class RecordingLibrary : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    RecordingLibrary();

    NARV::WidgetLibraryPluginPrivate *priv();
    RecordingWidget *newGauge(RecordingHost *host);
    static QMap<QString, NARV::WidgetData::FieldInfo> fields();
};

//! A gauge "w" with graphics objects "1", "2" ... and one journal for all.
class GaugeFixture
{
public:
    explicit GaugeFixture(int itemCount = 0);
    ~GaugeFixture();

    RecordingItem *addItem();
    NARV::WidgetPrivate *priv() const
    {
        return NARV::INTERNAL::WidgetPrivateAccessor::priv(widget);
    }
    //! What was heard since the last call, without the word that is in all of it.
    QString heard(const char *commonWord = "");

    RecordingHost host;
    RecordingLibrary library;
    QStringList journal;
    QPointer<RecordingWidget> widget;
    QList<QPointer<RecordingItem>> items;
};
