#pragma once

#include "recordinghost.h"

#include <NARV/DataRole>
#include <NARV/Event>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetPrivateAccessor>

#include <QGraphicsSceneMouseEvent>
#include <QMetaEnum>
#include <QTouchEvent>

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

    QString name;
    QStringList *journal = nullptr;
    bool consumes = false;
    //! Called in narvEvent() and in the handler.
    std::function<void(NARV::Event *)> onEvent = [](NARV::Event *) {};
    std::function<void(NARV::Event *)> onHandler = [](NARV::Event *) {};

protected:
    bool narvEvent(NARV::Event *event) override
    {
        const bool answer = consumes;
        note('?', event);
        const auto hook = onEvent; // outlives the receiver
        hook(event);
        return answer;
    }
    void initEvent(NARV::InitEvent *event) override { handle(event); }
    void deinitEvent(NARV::DeinitEvent *event) override { handle(event); }
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override { handle(event); }
    void alarmStatusIsChangedEvent(NARV::AlarmStatusIsChangedEvent *event) override
    {
        handle(event);
    }

    void handle(NARV::Event *event)
    {
        note('!', event);
        const auto hook = onHandler;
        hook(event);
    }

private:
    void note(char where, const NARV::Event *event)
    {
        const char *type = QMetaEnum::fromType<NARV::Event::Type>().valueToKey(event->type());
        if (journal)
            journal->append(name + QLatin1Char(where) + QLatin1String(type));
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
    void resizeEvent(NARV::ResizeEvent *event) override { handle(event); }
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override { noteMouse("press", event); }
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override { noteMouse("move", event); }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override
    {
        noteMouse("release", event);
    }

private:
    void noteMouse(const char *what, QGraphicsSceneMouseEvent *event);
};

//! A library with the widget "gauge" 1.0.0 and its fields:
//! "level" (integer), "secret" (integer that plugin code may neither read nor write), "ratio"
//! (double) and "texts" (texts by number).
class RecordingLibrary : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    using FieldInfo = NARV::WidgetData::FieldInfo;

    RecordingLibrary();

    NARV::WidgetLibraryPluginPrivate *priv();
    RecordingWidget *newGauge(RecordingHost *host);
    static QMap<QString, FieldInfo> fields();
};

//! A gauge with graphics objects "1", "2" ... that share one journal.
class GaugeFixture
{
public:
    explicit GaugeFixture(int itemCount = 0);
    ~GaugeFixture();

    RecordingItem *addItem();
    NARV::WidgetPrivate *priv() { return NARV::INTERNAL::WidgetPrivateAccessor::priv(widget); }
    //! What was heard since the last call.
    QString heard();

    RecordingHost host;
    RecordingLibrary library;
    QStringList journal;
    QPointer<RecordingWidget> widget;
    QList<QPointer<RecordingItem>> items;
};
