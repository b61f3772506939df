// What the gesture recognisers cost: an event in recognize(), without a log callback, and a touch
// event on its way through a view and a scene to an item that grabs a gesture, beside Qt's own pan.

#include "allocationcounter.h"
#include "ratioreporter.h"

#include <NARV/INTERNAL/Init>
#include <NARV/PanGestureRecognizer>
#include <NARV/PinchGestureRecognizer>
#include <NARV/SwipeGestureRecognizer>

#include <QApplication>
#include <QGestureEvent>
#include <QGraphicsObject>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QIcon>
#include <QTouchEvent>

#include <benchmark/benchmark.h>

#include <memory>

using namespace NARV;
using Recognizer = QGestureRecognizer;

namespace {

//! An item as widgets have it.
class Item : public QGraphicsObject
{
public:
    QRectF boundingRect() const override { return {0, 0, 600, 600}; }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}

    int gestures = 0;

protected:
    bool sceneEvent(QEvent *event) override
    {
        gestures += event->type() == QEvent::Gesture;
        return event->type() == QEvent::Gesture || event->type() == QEvent::TouchBegin ||
               QGraphicsObject::sceneEvent(event);
    }
};

//! The events of a stroke to the right: the fingers go down, move ten times and go up.
class Stroke
{
public:
    Stroke(int fingers, const QPointF &toScreen)
    {
        const QPointF step(20, 1);
        for (int i = 0; i < fingers; ++i)
            add(i == 0 ? QEvent::TouchBegin : QEvent::TouchUpdate, i + 1, {}, {}, toScreen);
        for (int i = 0; i < 10; ++i)
            add(QEvent::TouchUpdate, fingers, i * step, (i + 1) * step, toScreen);
        add(QEvent::TouchEnd, fingers, 10 * step, 10 * step, toScreen);
    }

    std::vector<std::unique_ptr<QTouchEvent>> events;

private:
    void add(QEvent::Type type, int fingers, const QPointF &from, const QPointF &to,
             const QPointF &toScreen)
    {
        static QTouchDevice device;
        QList<QTouchEvent::TouchPoint> points;
        for (int i = 0; i < fingers; ++i) {
            const QPointF start(50 + 60 * i, 50 + 10 * i);
            const bool isNew = type == QEvent::TouchBegin || (from == to && i == fingers - 1);
            QTouchEvent::TouchPoint point(i);
            point.setState(type == QEvent::TouchEnd ? Qt::TouchPointReleased
                           : isNew                  ? Qt::TouchPointPressed
                                                    : Qt::TouchPointMoved);
            point.setStartPos(start);
            point.setLastPos(start + from);
            point.setPos(start + to);
            point.setStartScreenPos(toScreen + start);
            point.setLastScreenPos(toScreen + start + from);
            point.setScreenPos(toScreen + start + to);
            points += point;
        }
        events.push_back(std::make_unique<QTouchEvent>(type, &device, Qt::NoModifier,
                                                       Qt::TouchPointMoved, points));
    }
};

} // namespace

static std::vector<std::unique_ptr<QGraphicsSceneMouseEvent>> mouseStroke()
{
    std::vector<std::unique_ptr<QGraphicsSceneMouseEvent>> events;
    for (int i = 0; i <= 11; ++i) {
        events.push_back(
            std::make_unique<QGraphicsSceneMouseEvent>(i == 0    ? QEvent::GraphicsSceneMousePress
                                                       : i == 11 ? QEvent::GraphicsSceneMouseRelease
                                                                 : QEvent::GraphicsSceneMouseMove));
        events.back()->setScreenPos({20 * i, i});
    }
    return events;
}

template<class Events>
static void recognize(benchmark::State &state, Recognizer *recognizer, const Events &events,
                      QObject *watched)
{
    const std::unique_ptr<Recognizer> owner(recognizer);
    const std::unique_ptr<QGesture> gesture(recognizer->create(nullptr));
    recognizer->reset(gesture.get());
    const auto before = allocationCount();
    for (auto _ : state) {
        for (const auto &event : events)
            benchmark::DoNotOptimize(recognizer->recognize(gesture.get(), watched, event.get()));
    }
    if (allocationCount() != before)
        state.SkipWithError("recognize() takes memory from the heap");
    state.SetItemsProcessed(state.iterations() * int(events.size()));
}

static Recognizer *make(char kind, int fingers)
{
    if (kind == 'p')
        return new PanGestureRecognizer(fingers);
    if (kind == 's')
        return new SwipeGestureRecognizer(fingers);
    return new PinchGestureRecognizer;
}

static void touches(benchmark::State &state, char kind, int fingers)
{
    Item item;
    recognize(state, make(kind, fingers), Stroke(fingers, {}).events, &item);
}
BENCHMARK_CAPTURE(touches, pan1, 'p', 1);
BENCHMARK_CAPTURE(touches, pan2, 'p', 2);
BENCHMARK_CAPTURE(touches, pan3, 'p', 3);
BENCHMARK_CAPTURE(touches, swipe1, 's', 1);
BENCHMARK_CAPTURE(touches, swipe2, 's', 2);
BENCHMARK_CAPTURE(touches, swipe3, 's', 3);
BENCHMARK_CAPTURE(touches, pinch, 'i', 2);

static void mouse(benchmark::State &state, char kind)
{
    Item item;
    recognize(state, make(kind, 1), mouseStroke(), &item);
}
BENCHMARK_CAPTURE(mouse, pan, 'p');
BENCHMARK_CAPTURE(mouse, swipe, 's');

//! The view's own events, and those of other numbers of fingers.
static void nothingToDo(benchmark::State &state, char kind, bool isItem)
{
    Item item;
    QObject other;
    recognize(state, make(kind, 3), Stroke(1, {}).events, isItem ? &item : &other);
}
BENCHMARK_CAPTURE(nothingToDo, pan_view, 'p', false);
BENCHMARK_CAPTURE(nothingToDo, pan_fingers, 'p', true);
BENCHMARK_CAPTURE(nothingToDo, swipe_fingers, 's', true);
BENCHMARK_CAPTURE(nothingToDo, pinch_fingers, 'i', true);

static void hundredNanoseconds(benchmark::State &state)
{
    for (auto _ : state)
        state.SetIterationTime(100e-9);
}
BENCHMARK(hundredNanoseconds)->UseManualTime();

//! An event of a stroke on a view, up to the gesture events that the item hears.
static void scene(benchmark::State &state, Qt::GestureType type, int fingers)
{
    QGraphicsScene graphicsScene(0, 0, 600, 600);
    auto *item = new Item;
    graphicsScene.addItem(item);
    item->setAcceptTouchEvents(true);
    item->grabGesture(type);
    QGraphicsView view(&graphicsScene);
    view.setFrameShape(QFrame::NoFrame);
    view.resize(600, 600);
    view.show();
    QCoreApplication::processEvents();
    const Stroke stroke(fingers, view.viewport()->mapToGlobal(QPoint()));
    for (auto _ : state) {
        for (const auto &event : stroke.events)
            QCoreApplication::sendEvent(view.viewport(), event.get());
    }
    if (item->gestures < 10 * state.iterations())
        state.SkipWithError("the item does not hear every gesture");
    state.SetItemsProcessed(state.iterations() * int(stroke.events.size()));
}
// Qt's pan takes two fingers and no fewer.
BENCHMARK_CAPTURE(scene, pan1, PanGestureRecognizer::type(1), 1);
BENCHMARK_CAPTURE(scene, pan2, PanGestureRecognizer::type(2), 2);
BENCHMARK_CAPTURE(scene, qt_pan2, Qt::PanGesture, 2);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    INTERNAL::narvInit(QIcon());

    std::vector<Ratio> ratios;
    for (const char *name :
         {"touches/pan1", "touches/pan2", "touches/pan3", "touches/swipe1", "touches/swipe2",
          "touches/swipe3", "touches/pinch", "mouse/pan", "mouse/swipe"})
        ratios.push_back({std::string(name) + " / 100 ns", name, "hundredNanoseconds", 1});
    ratios.push_back({"one finger / Qt's pan, two fingers", "scene/pan1", "scene/qt_pan2", 1});
    ratios.push_back({"two fingers / Qt's pan, two fingers", "scene/pan2", "scene/qt_pan2", 1});
    return runBenchmarks(argc, argv, ratios);
}
