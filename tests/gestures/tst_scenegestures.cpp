#include "gesturescene.h"
#include "guardedtest.h"

#include <NARV/INTERNAL/Init>

#include <QIcon>

using namespace NARV;
using Direction = SwipeGesture::SwipeDirection;
using Points = QVector<QPointF>;

static const QTransform unrotated;
static const QTransform rotated = QTransform().rotate(90);
static const QTransform mirrored = QTransform::fromScale(-1, 1);

// Points of the view in a quadrant that the item covers: its corner is at (350, 350).
static Points startPoints(const QTransform &transform, int fingers)
{
    const QPointF corner(350, 350);
    const Points inItem{{150, 150}, {210, 150}, {180, 210}};
    Points points;
    for (const QPointF &point : inItem.mid(0, fingers))
        points += corner + transform.map(point);
    return points;
}

static const struct
{
    const char *name;
    QTransform transform;
} placeRows[] = {{"unrotated", unrotated}, {"rotated", rotated}, {"mirrored", mirrored}};

static const struct
{
    const char *name;
    QTransform transform;
    int fingers;
    QPointF movement;
    Direction horizontal;
    Direction vertical;
    double angle;
} swipeRows[] = {
    {"right", unrotated, 1, {60, -6}, SwipeGesture::Right, SwipeGesture::Up, 6},
    {"down, 2 fingers", unrotated, 2, {-6, 60}, SwipeGesture::Left, SwipeGesture::Down, 264},
    {"left, 3 fingers", unrotated, 3, {-60, 6}, SwipeGesture::Left, SwipeGesture::Down, 186},
    // What is right on the screen is up along an item that lies on its right side.
    {"right, rotated", rotated, 1, {60, -6}, SwipeGesture::Left, SwipeGesture::Up, 96},
    {"down, rotated, 2 fingers",
     rotated,
     2,
     {-6, 60},
     SwipeGesture::Right,
     SwipeGesture::Down,
     354},
    {"left, rotated, 3 fingers",
     rotated,
     3,
     {-60, 6},
     SwipeGesture::Right,
     SwipeGesture::Down,
     276},
    {"right, mirrored", mirrored, 1, {60, -6}, SwipeGesture::Left, SwipeGesture::Up, 174},
    {"down, mirrored, 2 fingers",
     mirrored,
     2,
     {-6, 60},
     SwipeGesture::Right,
     SwipeGesture::Down,
     276},
    {"left, mirrored, 3 fingers",
     mirrored,
     3,
     {-60, 6},
     SwipeGesture::Right,
     SwipeGesture::Down,
     354},
};

static const struct
{
    const char *name;
    Qt::GestureType type;
    Points points;
    QVector<int> states;
} mouseRows[] = {
    {"pan",
     GraphicsObject::pan1TouchGestureType(),
     {{400, 400}, {402, 400}, {410, 400}},
     {1, 2, 2, 3}},
    {"pan to and fro",
     GraphicsObject::pan1TouchGestureType(),
     {{400, 400}, {402, 400}, {400, 400}},
     {1, 2, 2, 4}},
    {"two finger pan", GraphicsObject::pan2TouchesGestureType(), {{400, 400}, {500, 400}}, {}},
    {"swipe",
     GraphicsObject::swipe1TouchGestureType(),
     {{400, 400}, {440, 400}, {460, 400}},
     {1, 3}},
    {"two finger swipe", GraphicsObject::swipe2TouchesGestureType(), {{400, 400}, {500, 400}}, {}},
};

static const struct
{
    const char *name;
    QTransform transform;
    bool emulates;
    const char *mouse;
} emulationRows[] = {
    {"unrotated", unrotated, true, "press 150,150 move 160,170 release 160,170"},
    {"rotated", rotated, true, "press 150,150 move 170,140 release 170,140"},
    {"mirrored", mirrored, true, "press 150,150 move 140,170 release 140,170"},
    {"without", unrotated, false, ""},
};

// From touches and mouse events on a view to what an item hears.
class tst_SceneGestures : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { INTERNAL::narvInit(QIcon()); }
    void pan_data() { addRows(placeRows); }
    void pan();
    void panAndBack();
    void swipe_data() { addRows(swipeRows); }
    void swipe();
    void swipeBack();
    void swipeDebug();
    void pinch_data() { addRows(placeRows); }
    void pinch();
    void pinchEndsWithThirdFinger();
    void mouse_data() { addRows(mouseRows); }
    void mouse();
    void touchBecomesMouse_data() { addRows(emulationRows); }
    void touchBecomesMouse();
    void systemPressIsSwallowed();
    void itemDiesDuringGesture();
};

void tst_SceneGestures::pan()
{
    const QTransform &transform = currentRow(placeRows).transform;
    for (int fingers = 1; fingers <= 3; ++fingers) {
        GestureScene scene;
        scene.item->setTransform(transform);
        for (int type = 257; type <= 259; ++type)
            scene.item->grabGesture(Qt::GestureType(type));
        QStringList heard;
        const Points start = startPoints(transform, fingers);
        const QPointF startPoint = scene.toScreen(start[0]);
        scene.item->onGesture = [&](QGesture *gesture, auto *) {
            const auto *pan = static_cast<PanGesture *>(gesture);
            QCOMPARE(int(gesture->gestureType()), 256 + fingers);
            QCOMPARE(pan->startPoint(), startPoint);
            QCOMPARE(gesture->hotSpot(), startPoint);
            QCOMPARE(pan->delta(), pan->offset() - pan->lastOffset());
            heard +=
                u("%1:%2,%3").arg(gesture->state()).arg(pan->offset().x()).arg(pan->delta().y());
        };

        scene.press(start);
        for (const QPointF step : {QPointF(8, 0), QPointF(3, 1), QPointF(9, 9)})
            scene.moveBy(step);
        scene.release();
        QCOMPARE(heard.join(u(" ")), u("1:11,1 2:20,9 3:20,0"));
    }
}

// Fingers that come back to where they went down pause the drag, which then starts again.
void tst_SceneGestures::panAndBack()
{
    GestureScene scene;
    scene.item->grabGesture(GraphicsObject::pan1TouchGestureType());
    QVector<int> states;
    scene.item->onGesture = [&](QGesture *gesture, auto *) { states += gesture->state(); };
    scene.press(startPoints(unrotated, 1));
    for (const QPointF step : {QPointF(20, 0), QPointF(-18, 0), QPointF(20, 0)})
        scene.moveBy(step);
    scene.release();
    QCOMPARE(states, QVector<int>({Qt::GestureStarted, Qt::GestureStarted, Qt::GestureFinished}));
}

void tst_SceneGestures::swipe()
{
    const auto &row = currentRow(swipeRows);
    GestureScene scene;
    scene.item->setTransform(row.transform);
    for (int type = 260; type <= 262; ++type)
        scene.item->grabGesture(Qt::GestureType(type));
    const Points start = startPoints(row.transform, row.fingers);
    QPointF startPoint;
    for (const QPointF &point : start)
        startPoint += scene.toScreen(point) / row.fingers;
    QVector<int> states;
    scene.item->onGesture = [&](QGesture *gesture, QGestureEvent *event) {
        const auto *swipe = static_cast<SwipeGesture *>(gesture);
        states += gesture->state();
        QCOMPARE(int(gesture->gestureType()), 259 + row.fingers);
        QCOMPARE(swipe->startPoint(), startPoint);
        QCOMPARE(gesture->hotSpot(), startPoint);
        QCOMPARE(swipe->mapHorizontalDirectionToGraphicsObject(event, scene.item), row.horizontal);
        QCOMPARE(swipe->mapVerticalDirectionToGraphicsObject(event, scene.item), row.vertical);
        const double angle = swipe->mapSwipeAngleToGraphicsObject(event, scene.item);
        QVERIFY2(qAbs(angle - row.angle) < 1, qPrintable(QString::number(angle)));
        // The scene lies in the view as the screen does.
        QCOMPARE(swipe->mapHorizontalDirectionToGraphicsScene(event), swipe->horizontalDirection());
        QCOMPARE(swipe->mapVerticalDirectionToGraphicsScene(event), swipe->verticalDirection());
        QVERIFY(qAbs(swipe->mapSwipeAngleToGraphicsScene(event) - swipe->swipeAngle()) < 1);
    };

    scene.press(start);
    scene.moveBy(row.movement);
    scene.moveBy(row.movement);
    scene.moveBy(row.movement / 6);
    scene.release();
    QCOMPARE(states, QVector<int>({Qt::GestureStarted, Qt::GestureUpdated, Qt::GestureUpdated,
                                   Qt::GestureFinished}));
}

void tst_SceneGestures::swipeBack()
{
    GestureScene scene;
    scene.item->grabGesture(GraphicsObject::swipe1TouchGestureType());
    QVector<int> states;
    scene.item->onGesture = [&](QGesture *gesture, auto *) { states += gesture->state(); };
    scene.press(startPoints(unrotated, 1));
    scene.moveBy({60, 0});
    scene.moveBy({-60, 0});
    scene.moveBy({90, 0});
    scene.release();
    QCOMPARE(states, QVector<int>({Qt::GestureStarted, Qt::GestureCanceled}));
}

void tst_SceneGestures::swipeDebug()
{
    GestureScene scene;
    scene.item->grabGesture(GraphicsObject::swipe1TouchGestureType());
    QString text;
    scene.item->onGesture = [&](QGesture *gesture, auto *) {
        text.clear();
        QDebug(&text) << static_cast<const SwipeGesture *>(gesture);
    };
    scene.press({{360, 360}});
    scene.moveBy({-60, 0});
    const QString expected = u("NARV::SwipeGesture(Qt::GestureStarted, NARV::SwipeGesture::Left, "
                               "NARV::SwipeGesture::Up, angle 180, velocity ");
    QVERIFY2(text.startsWith(expected), qPrintable(text));
    text.clear();
    QDebug(&text) << static_cast<const SwipeGesture *>(nullptr);
    QCOMPARE(text, u("NARV::SwipeGesture(0x0) "));
}

void tst_SceneGestures::pinch()
{
    const QTransform &transform = currentRow(placeRows).transform;
    GestureScene scene;
    scene.item->setTransform(transform);
    scene.item->grabGesture(GraphicsObject::pinchGestureType());
    const QPointF middle = QPointF(350, 350) + transform.map(QPointF(150, 150));
    QStringList heard;
    scene.item->onGesture = [&](QGesture *gesture, auto *) {
        const auto *pinch = static_cast<PinchGesture *>(gesture);
        QCOMPARE(pinch->startCenterPoint(), scene.toScreen(middle));
        QCOMPARE(gesture->hotSpot(), scene.toScreen(middle));
        QCOMPARE(int(pinch->totalChangeFlags()), 7);
        heard += u("%1:%2,%3,%4")
                     .arg(gesture->state())
                     .arg(pinch->totalScaleFactor())
                     .arg(pinch->totalRotationAngle())
                     .arg(pinch->centerPoint().x() - pinch->startCenterPoint().x());
    };

    const auto across = [&](qreal half) {
        return Points{middle - QPointF(half, 0), middle + QPointF(half, 0)};
    };
    scene.press(across(50));
    scene.moveTo(across(75));
    scene.moveTo(across(200)); // refused
    scene.moveTo(across(100));
    scene.moveTo({middle - QPointF(0, 100), middle + QPointF(0, 100)});
    scene.moveBy({10, 0});
    scene.release();
    QCOMPARE(heard.join(u(" ")),
             u("1:1,0,0 2:1.5,0,0 2:0.75,0,0 2:0.75,90,0 2:0.75,90,10 3:0.75,90,10"));
    takeLog();
}

void tst_SceneGestures::pinchEndsWithThirdFinger()
{
    GestureScene scene;
    scene.item->grabGesture(GraphicsObject::pinchGestureType());
    QVector<int> states;
    scene.item->onGesture = [&](QGesture *gesture, auto *) { states += gesture->state(); };
    scene.press(startPoints(unrotated, 3));
    scene.moveBy({5, 5});
    scene.release();
    QCOMPARE(states, QVector<int>({Qt::GestureStarted, Qt::GestureFinished}));
    takeLog();
}

void tst_SceneGestures::mouse()
{
    const auto &row = currentRow(mouseRows);
    GestureScene scene;
    scene.item->grabGesture(row.type);
    QVector<int> states;
    scene.item->onGesture = [&](QGesture *gesture, auto *) {
        states += gesture->state();
        QCOMPARE(gesture->hotSpot(), scene.toScreen(row.points[0]));
    };
    scene.drag(row.points);
    QCOMPARE(states, row.states);
}

// The gestures come beside it.
void tst_SceneGestures::touchBecomesMouse()
{
    const auto &row = currentRow(emulationRows);
    GestureScene scene;
    scene.item->setTransform(row.transform);
    scene.item->setOption(GraphicsObject::TouchToMouseEmulation, row.emulates);
    scene.item->grabGesture(GraphicsObject::pan1TouchGestureType());
    int pans = 0;
    scene.item->onGesture = [&](auto *, auto *) { ++pans; };
    for (int times = 0; times < 2; ++times) {
        scene.item->mouse.clear();
        scene.press(startPoints(row.transform, 1));
        scene.moveBy({10, 20});
        scene.release();
        QCOMPARE(scene.item->mouse.join(u(" ")), u(row.mouse));
    }
    QCOMPARE(pans, 4);
}

void tst_SceneGestures::systemPressIsSwallowed()
{
    GestureScene scene;
    scene.item->setOption(GraphicsObject::TouchToMouseEmulation);
    const QPoint point(400, 400);
    scene.press({point});
    QTest::mousePress(scene.view.viewport(), Qt::LeftButton, {}, point);
    QTest::mouseRelease(scene.view.viewport(), Qt::LeftButton, {}, point);
    scene.release();
    QCOMPARE(scene.item->mouse, QStringList({u("press 50,50"), u("release 50,50")}));
    QTest::mousePress(scene.view.viewport(), Qt::LeftButton, {}, point);
    QCOMPARE(scene.item->mouse.size(), 3);
}

void tst_SceneGestures::itemDiesDuringGesture()
{
    for (int type = 257; type <= 263; ++type) {
        GestureScene scene;
        scene.item->grabGesture(Qt::GestureType(type));
        int calls = 0;
        scene.item->onGesture = [&](auto *, auto *) {
            ++calls;
            scene.item->deleteLater();
        };
        scene.press(startPoints(unrotated, type == 263 ? 2 : (type - 257) % 3 + 1));
        scene.moveBy({60, 0});
        QCoreApplication::sendPostedEvents(scene.item, QEvent::DeferredDelete);
        QVERIFY(!scene.item);
        scene.moveBy({60, 0});
        scene.release();
        QCOMPARE(calls, type == 263 ? 2 : 1);
    }
    takeLog();
}

QTEST_MAIN(tst_SceneGestures)
#include "tst_scenegestures.moc"
