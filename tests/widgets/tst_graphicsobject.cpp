#include "guardedtest.h"
#include "recordinglibrary.h"

#include <NARV/NullGraphicsObject>

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QStyleOptionGraphicsItem>
#include <QTouchEvent>

using NARV::GraphicsObject;
using NARV::INTERNAL::GraphicsObjectPrivateAccessor;

static const struct
{
    const char *name;
    QSizeF size; // after 100 by 50
    bool isChange;
} resizeRows[] = {
    {"same", {100, 50}, false},
    {"nearly same", {100 + 1e-11, 50}, false},
    {"other width", {100.001, 50}, true},
    {"other height", {100, 51}, true},
    {"nothing", {0, 0}, true},
    {"negative", {-3, -4}, true},
    {"no number", {qQNaN(), 50}, false},
    {"infinite", {100, qInf()}, false},
    {"minus infinite", {-qInf(), -qInf()}, false},
};

class tst_GraphicsObject : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void resize_data() { addRows(resizeRows); }
    void resize();
    void resizeUpdatesTheScene();
    void touchBecomesMouse();
    void acceptedStateFollowsTheMouseEvent();
    void synthesisedPressIsSwallowed();
    void itemDeletedInMouseHandler();
    void nullObjectPaints();
};

void tst_GraphicsObject::defaults()
{
    GaugeFixture gauge(1);
    RecordingItem *item = gauge.items[0];
    QCOMPARE(item->size(), QSizeF(-1, -1));
    QVERIFY(item->acceptTouchEvents() && !item->parentItem() && !item->parent());
    item->setOption(GraphicsObject::TouchToMouseEmulation);
    item->setOption(GraphicsObject::TouchToMouseEmulation, false);
    QCOMPARE(item->options(), GraphicsObject::Options());
    item->setAcceptTouchAndMouseEvents(false);
    QVERIFY(!item->acceptTouchEvents() && !item->flags().testFlag(QGraphicsItem::ItemIsFocusable));
    item->setAcceptTouchAndMouseEvents(true);
    QVERIFY(item->acceptTouchEvents() && item->flags().testFlag(QGraphicsItem::ItemIsFocusable) &&
            item->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    item->setData(0, 5);
    QCOMPARE(item->data(0), QVariant(5));
}

void tst_GraphicsObject::resize()
{
    const auto &[name, size, isChange] = currentRow(resizeRows);
    GaugeFixture gauge(1);
    QList<QSizeF> sizes;
    gauge.items[0]->onHandler = [&](NARV::Event *event) {
        const auto *change = static_cast<NARV::ResizeEvent *>(event);
        sizes << change->oldSize() << change->size() << gauge.items[0]->size();
    };
    auto *priv = GraphicsObjectPrivateAccessor::priv(gauge.items[0]);
    const QSizeF before(100, 50);
    priv->resize(before);
    QCOMPARE(sizes, (QList<QSizeF>{QSizeF(-1, -1), before, before}));
    QCOMPARE(gauge.heard(), u("1?Resize 1!Resize"));
    sizes.clear();
    priv->resize(size);
    QCOMPARE(sizes, isChange ? (QList<QSizeF>{before, size, size}) : QList<QSizeF>());
    QCOMPARE(gauge.items[0]->boundingRect(), QRectF(QPointF(), isChange ? size : before));
}

void tst_GraphicsObject::resizeUpdatesTheScene()
{
    GaugeFixture gauge(1);
    QGraphicsScene scene(0, 0, 1000, 1000);
    scene.setBspTreeDepth(4);
    scene.addItem(gauge.items[0]);
    auto *priv = GraphicsObjectPrivateAccessor::priv(gauge.items[0]);
    priv->resize(QSizeF(10, 10));
    QCoreApplication::processEvents();
    QVERIFY(scene.items(QPointF(800, 5)).isEmpty());
    QSignalSpy changed(&scene, &QGraphicsScene::changed);
    priv->resize(QSizeF(10, 10));
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 0);
    priv->resize(QSizeF(900, 10));
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(scene.items(QPointF(800, 5)), QList<QGraphicsItem *>{gauge.items[0]});
    scene.removeItem(gauge.items[0]);
}

// A touch of one point, moved from x - 1 to x.
static QTouchEvent touch(QEvent::Type type, qreal x)
{
    QTouchEvent::TouchPoint point(3);
    point.setPos(QPointF(x, 2));
    point.setLastPos(QPointF(x - 1, 2));
    point.setScenePos(QPointF(x + 100, 0));
    point.setLastScenePos(QPointF(x + 99, 0));
    point.setScreenPos(QPointF(x + 200.6, 0));
    point.setLastScreenPos(QPointF(x + 199.6, 0));
    return QTouchEvent(type, nullptr, Qt::NoModifier, {}, {point});
}

static bool send(RecordingItem *item, QTouchEvent event)
{
    return item->sceneEvent(&event);
}

void tst_GraphicsObject::touchBecomesMouse()
{
    GaugeFixture gauge(1);
    RecordingItem *item = gauge.items[0];
    const auto *priv = GraphicsObjectPrivateAccessor::priv(item);
    QVERIFY(!send(item, touch(QEvent::TouchBegin, 1)));
    item->setOptions(GraphicsObject::TouchToMouseEmulation);
    QVERIFY(!send(item, QTouchEvent(QEvent::TouchBegin)));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(send(item, touch(QEvent::TouchBegin, 1)));
        QCOMPARE(priv->touchPointId, 3);
    }
    QVERIFY(send(item, touch(QEvent::TouchUpdate, 2)));
    QVERIFY(send(item, touch(QEvent::TouchEnd, 3)));
    QCOMPARE(priv->touchPointId, -1);
    const QStringList expected{u("press 1/1 1,2 0,2 101,0 100,0 202,0 201,0"),
                               u("move 0/1 2,2 1,2 102,0 101,0 203,0 202,0"),
                               u("release 1/0 3,2 2,2 103,0 102,0 204,0 203,0")};
    QCOMPARE(item->mouse, expected);

    item->mouse.clear();
    for (int i = 0; i < 2; ++i) {
        send(item, touch(QEvent::TouchBegin, 1));
        QVERIFY(!send(item, QTouchEvent(QEvent::TouchCancel)));
    }
    QCOMPARE(item->mouse.size(), 2);
}

void tst_GraphicsObject::acceptedStateFollowsTheMouseEvent()
{
    GaugeFixture gauge(1);
    gauge.items[0]->setOption(GraphicsObject::TouchToMouseEmulation);
    for (const bool accepts : {false, true}) {
        gauge.items[0]->acceptsMouse = accepts;
        for (const auto type : {QEvent::TouchBegin, QEvent::TouchUpdate, QEvent::TouchEnd}) {
            QTouchEvent event = touch(type, 1);
            event.setAccepted(!accepts);
            QVERIFY(gauge.items[0]->sceneEvent(&event));
            QCOMPARE(event.isAccepted(), accepts);
        }
    }
}

// The system's own press beside a touch. One that the program sends, or without a touch, is real.
void tst_GraphicsObject::synthesisedPressIsSwallowed()
{
    for (const auto &[touching, spontaneous] :
         {std::pair(true, true), {false, true}, {true, false}}) {
        GaugeFixture gauge(1);
        RecordingItem *item = gauge.items[0];
        item->setOption(GraphicsObject::TouchToMouseEmulation);
        if (touching)
            send(item, touch(QEvent::TouchBegin, 1));
        item->mouse.clear();
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        if (spontaneous)
            QSpontaneKeyEvent::setSpontaneous(&press);
        QVERIFY(item->sceneEvent(&press));
        QCOMPARE(item->mouse.isEmpty(), touching && spontaneous);
        QCOMPARE(press.isAccepted(), !(touching && spontaneous));
    }
}

void tst_GraphicsObject::itemDeletedInMouseHandler()
{
    GaugeFixture gauge(1);
    gauge.items[0]->setOption(GraphicsObject::TouchToMouseEmulation);
    gauge.items[0]->onMouse = [&gauge] { delete gauge.items[0]; };
    QVERIFY(send(gauge.items[0], touch(QEvent::TouchBegin, 1)));
    QVERIFY(!gauge.items[0] && gauge.widget->graphicsObjectsList().isEmpty());
}

// The small icon is stretched over the item, as far as that is exposed, but only in the editor.
void tst_GraphicsObject::nullObjectPaints()
{
    QPixmap red(4, 4);
    red.fill(Qt::red);
    for (const auto &[insideEditor, hasIcon] :
         {std::pair(true, true), {true, false}, {false, true}}) {
        GaugeFixture gauge;
        gauge.priv()->graphicsObjectMetaObject = &NARV::NullGraphicsObject::staticMetaObject;
        gauge.host.insideProjectEditor = insideEditor;
        gauge.widget->ownIcon = hasIcon ? QIcon(red) : QIcon();
        const QScopedPointer<GraphicsObject> item(gauge.priv()->newGraphicsObjectInstance());
        GraphicsObjectPrivateAccessor::priv(item.data())->resize(QSizeF(20, 10));

        QImage image(30, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionGraphicsItem option;
        option.exposedRect = QRectF(0, 0, 15, 10);
        item->paint(&painter, &option, nullptr);
        painter.end();
        QCOMPARE(image.pixelColor(14, 9), QColor(insideEditor && hasIcon ? Qt::red : Qt::white));
        QCOMPARE(image.pixelColor(17, 5), QColor(Qt::white));
        QCOMPARE(image.pixelColor(5, 12), QColor(Qt::white));
    }
}

QTEST_MAIN(tst_GraphicsObject)
#include "tst_graphicsobject.moc"
