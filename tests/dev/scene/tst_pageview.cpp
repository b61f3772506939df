#include "guardedtest.h"

#include "console/eventlog.h"
#include "data/testdata.h"
#include "scene/handlegeometry.h"
#include "scene/pageview.h"
#include "scene/paintturns.h"
#include "session/pluginsession.h"
#include "touch/touchsimulator.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/Init>

#include <QBackingStore>
#include <QDropEvent>
#include <QIcon>
#include <QMimeData>

#include <algorithm>
#include <functional>
#include <memory>

using namespace NARV::DEV;

class tst_PageView : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { NARV::INTERNAL::narvInit(QIcon()); }
    void init();
    void cleanup();
    void selectingAndMoving();
    void resizingAndRotating();
    void tinyWidgets_data();
    void tinyWidgets();
    void rubberBand();
    void keyboard();
    void dropping();
    void zooming();
    void turnsToPaint();
    void manyWidgets();
    void inputOfTheRuntime();

private:
    PlacedWidget &place(const QPointF &centre);
    QPoint at(const QPointF &scenePosition) const
    {
        return m_bench->view.mapFromScene(scenePosition);
    }
    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {});

    struct Bench
    {
        PluginSession session;
        TestData data;
        EventLog events;
        SceneDocument document{session, data, events};
        PageView view{document};
    };
    std::unique_ptr<Bench> m_bench;
};

void tst_PageView::init()
{
    startGuard();
    m_bench = std::make_unique<Bench>();
    m_bench->view.resize(1400, 900);
    m_bench->view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_bench->view));
    m_bench->view.setZoom(1);
    QVERIFY(m_bench->session.open(QStringLiteral(GALLERY_LIBRARY)));
    QTRY_VERIFY(m_bench->session.isLoaded());
    takeLog();
}

void tst_PageView::cleanup()
{
    m_bench.reset();
    checkGuard();
}

PlacedWidget &tst_PageView::place(const QPointF &centre)
{
    return *m_bench->document.place(u("gauge"), u("1.0.0"), centre);
}

void tst_PageView::drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers)
{
    QWidget *target = m_bench->view.viewport();
    QTest::mousePress(target, Qt::LeftButton, modifiers, from);
    for (const QPoint &position : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(target, &move);
    }
    QTest::mouseRelease(target, Qt::LeftButton, modifiers, to);
}

void tst_PageView::selectingAndMoving()
{
    SceneDocument &document = m_bench->document;
    PlacedWidget &first = place({200, 200});
    PlacedWidget &second = place({600, 200});
    QTest::mouseClick(m_bench->view.viewport(), Qt::LeftButton, {}, at({200, 200}));
    QCOMPARE(document.selection(), QList<PlacedWidget *>({&first}));
    QTest::mouseClick(m_bench->view.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      at({600, 200}));
    QCOMPARE(document.selection(), QList<PlacedWidget *>({&first, &second}));
    const int steps = document.undoStack().count();
    const QPointF from = first.state().position;
    drag(at({200, 200}), at({260, 230}));
    QCOMPARE(first.state().position, from + QPointF(60, 30));
    QCOMPARE(first.item()->pos(), first.state().position);
    QCOMPARE(document.undoStack().count(), steps + 1);
    drag(at({260, 230}), at({300, 233}), Qt::ShiftModifier);
    QTest::mouseClick(m_bench->view.viewport(), Qt::LeftButton, {}, at({900, 700}));
    QVERIFY(document.selection().isEmpty());
    document.undoStack().setIndex(steps);
    QCOMPARE(first.state().position, from);
    // To give up a drag that was undone undoes nothing more.
    QTest::mousePress(m_bench->view.viewport(), Qt::LeftButton, {}, at({200, 200}));
    QMouseEvent move(QEvent::MouseMove, at({250, 200}), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_bench->view.viewport(), &move);
    document.undoStack().undo();
    QTest::keyClick(&m_bench->view, Qt::Key_Escape);
    QCOMPARE(document.undoStack().index(), steps);
}

void tst_PageView::resizingAndRotating()
{
    PlacedWidget &widget = place({400, 400});
    const WidgetState before = widget.state();
    const QPoint corner = at(handlePosition(before, {1, 1}, 0));
    drag(corner, corner + QPoint(40, 20));
    QCOMPARE(widget.state().size, before.size + QSizeF(40, 20));
    QCOMPARE(widget.item()->size(), widget.state().size);
    const QPoint grip = at(handlePosition(widget.state(), {0, 0}, 24));
    drag(grip, at(centreOf(widget.state()) + QPointF(300, 0)));
    QCOMPARE(widget.state().rotation, 90.0);
    QCOMPARE(widget.item()->rotation(), 90.0);
    m_bench->document.undoStack().setIndex(1);
    QCOMPARE(widget.state().size, before.size);
}

void tst_PageView::tinyWidgets_data()
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : {0.05, 0.4, 1.0, 2.5, 16.0})
        QTest::addRow("%g", zoom) << zoom;
}

// Its middle moves it and the handles resize it, however small it is on the screen.
void tst_PageView::tinyWidgets()
{
    QFETCH(double, zoom);
    place({50, 40});
    PlacedWidget &widget = place({50, 40});
    m_bench->document.setGeometry(widget, {47, 38}, {6, 4}, 0);
    m_bench->view.setZoom(zoom);
    const QPoint by(60, 40);
    const QPoint middle = at(centreOf(widget.state()));
    for (const QPoint &grasp : {QPoint(0, 0), QPoint(4, -4)}) {
        const WidgetState before = widget.state();
        drag(middle + grasp, middle + grasp + by);
        const QPointF moved = widget.state().position - before.position;
        QVERIFY((moved - QPointF(by) / zoom).manhattanLength() <= 1 + 1 / zoom);
        QCOMPARE(widget.state().size, before.size);
        m_bench->document.undoStack().undo();
    }
    for (const Handle &handle : allHandles()) {
        const WidgetState before = widget.state();
        const QPoint point = at(handlePosition(handleFrame(before, zoom), handle, 24 / zoom));
        drag(point, point + QPoint(handle.horizontal, handle.vertical) * 50);
        QCOMPARE(widget.state().size.width() > before.size.width(), handle.horizontal != 0);
        QCOMPARE(widget.state().size.height() > before.size.height(), handle.vertical != 0);
        if (widget.state().size != before.size)
            m_bench->document.undoStack().undo();
    }
}

void tst_PageView::rubberBand()
{
    PlacedWidget &first = place({200, 200});
    place({600, 200});
    PlacedWidget &third = place({200, 600});
    m_bench->document.select({});
    drag(at({5, 5}), at({250, 650}));
    QCOMPARE(m_bench->document.selection(), QList<PlacedWidget *>({&first, &third}));
    // A widget goes while the band is drawn.
    for (const auto extending : {Qt::NoModifier, Qt::ControlModifier}) {
        QWidget *target = m_bench->view.viewport();
        QTest::mousePress(target, Qt::LeftButton, extending, at({400, 5}));
        m_bench->document.undoStack().undo();
        QMouseEvent move(QEvent::MouseMove, at({300, 50}), Qt::NoButton, Qt::LeftButton, extending);
        QCoreApplication::sendEvent(target, &move);
        QTest::keyClick(&m_bench->view, Qt::Key_Escape);
        QCOMPARE(m_bench->document.selection(), QList<PlacedWidget *>({&first}));
        QTest::mouseRelease(target, Qt::LeftButton, {}, at({300, 50}));
        m_bench->document.undoStack().redo();
        m_bench->document.select({&first, m_bench->document.widgets().last()});
    }
}

void tst_PageView::keyboard()
{
    SceneDocument &document = m_bench->document;
    PlacedWidget &first = place({200, 200});
    PlacedWidget &second = place({600, 200});
    const int steps = document.undoStack().count();
    const QPointF from = second.state().position;
    QTest::keyClick(&m_bench->view, Qt::Key_Right);
    QTest::keyClick(&m_bench->view, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(second.state().position, from + QPointF(1, 10));
    QCOMPARE(document.undoStack().count(), steps + 1);
    QTest::keyClick(&m_bench->view, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(document.currentWidget(), &first);
    QTest::keyClick(&m_bench->view, Qt::Key_Tab);
    QCOMPARE(document.currentWidget(), &second);
    QTest::keyClick(&m_bench->view, Qt::Key_Escape);
    QVERIFY(document.selection().isEmpty());
    // Escape during a drag takes it back.
    QTest::mousePress(m_bench->view.viewport(), Qt::LeftButton, {}, at({200, 200}));
    QMouseEvent move(QEvent::MouseMove, at({300, 300}), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_bench->view.viewport(), &move);
    QTest::keyClick(&m_bench->view, Qt::Key_Escape);
    QCOMPARE(centreOf(first.state()), QPointF(200, 200));
    QTest::mouseRelease(m_bench->view.viewport(), Qt::LeftButton, {}, at({300, 300}));
}

//! The toolkit delivers a drop where a drag has entered.
static void drop(QWidget *target, const QPoint &position, const QMimeData &data)
{
    QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent event(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

void tst_PageView::dropping()
{
    QMimeData dropped;
    dropped.setData(PageView::widgetMimeType(), "lamp\n1.0.0");
    drop(m_bench->view.viewport(), at({300, 250}), dropped);
    QCOMPARE(m_bench->document.widgets().size(), 1);
    QCOMPARE(centreOf(m_bench->document.currentWidget()->state()), QPointF(300, 250));
    dropped.setData(PageView::widgetMimeType(), "lamp");
    drop(m_bench->view.viewport(), at({300, 250}), dropped);
    QCOMPARE(m_bench->document.widgets().size(), 1);
}

void tst_PageView::zooming()
{
    PageView &view = m_bench->view;
    view.zoomToFit();
    const QRectF page = m_bench->document.graphicsScene().sceneRect();
    QVERIFY(view.mapToScene(view.viewport()->rect()).boundingRect().contains(page));
    const double fitting = view.zoom();
    view.resize(700, 450);
    QTRY_VERIFY(view.zoom() < fitting);
    view.setZoom(1000);
    QCOMPARE(view.zoom(), 16.0);
}

// Who has waited comes first, even if those below want to paint again and again.
void tst_PageView::turnsToPaint()
{
    static constexpr int widgets = 5;
    PaintTurns turns;
    QStringList painted;
    QVector<QRect> waiting;
    for (int frame = 0; frame < 4; ++frame) {
        turns.startFrame(QRect(0, 0, 100, 100), {100, 100});
        for (int i = 0; i < widgets; ++i) {
            if (!turns.isDue(i, QRect(i, 0, 1, 1)))
                continue;
            painted += QString::number(i);
            turns.spend(10'000'000);
        }
        waiting += turns.endFrame();
    }
    QCOMPARE(painted.join(QString()), u("0123401"));
    QCOMPARE(waiting, (QVector<QRect>{{2, 0, 3, 1}, {0, 0, 5, 1}, {0, 0, 4, 1}, {2, 0, 3, 1}}));
    turns.startFrame(QRect(0, 0, 4000, 4000), {4000, 4000});
    QVERIFY(!turns.exchange({}, {4001, 4000}));
    QVERIFY(!turns.isShortOfMemory());
    QVERIFY(turns.exchange({}, {4000, 4000}) && turns.exchange({}, {4000, 4000}));
    QVERIFY(!turns.exchange({}, {4000, 4000}));
    QVERIFY(turns.isShortOfMemory());
    QVERIFY(turns.exchange({4000, 4000}, {4000, 3999}));
}

//! No channel of any pixel differs by more than what the smoothing of edges does, and small type
//! whose place is rounded another way. A needle elsewhere differs by more.
static bool isAlike(const QImage &a, const QImage &b)
{
    static constexpr int smoothing = 128;
    const QImage one = a.convertToFormat(QImage::Format_RGB32);
    const QImage other = b.convertToFormat(QImage::Format_RGB32);
    return std::equal(one.constBits(), one.constBits() + one.sizeInBytes(), other.constBits(),
                      other.constBits() + other.sizeInBytes(),
                      [](int x, int y) { return qAbs(x - y) <= smoothing; });
}

// The screen comes to show what a picture of the window, which waits for all widgets, has at once.
void tst_PageView::manyWidgets()
{
    PageView &view = m_bench->view;
    SceneDocument &document = m_bench->document;
    QList<WidgetState> states;
    for (int i = 0; i < 120; ++i) {
        WidgetState state;
        state.widgetId = u("gauge");
        state.version = u("1.0.0");
        state.position = {i % 12 * 70.0, i / 12 * 70.0};
        state.size = {70, 70};
        states += state;
    }
    view.resize(600, 400);
    document.add(states, {}, u("Add"));
    document.select({});
    PlacedWidget &widget = *document.widgets()[50];
    const auto screen = [&view] {
        const double ratio = view.devicePixelRatioF();
        const QRect area(view.viewport()->mapTo(view.window(), QPoint()) * ratio,
                         view.viewport()->size() * ratio);
        return static_cast<QImage *>(view.backingStore()->paintDevice())->copy(area);
    };
    const std::function<void()> changes[] = {
        [] {},
        [&] { view.setZoom(0.7); },
        [&] { document.setFieldValue(widget, u("value"), 80.0); },
        [&] {
            widget.shownItem()->setZValue(-1); // as its own code may do
            document.setFieldValue(widget, u("value"), 20.0);
        },
        [&] {
            document.setGeometry(widget, {100.5, 30.2}, {120, 90}, 0);
        },
        [&] { widget.shownItem()->setOpacity(0.5); },
        [&] { document.setMode(SceneDocument::Mode::Runtime); },
        [&] { view.setZoom(16); },
        [&] { m_bench->session.close(); },
    };
    QImage before(screen());
    for (const auto &change : changes) {
        change();
        QTest::qWait(100); // a grab before would tell the scene that it has been painted
        QTRY_VERIFY(isAlike(screen(), view.viewport()->grab().toImage()));
        QVERIFY(screen() != before);
        before = screen();
    }
    QVERIFY(widget.shownItem()->graphicsEffect());
    document.remove(document.widgets().mid(60));
    view.setZoom(1);
    QTRY_VERIFY(!widget.shownItem()->graphicsEffect());
}

// Clicks select nothing, and the simulated fingers reach the widget as gestures.
void tst_PageView::inputOfTheRuntime()
{
    SceneDocument &document = m_bench->document;
    PlacedWidget &trend = *document.place(u("trendChart"), u("1.0.0"), {400, 300});
    document.select({});
    document.setMode(SceneDocument::Mode::Runtime);
    drag(at({400, 300}), at({300, 300}));
    QVERIFY(document.selection().isEmpty());
    m_bench->events.flush();
    m_bench->events.clear();
    m_bench->view.touchSimulator().setFingers(1);
    drag(at({400, 300}), at({300, 300}));
    m_bench->events.flush();
    bool hasPanned = false;
    for (int row = 0; row < m_bench->events.rowCount(); ++row) {
        const EventRecord &record = m_bench->events.record(row);
        hasPanned |= record.kind == EventLog::Kind::Gesture && record.widget == trend.name() &&
                     record.text.contains(u("one-finger pan"));
    }
    QVERIFY(hasPanned);
}

QTEST_MAIN(tst_PageView)

#include "tst_pageview.moc"
