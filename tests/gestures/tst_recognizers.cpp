#include "gesturescene.h"
#include "guardedtest.h"

#include <NARV/PanGestureRecognizer>
#include <NARV/PinchGestureRecognizer>
#include <NARV/SwipeGestureRecognizer>

#include <QGraphicsSceneMouseEvent>

#include <cmath>
#include <memory>

using namespace NARV;
using Recognizer = QGestureRecognizer;
using Points = QVector<QPointF>;

//! Keeps what is between two events: the fingers and the gesture.
class Bench
{
public:
    explicit Bench(Recognizer *recognizer)
        : m_recognizer(recognizer)
        , m_gesture(recognizer->create(nullptr))
    {
        m_recognizer->reset(m_gesture.get());
    }

    Recognizer::Result touch(QEvent::Type type, const Points &points)
    {
        QList<QTouchEvent::TouchPoint> fingers;
        for (int i = 0; i < points.size(); ++i) {
            const bool isNew = i >= m_fingers.size();
            QTouchEvent::TouchPoint finger(i);
            finger.setState(isNew ? Qt::TouchPointPressed : Qt::TouchPointMoved);
            finger.setScreenPos(points[i]);
            finger.setLastScreenPos(isNew ? points[i] : m_fingers[i].screenPos());
            finger.setStartScreenPos(isNew ? points[i] : m_fingers[i].startScreenPos());
            fingers += finger;
        }
        m_fingers = fingers;
        QTouchEvent event(type, nullptr, Qt::NoModifier, {}, fingers);
        return send(event, &m_item);
    }
    Recognizer::Result mouse(QEvent::Type type, const QPointF &point)
    {
        QGraphicsSceneMouseEvent event(type);
        event.setScreenPos(point.toPoint());
        return send(event, &m_item);
    }
    Recognizer::Result send(QEvent &event, QObject *watched)
    {
        return m_recognizer->recognize(m_gesture.get(), watched, &event);
    }
    template<class Gesture>
    Gesture *gesture()
    {
        return static_cast<Gesture *>(m_gesture.get());
    }

private:
    std::unique_ptr<Recognizer> m_recognizer;
    std::unique_ptr<QGesture> m_gesture;
    GestureItem m_item;
    QList<QTouchEvent::TouchPoint> m_fingers;
};

enum Kind
{
    Pan,
    Swipe,
    Pinch
};

static Recognizer *make(Kind kind, int fingers)
{
    if (kind == Pan)
        return new PanGestureRecognizer(fingers);
    if (kind == Swipe)
        return new SwipeGestureRecognizer(fingers);
    return new PinchGestureRecognizer;
}

struct Step
{
    QEvent::Type type;
    Points points;
    Recognizer::ResultFlag expected;
};
constexpr auto begin = QEvent::TouchBegin;
constexpr auto update = QEvent::TouchUpdate;
constexpr auto end = QEvent::TouchEnd;
constexpr auto press = QEvent::GraphicsSceneMousePress;
constexpr auto move = QEvent::GraphicsSceneMouseMove;
constexpr auto lift = QEvent::GraphicsSceneMouseRelease;
constexpr auto twice = QEvent::GraphicsSceneMouseDoubleClick;
constexpr auto ignore = Recognizer::Ignore;
constexpr auto maybe = Recognizer::MayBeGesture;
constexpr auto trigger = Recognizer::TriggerGesture;
constexpr auto cancel = Recognizer::CancelGesture;

static const Points one{{0, 0}};
static const Points two{{0, 0}, {9, 0}};
static const Points three{{0, 0}, {9, 0}, {0, 9}};

static const struct
{
    const char *name;
    Kind kind;
    int fingers;
    QVector<Step> steps;
} resultRows[] = {
    {"pan 8", Pan, 1, {{begin, one, maybe}, {update, {{8, 0}}, maybe}, {end, one, cancel}}},
    {"pan 11", Pan, 1, {{begin, one, maybe}, {update, {{11, 0}}, trigger}}},
    {"pan 11 up", Pan, 1, {{begin, one, maybe}, {update, {{0, -11}}, trigger}}},
    {"pan, another count",
     Pan,
     2,
     {{begin, one, maybe}, {update, one, ignore}, {update, two, maybe}, {update, three, ignore}}},
    {"pan, average of two",
     Pan,
     2,
     {{begin, one, maybe}, {update, two, maybe}, {update, {{0, 0}, {31, 0}}, trigger}}},
    {"pan, average of three",
     Pan,
     3,
     {{begin, three, maybe},
      {update, {{0, 30}, {9, 0}, {0, 9}}, maybe},
      {update, {{0, 31}, {9, 0}, {0, 9}}, trigger}}},
    {"pan by mouse",
     Pan,
     1,
     {{press, one, maybe}, {move, {{1, 0}}, trigger}, {lift, one, cancel}, {twice, one, cancel}}},
    {"pan by mouse, two fingers",
     Pan,
     2,
     {{press, one, ignore}, {move, two, ignore}, {lift, one, ignore}, {twice, one, ignore}}},
    {"pan, no finger", Pan, 1, {{begin, {}, ignore}, {update, {}, ignore}, {end, {}, cancel}}},
    {"pan, others",
     Pan,
     1,
     {{QEvent::TouchCancel, {}, ignore}, {QEvent::MouseButtonDblClick, {}, cancel}}},

    {"swipe 50", Swipe, 1, {{begin, one, maybe}, {update, {{50, -50}}, maybe}, {end, one, cancel}}},
    {"swipe 51", Swipe, 1, {{begin, one, maybe}, {update, {{0, 51}}, trigger}}},
    {"swipe, not begun", Swipe, 1, {{update, one, cancel}, {move, one, cancel}}},
    {"swipe, too many", Swipe, 2, {{begin, one, maybe}, {update, three, cancel}}},
    {"swipe, not yet all", Swipe, 2, {{begin, one, maybe}, {update, one, ignore}}},
    {"swipe, one up",
     Swipe,
     2,
     {{begin, two, maybe}, {update, two, maybe}, {update, one, ignore}, {update, {}, ignore}}},
    {"swipe, one up and another down",
     Swipe,
     3,
     {{begin, three, maybe}, {update, three, maybe}, {update, one, ignore}, {update, two, cancel}}},
    {"swipe, average of three",
     Swipe,
     3,
     {{begin, three, maybe},
      {update, {{150, 0}, {9, 0}, {0, 9}}, maybe},
      {update, {{153, 0}, {9, 0}, {0, 9}}, trigger}}},
    {"swipe by mouse",
     Swipe,
     1,
     {{press, one, maybe}, {move, {{51, 0}}, trigger}, {lift, one, cancel}, {twice, one, cancel}}},
    {"swipe by mouse, two fingers",
     Swipe,
     2,
     {{press, one, ignore}, {move, two, ignore}, {lift, one, ignore}, {twice, one, ignore}}},
    {"swipe, no finger", Swipe, 1, {{begin, {}, ignore}, {update, {}, cancel}, {end, {}, cancel}}},
    {"swipe, others",
     Swipe,
     1,
     {{QEvent::TouchCancel, {}, ignore}, {QEvent::MouseButtonDblClick, {}, cancel}}},
    {"swipe, more fingers than there can be",
     Swipe,
     4,
     {{begin, one, maybe}, {update, three + one, maybe}}},

    {"pinch", Pinch, 2, {{begin, one, maybe}, {update, two, trigger}, {end, two, cancel}}},
    {"pinch, another count",
     Pinch,
     2,
     {{begin, one, maybe}, {update, one, ignore}, {update, three, ignore}, {update, {}, ignore}}},
    {"pinch, leaps",
     Pinch,
     2,
     {{begin, one, maybe},
      {update, two, trigger},
      {update, {{0, 0}, {19, 0}}, ignore},
      {update, {{0, 0}, {1, 0}}, ignore},
      {update, {{0, 0}, {2, 0}}, trigger}}},
    {"pinch, fingers in one place",
     Pinch,
     2,
     {{begin, one, maybe}, {update, one + one, trigger}, {update, one + one, ignore}}},
    {"pinch, others", Pinch, 2, {{QEvent::TouchCancel, {}, ignore}, {press, one, ignore}}},
};

static const struct
{
    const char *name;
    Points moves;
    Recognizer::ResultFlag expected;
    SwipeGesture::SwipeDirection horizontal;
    SwipeGesture::SwipeDirection vertical;
    double angle;
} swipeRows[] = {
    {"not far", {{40, 0}}, maybe, SwipeGesture::NoDirection, SwipeGesture::NoDirection, 0},
    {"right", {{60, 0}}, trigger, SwipeGesture::Right, SwipeGesture::Up, 0},
    {"left and down", {{-60, 60}}, trigger, SwipeGesture::Left, SwipeGesture::Down, 225},
    {"up", {{0, -60}}, trigger, SwipeGesture::Left, SwipeGesture::Up, 90},
    {"a little back", {{60, 0}, {55, 0}}, maybe, SwipeGesture::Right, SwipeGesture::Up, 0},
    {"back", {{60, 0}, {0, 0}}, cancel, SwipeGesture::Left, SwipeGesture::Up, 0},
    {"wobble of 6", {{60, 0}, {120, 6}}, trigger, SwipeGesture::Right, SwipeGesture::Up, -1},
    {"turn of 7", {{60, 0}, {120, 7}}, cancel, SwipeGesture::Right, SwipeGesture::Down, -1},
};

static const struct
{
    const char *name;
    Points fingers;
    double scale;
    double rotation;
    QPointF center;
} pinchRows[] = {
    {"spread", {{0, 0}, {150, 0}}, 1.5, 0, {75, 0}},
    {"together", {{25, 0}, {75, 0}}, 0.5, 0, {50, 0}},
    {"quarter turn clockwise", {{0, 0}, {0, 100}}, 1, 90, {0, 50}},
    {"eighth turn back", {{0, 0}, {100, -100}}, std::sqrt(2.0), -45, {50, -50}},
    {"moved", {{10, 20}, {110, 20}}, 1, 0, {60, 20}},
};

// A gesture that the toolkit has not made active.
class tst_Recognizers : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void results_data() { addRows(resultRows); }
    void results();
    void swipeDirections_data() { addRows(swipeRows); }
    void swipeDirections();
    void pinchValues_data() { addRows(pinchRows); }
    void pinchValues();
    void pinchLog();
    void onlyGraphicsObjects();
};

void tst_Recognizers::results()
{
    const auto &row = currentRow(resultRows);
    Bench bench(make(row.kind, row.fingers));
    for (const Step &step : row.steps) {
        const bool byMouse = step.type == press || step.type == move || step.type == lift;
        const auto result = byMouse ? bench.mouse(step.type, step.points.constFirst())
                                    : bench.touch(step.type, step.points);
        QCOMPARE(int(result & Recognizer::ResultState_Mask), int(step.expected));
    }
    takeLog(); // the pinch's
}

void tst_Recognizers::swipeDirections()
{
    const auto &row = currentRow(swipeRows);
    Bench bench(make(Swipe, 1));
    bench.touch(begin, one);
    auto *swipe = bench.gesture<SwipeGesture>();
    QCOMPARE(swipe->velocity(), 1.0);
    Recognizer::Result result;
    for (const QPointF &point : row.moves)
        result = bench.touch(update, {point});
    QCOMPARE(int(result), int(row.expected));
    QCOMPARE(swipe->horizontalDirection(), row.horizontal);
    QCOMPARE(swipe->verticalDirection(), row.vertical);
    if (row.angle >= 0)
        QCOMPARE(swipe->swipeAngle(), row.angle);
    // The timer counts whole milliseconds: a quick test takes 1 for each move, or a few.
    QVERIFY(swipe->velocity() > 0.9 && swipe->velocity() <= 0.9 + 120);
}

void tst_Recognizers::pinchValues()
{
    const auto &row = currentRow(pinchRows);
    Bench bench(make(Pinch, 2));
    auto *pinch = bench.gesture<PinchGesture>();
    bench.touch(begin, one);
    bench.touch(update, {{0, 0}, {100, 0}});
    QCOMPARE(int(pinch->totalChangeFlags()), 7);
    QCOMPARE(pinch->lastCenterPoint(), QPointF(50, 0));
    for (int times = 1; times <= 2; ++times) { // the second time nothing changes
        bench.touch(update, row.fingers);
        QCOMPARE(pinch->scaleFactor(), times == 1 ? row.scale : 1);
        QCOMPARE(pinch->lastScaleFactor(), times == 1 ? 1 : row.scale);
        QCOMPARE(pinch->totalScaleFactor(), row.scale);
        QCOMPARE(pinch->rotationAngle(), row.rotation);
        QCOMPARE(pinch->lastRotationAngle(), times == 1 ? 0 : row.rotation);
        QCOMPARE(pinch->totalRotationAngle(), row.rotation);
        QCOMPARE(pinch->centerPoint(), row.center);
        QCOMPARE(pinch->lastCenterPoint(), times == 1 ? QPointF(50, 0) : row.center);
    }
    bench.touch(update, {{0, 0}, {900, 0}});
    QCOMPARE(int(pinch->changeFlags()), int(PinchGesture::CenterPointChanged));
    QCOMPARE(pinch->totalScaleFactor(), row.scale);
    QCOMPARE(pinch->startCenterPoint(), QPointF(50, 0));

    // A third finger comes and goes: measured anew from where the fingers went down.
    bench.touch(update, three);
    bench.touch(update, row.fingers);
    QCOMPARE(pinch->scaleFactor(), 1.0);
    QCOMPARE(pinch->lastRotationAngle(), 0.0);
    QCOMPARE(pinch->totalRotationAngle(), 2 * row.rotation);
    takeLog();
}

void tst_Recognizers::pinchLog()
{
    Bench bench(make(Pinch, 2));
    bench.touch(begin, one);
    bench.touch(update, {{0, 0}, {100, 0}});
    takeLog();
    bench.touch(update, {{0, 0}, {0, 100}});
    QStringList messages;
    for (const LogEntry &entry : takeLog()) {
        QCOMPARE(entry.type, int(QtDebugMsg));
        QCOMPARE(entry.category, u("default"));
        messages += entry.message;
    }
    QCOMPARE(messages, QStringList({u("P1 QPointF(0,0)"), u("P2 QPointF(0,100)"), u("ANGLE -90"),
                                    u("START ANGLE 0")}));
}

void tst_Recognizers::onlyGraphicsObjects()
{
    GestureItem item;
    for (const Kind kind : {Pan, Swipe, Pinch}) {
        Bench bench(make(kind, 1));
        QTouchEvent event(begin, nullptr, Qt::NoModifier, {}, {QTouchEvent::TouchPoint(0)});
        QCOMPARE(int(bench.send(event, this)), int(ignore));
        QCOMPARE(int(bench.send(event, nullptr)), int(ignore));
        QCOMPARE(int(bench.send(event, &item)), int(maybe));
    }
}

QTEST_MAIN(tst_Recognizers)
#include "tst_recognizers.moc"
