#include "galleryhost.h"
#include "guardedtest.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/Init>

#include <QGraphicsView>
#include <QIcon>
#include <QMetaEnum>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <functional>

//! What the operator does to a control, step by step.
static const struct
{
    const char *name;
    const char *widget;
    QVariantMap start;
    QPointF place;        // of the finger, in parts of the widget's size
    const char *steps;    // see Operator::steps(), or the name of a key
    QVariantList written; // to "value", in order
} controlRows[] = {
    {"momentary", "pushButton", {}, {0.5, 0.5}, "down up", {true, false}},
    {"momentary with hold time",
     "pushButton",
     {{u("holdTime"), 150}},
     {0.5, 0.5},
     "down up still",
     {true, false}},
    {"momentary, finger moved away", "pushButton", {}, {0.5, 0.5}, "down away up", {true, false}},
    {"momentary, touch cancelled", "pushButton", {}, {0.5, 0.5}, "down cancel", {true, false}},
    {"momentary, page left", "pushButton", {}, {0.5, 0.5}, "down deinit", {true, false}},
    {"momentary, hidden", "pushButton", {}, {0.5, 0.5}, "down hide", {true, false}},
    {"momentary, locked", "pushButton", {}, {0.5, 0.5}, "down lock up", {true, false}},
    {"momentary by mouse", "pushButton", {}, {0.5, 0.5}, "click", {true, false}},
    {"momentary by key", "pushButton", {}, {0.5, 0.5}, "Space", {true, false}},
    {"momentary, confirmed",
     "pushButton",
     {{u("confirm"), true}},
     {0.75, 0.75},
     "down up down up",
     {true, false}},
    {"toggle", "pushButton", {{u("mode"), 1}}, {0.5, 0.5}, "down up down up", {true, false}},
    {"toggle, finger moved away", "pushButton", {{u("mode"), 1}}, {0.5, 0.5}, "down away up", {}},
    {"toggle by key", "pushButton", {{u("mode"), 1}}, {0.5, 0.5}, "Return", {true}},
    {"set", "pushButton", {{u("mode"), 2}}, {0.5, 0.5}, "down up", {true}},
    {"reset", "pushButton", {{u("mode"), 3}, {u("value"), true}}, {0.5, 0.5}, "down up", {false}},
    {"refused",
     "pushButton",
     {{u("confirm"), true}, {u("mode"), 1}},
     {0.25, 0.75},
     "down up down up",
     {}},
    {"confirmed by key",
     "pushButton",
     {{u("confirm"), true}, {u("mode"), 1}},
     {0.5, 0.5},
     "Return Return",
     {true}},
    {"refused by key",
     "pushButton",
     {{u("confirm"), true}, {u("mode"), 1}},
     {0.5, 0.5},
     "Return Escape Escape",
     {}},
    {"locked while it asks",
     "pushButton",
     {{u("confirm"), true}, {u("mode"), 1}},
     {0.75, 0.75},
     "down up lock unlock down",
     {}},
    {"disabled", "pushButton", {{u("enabled"), false}, {u("mode"), 1}}, {0.5, 0.5}, "down up", {}},
    {"locked", "pushButton", {{u("mode"), 1}}, {0.5, 0.5}, "lock down up", {}},
    {"unlocked", "pushButton", {{u("mode"), 1}}, {0.5, 0.5}, "lock unlock down up", {true}},
    {"in the editor", "pushButton", {}, {0.5, 0.5}, "editor down up Space", {}},
    {"entry", "selector", {}, {0.9, 0.5}, "down up", {2}},
    {"entry with a number of its own",
     "selector",
     {{u("firstNumber"), 10}, {u("value"), 10}},
     {0.9, 0.5},
     "down up",
     {12}},
    {"entry chosen already", "selector", {}, {0.1, 0.5}, "down up", {}},
    {"entry, confirmed", "selector", {{u("confirm"), true}}, {0.95, 0.5}, "down up down up", {2}},
    {"next entry by key", "selector", {}, {0.5, 0.5}, "Right Right Right", {1, 2}},
    {"entry of a list", "selector", {{u("style"), 1}}, {0.5, 0.5}, "down up popup:0,2,1,3", {2}},
    {"list closed by a touch beside it",
     "selector",
     {{u("style"), 1}},
     {0.5, 0.5},
     "down up outside popup:0,2,1,3",
     {}},
    {"step up", "numericInput", {{u("step"), 2.5}}, {0.95, 0.5}, "down up", {2.5}},
    {"steps while held",
     "numericInput",
     {{u("maximum"), 3}},
     {0.95, 0.5},
     "down still up",
     {1.0, 2.0, 3.0}},
    {"step to the bound",
     "numericInput",
     {{u("maximum"), 0.5}},
     {0.95, 0.5},
     "down up down up",
     {0.5}},
    {"step down by key", "numericInput", {{u("value"), 5}}, {0.5, 0.5}, "Down", {4.0}},
    {"step, confirmed",
     "numericInput",
     {{u("confirm"), true}},
     {0.95, 0.5},
     "down up Return",
     {1.0}},
    {"number by keys", "numericInput", {}, {0.5, 0.5}, "4 2 Period 5 Return", {42.5}},
    {"number corrected", "numericInput", {}, {0.5, 0.5}, "4 2 Backspace Return", {4.0}},
    {"number given up", "numericInput", {}, {0.5, 0.5}, "4 Escape Return Return", {}},
    {"number too large", "numericInput", {}, {0.5, 0.5}, "4 2 0 Return Backspace Return", {42.0}},
    {"negative number", "numericInput", {{u("minimum"), -9}}, {0.5, 0.5}, "4 Minus Return", {-4.0}},
    {"number on the keypad",
     "numericInput",
     {},
     {0.5, 0.5},
     "down up popup:0,0,4,4 popup:1,3,4,4 popup:3,3,4,4",
     {70.0}},
    {"number undone",
     "numericInput",
     {{u("value"), 7}},
     {0.5, 0.5},
     "8 Return down up popup:3,1,4,4",
     {8.0, 7.0}},
    {"nothing to undo", "numericInput", {{u("value"), 7}}, {0.5, 0.5}, "down up popup:3,1,4,4", {}},
};

//! The gallery on a screen, and an operator's fingers, mouse and keyboard.
class tst_GalleryInput : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void controls_data() { addRows(controlRows); }
    void controls();
    void asksWithItsText();
    void lampBlinksWhileSeen();
    void trendFollowsFingers_data();
    void trendFollowsFingers();
    void trendReturnsToPresent();
    void trendRefreshesWhileLive();
    void alarmsAreAcknowledged();
    void alarmsScroll();
    void cleanup();

private:
    NARV::WidgetPrivate *show(const char *id, const QVariantMap &values = {}, QSizeF size = {});
    QWidget *screen() const { return m_view->viewport(); }
    //! The place on the screen of a point of the item, in parts of its size.
    QPoint at(const QPointF &place) const;
    void down(const QPoint &point);
    void moveTo(const QPoint &point);
    void up();
    void tap(const QPoint &point);
    void spread(const QPoint &center, int from, int to);
    void touchPopup(const QStringList &cell);
    void step(const QString &what, const QPointF &place);

    std::unique_ptr<GalleryHost> m_host;
    std::unique_ptr<QGraphicsView> m_view;
    NARV::WidgetPrivate *m_widget = nullptr;
    QTouchDevice *m_device = QTest::createTouchDevice();
    QPoint m_finger;
};

void tst_GalleryInput::initTestCase()
{
    startGuard();
    NARV::INTERNAL::narvInit(QIcon());
    m_host = std::make_unique<GalleryHost>();
    takeLog();
}

void tst_GalleryInput::init()
{
    startGuard();
    m_host->insideProjectEditor = false;
    m_host->tags.clear();
    m_host->alarms.clear();
    m_view = std::make_unique<QGraphicsView>(m_host->scene());
    screen()->setAttribute(Qt::WA_AcceptTouchEvents);
    m_view->setSceneRect(-100, -100, 1000, 800);
    m_view->resize(1020, 820);
    m_view->show();
    QApplication::setActiveWindow(m_view.get());
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

void tst_GalleryInput::cleanup()
{
    if (m_widget)
        m_widget->deinit();
    m_host->scene()->clear();
    m_view.reset();
    checkGuard();
}

NARV::WidgetPrivate *tst_GalleryInput::show(const char *id, const QVariantMap &values, QSizeF size)
{
    const auto widget = m_host->library().widgetsLatestVersion()[u(id)];
    m_widget = m_host->place({u(id), widget.version().version()}, values);
    m_host->resize(size.isValid() ? size : widget.defaultSize());
    m_host->item()->setFocus();
    QCoreApplication::processEvents();
    return m_widget;
}

QPoint tst_GalleryInput::at(const QPointF &place) const
{
    const QSizeF size = m_host->item()->size();
    const QPointF point(place.x() * size.width(), place.y() * size.height());
    return m_view->mapFromScene(m_host->item()->mapToScene(point));
}

void tst_GalleryInput::down(const QPoint &point)
{
    m_finger = point;
    QTest::touchEvent(screen(), m_device).press(0, point, screen());
}

void tst_GalleryInput::moveTo(const QPoint &point)
{
    m_finger = point;
    QTest::touchEvent(screen(), m_device).move(0, point, screen());
}

void tst_GalleryInput::up()
{
    QTest::touchEvent(screen(), m_device).release(0, m_finger, screen());
}

void tst_GalleryInput::tap(const QPoint &point)
{
    down(point);
    up();
}

void tst_GalleryInput::spread(const QPoint &center, int from, int to)
{
    const auto half = [](int distance) { return QPoint(distance / 2, 0); };
    QTest::touchEvent(screen(), m_device).press(0, center - half(from), screen());
    QTest::touchEvent(screen(), m_device)
        .move(0, center - half(from), screen())
        .press(1, center + half(from), screen());
    for (int distance = from; distance <= to; distance += (to - from) / 4)
        QTest::touchEvent(screen(), m_device)
            .move(0, center - half(distance), screen())
            .move(1, center + half(distance), screen());
    QTest::touchEvent(screen(), m_device)
        .release(0, center - half(to), screen())
        .release(1, center + half(to), screen());
    takeLog(); // the fingers, step by step
}

//! cell is column, row and the numbers of both.
void tst_GalleryInput::touchPopup(const QStringList &cell)
{
    const auto isPopup = [this](QGraphicsItem *item) { return item != m_host->item(); };
    const auto items = m_host->scene()->items();
    const auto popup = std::find_if(items.begin(), items.end(), isPopup);
    if (popup == items.end() || !(*popup)->isVisible())
        return;
    const QRectF area = (*popup)->boundingRect();
    const QPointF point((cell[0].toInt() + 0.5) / cell[2].toInt() * area.width(),
                        (cell[1].toInt() + 0.5) / cell[3].toInt() * area.height());
    tap(m_view->mapFromScene((*popup)->mapToScene(area.topLeft() + point)));
}

void tst_GalleryInput::step(const QString &what, const QPointF &place)
{
    const auto lock = [this](bool isLocked) {
        m_host->tags[u("lock")] = isLocked;
        m_widget->setFieldValue(u("interlockTag"), u("lock"), true, true);
    };
    const QMap<QString, std::function<void()>> steps{
        {u("down"), [&] { down(at(place)); }},
        {u("up"), [this] { up(); }},
        {u("away"),
         [this] {
             moveTo(at({1.2, 1.2}));
         }},
        {u("outside"),
         [this] {
             tap(at({-0.1, -0.1}));
         }},
        {u("click"), [&] { QTest::mouseClick(screen(), Qt::LeftButton, {}, at(place)); }},
        {u("cancel"),
         [this] {
             QTouchEvent cancel(QEvent::TouchCancel, m_device);
             m_host->scene()->sendEvent(m_host->item(), &cancel);
         }},
        {u("still"), [] { QTest::qWait(900); }},
        {u("deinit"), [this] { m_widget->deinit(); }},
        {u("hide"), [this] { m_host->item()->hide(); }},
        {u("lock"), [&] { lock(true); }},
        {u("unlock"), [&] { lock(false); }},
        {u("editor"), [] {}},
    };
    if (what.startsWith(u("popup:")))
        return touchPopup(what.mid(6).split(QLatin1Char(',')));
    if (steps.contains(what))
        return steps[what]();
    const int key = QMetaEnum::fromType<Qt::Key>().keyToValue(qPrintable(u("Key_") + what));
    QVERIFY2(key > 0, qPrintable(what));
    QTest::keyClick(m_view.get(), Qt::Key(key));
}

void tst_GalleryInput::controls()
{
    const auto &row = currentRow(controlRows);
    m_host->insideProjectEditor = QByteArray(row.steps).startsWith("editor");
    NARV::WidgetPrivate *widget = show(row.widget, row.start);
    QVariantList written;
    connect(widget, &NARV::WidgetPrivate::fieldIsChanged, this,
            [&](const QString &fieldId, const QVariant &value) {
                if (fieldId == u("value"))
                    written.append(value);
            });
    for (const QString &what : u(row.steps).split(QLatin1Char(' ')))
        step(what, row.place);
    QTRY_COMPARE_WITH_TIMEOUT(written, row.written, 500);
    QTest::qWait(20); // nor anything more
    QCOMPARE(written, row.written);
    disconnect(widget, nullptr, this, nullptr);
}

void tst_GalleryInput::asksWithItsText()
{
    for (const char *id : {"pushButton", "selector", "numericInput"}) {
        NARV::WidgetPrivate *widget = show(id, {{u("confirm"), true}});
        const QSizeF size = m_host->item()->size();
        QTest::keyClick(m_view.get(), Qt::Key_Up);
        QTest::keyClick(m_view.get(), Qt::Key_Down);
        QTest::keyClick(m_view.get(), Qt::Key_Space);
        const QImage question = m_host->grab(size);
        widget->setFieldValue(u("confirmText"), u("Really?"), true, true);
        QVERIFY2(m_host->grab(size) != question, id);
    }
}

void tst_GalleryInput::lampBlinksWhileSeen()
{
    NARV::WidgetPrivate *lamp =
        show("lamp", {{u("blink"), true}, {u("blinkState"), 3}, {u("blinkPeriod"), 200}});
    QSignalSpy changes(m_host->scene(), &QGraphicsScene::changed);
    const auto isBlinking = [&] {
        QTest::qWait(20); // what the last step has changed
        changes.clear();
        return changes.wait(350);
    };
    QVERIFY(!isBlinking());
    lamp->setFieldValue(u("state"), 3, true, true);
    const QImage lit = m_host->grab();
    QVERIFY(isBlinking());
    QTRY_VERIFY(m_host->grab() != lit);
    m_host->item()->hide();
    QVERIFY(!isBlinking());
    m_host->item()->show();
    QVERIFY(isBlinking());
    lamp->setFieldValue(u("state"), 1, true, true);
    QVERIFY(!isBlinking());
    lamp->setFieldValue(u("state"), 3, true, true);
    lamp->deinit();
    QVERIFY(!isBlinking());
    QCOMPARE(m_host->grab(), lit);
}

void tst_GalleryInput::trendFollowsFingers_data()
{
    QTest::addColumn<QTransform>("transform"); // of the item
    QTest::addRow("upright") << QTransform();
    QTest::addRow("turned and small") << QTransform().translate(400, 0).rotate(90).scale(0.5, 0.5);
    QTest::addRow("mirrored") << QTransform().translate(600, 0).scale(-1, 1);
}

void tst_GalleryInput::trendFollowsFingers()
{
    QFETCH(QTransform, transform);
    const auto &seen = m_host->trendRequest;
    NARV::WidgetPrivate *chart = show("trendChart", {{u("pen1"), u("level")}, {u("samples"), 77}});
    m_host->item()->setTransform(transform);
    QCOMPARE(seen.count, 77u);
    QCOMPARE(seen.span(), 600000);
    const qint64 present = seen.to;
    QVERIFY(qAbs(present - QDateTime::currentMSecsSinceEpoch()) < 5000);

    // Half the width into the past, slowly.
    down(at({0.3, 0.5}));
    moveTo(at({0.5, 0.5}));
    QTest::qWait(450);
    moveTo(at({0.8, 0.5}));
    up();
    const double moved = double(present - seen.to) / double(seen.span());
    QVERIFY2(moved > 0.5 && moved < 0.65, qPrintable(QString::number(moved)));
    QVERIFY(!chart->fieldValues[u("live")].toBool());

    const auto before = seen;
    spread(at({0.53, 0.5}), 60, 120);
    QVERIFY(qAbs(double(before.span()) / double(seen.span()) - 2) < 0.1);
    const auto middle = [](const auto &request) { return (request.from + request.to) / 2; };
    QVERIFY(qAbs(middle(before) - middle(seen)) < before.span() / 20);

    const qint64 last = seen.to;
    QTest::mousePress(screen(), Qt::LeftButton, {}, at({0.7, 0.5}));
    QMouseEvent move(QEvent::MouseMove, at({0.6, 0.5}), screen()->mapToGlobal(at({0.6, 0.5})),
                     Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(screen(), &move);
    QTest::qWait(450);
    QTest::mouseRelease(screen(), Qt::LeftButton, {}, at({0.6, 0.5}));
    QVERIFY(seen.to > last);
    QVERIFY(!chart->fieldValues[u("live")].toBool());
}

void tst_GalleryInput::trendReturnsToPresent()
{
    const auto &seen = m_host->trendRequest;
    NARV::WidgetPrivate *chart = show("trendChart", {{u("pen1"), u("level")}});
    const auto goBack = [&] {
        down(at({0.3, 0.5}));
        moveTo(at({0.6, 0.5}));
        moveTo(at({0.8, 0.5}));
        up();
        return !chart->fieldValues[u("live")].toBool();
    };
    const auto isLive = [&] {
        return chart->fieldValues[u("live")].toBool() && seen.span() == 600000 &&
               QDateTime::currentMSecsSinceEpoch() - seen.to < 2000;
    };
    QVERIFY(goBack());
    spread(at({0.5, 0.5}), 60, 120);
    QVERIFY(!isLive());
    down(at({0.8, 0.5})); // a quick swipe to the left
    moveTo(at({0.7, 0.5}));
    moveTo(at({0.65, 0.5}));
    up();
    QVERIFY(isLive());

    QVERIFY(goBack());
    tap(m_view->mapFromScene(QPointF(m_host->item()->size().width() - 50, 40))); // the button
    QVERIFY(isLive());

    QVERIFY(goBack());
    chart->setFieldValue(u("live"), true, true, true); // the host
    QVERIFY(isLive());
}

void tst_GalleryInput::trendRefreshesWhileLive()
{
    NARV::WidgetPrivate *chart =
        show("trendChart", {{u("pen1"), u("level")}, {u("refreshPeriod"), 100}});
    const auto isRefreshed = [this] {
        m_host->trendRequest = {};
        QTest::qWait(250);
        return m_host->trendRequest.to > 0;
    };
    QVERIFY(isRefreshed());
    chart->setFieldValue(u("live"), false, true, true);
    QVERIFY(!isRefreshed());
}

//! So many alarms, each a minute older than the one before, the first raised.
static QVector<NARV::AlarmInfo> alarms(int count)
{
    QVector<NARV::AlarmInfo> all;
    for (int i = 0; i < count; ++i) {
        NARV::AlarmInfoData data;
        data.name = QString::number(i);
        data.state = NARV::AlarmInfo::StateTriggeredNotAcknowledged;
        data.severity = i == 0 ? NARV::AlarmInfo::SeverityHigh : NARV::AlarmInfo::SeverityLow;
        data.timestamp = QDateTime(QDate(2024, 5, 1), QTime(10, 0)).addSecs(-60 * i);
        data.acknowledgeEnabled = data.resetEnabled = true;
        all.append(NARV::AlarmInfo(data));
    }
    return all;
}

// In a list of 500 by 300: rows of 40 below a header, buttons at the right and at the bottom.
static constexpr QPointF acknowledgeFirst(0.86, 0.15);
static constexpr QPointF resetFirst(0.95, 0.15);
static constexpr QPointF acknowledgeAll(0.5, 0.95);
static constexpr QPointF resetAll(0.9, 0.95);

void tst_GalleryInput::alarmsAreAcknowledged()
{
    m_host->alarms = alarms(3);
    NARV::WidgetPrivate *list = show("alarmList", {}, {500, 300});
    const auto isToldBy = [this](const QPointF &place) {
        m_host->calls.clear();
        tap(at(place));
        QStringList calls = m_host->calls;
        calls.removeAll(u("alarms"));
        return calls.join(QLatin1Char(','));
    };
    QCOMPARE(isToldBy(acknowledgeFirst), u("acknow 0"));
    QCOMPARE(isToldBy(resetFirst), u("reset 0"));
    QCOMPARE(isToldBy(resetAll), u("reset all"));
    QCOMPARE(isToldBy(acknowledgeAll), QString()); // asks
    const QImage question = m_host->grab({500, 300});
    list->setFieldValue(u("confirmText"), u("All?"), true, true);
    QVERIFY(m_host->grab({500, 300}) != question);
    QCOMPARE(isToldBy({0.77, 0.95}), QString()); // no
    QCOMPARE(isToldBy(acknowledgeAll), QString());
    QCOMPARE(isToldBy({0.95, 0.95}), u("acknow all"));

    // Those that are not listed are left alone.
    list->setFieldValue(u("confirmAcknowledgeAll"), false, true, true);
    list->setFieldValue(u("lowestSeverity"), 5, true, true);
    QTRY_COMPARE(list->fieldValues[u("alarmCount")].toInt(), 1);
    QCOMPARE(isToldBy(acknowledgeAll), u("acknow 0"));
    list->setFieldValue(u("allowAcknowledge"), false, true, true);
    QCOMPARE(isToldBy(acknowledgeFirst), QString());
}

void tst_GalleryInput::alarmsScroll()
{
    m_host->alarms = alarms(50);
    show("alarmList", {}, {500, 300});
    down(at({0.3, 0.7})); // by five rows
    moveTo(at({0.3, 0.5}));
    moveTo(at({0.3, 0.7}) - QPoint(0, 200));
    up();
    m_host->calls.clear();
    tap(at(acknowledgeFirst));
    QCOMPARE(m_host->calls, QStringList(u("acknow 5")));

    m_host->calls.clear();
    down(at(acknowledgeFirst)); // a drag presses nothing
    moveTo(at(acknowledgeFirst) + QPoint(0, 120));
    moveTo(at(acknowledgeFirst));
    up();
    QVERIFY(m_host->calls.isEmpty());
}

QTEST_MAIN(tst_GalleryInput)
#include "tst_galleryinput.moc"
