#include "guardedtest.h"
#include "recordinglibrary.h"

#include <NARV/INTERNAL/WidgetActionManagerPrivateAccessor>
#include <NARV/LogHandler>

#include <QGraphicsScene>
#include <QSignalSpy>

#include <stdexcept>

using NARV::INTERNAL::GraphicsObjectPrivateAccessor;

static const QString level = u("level");
static const QString secret = u("secret");
static const QString none = u("none");

static const struct
{
    const char *name;
    void (*act)(GaugeFixture &);
} eventRows[] = {
    {"InitEvent", [](GaugeFixture &gauge) { gauge.priv()->init(); }},
    {"DeinitEvent",
     [](GaugeFixture &gauge) {
         gauge.priv()->init();
         gauge.journal.clear();
         gauge.priv()->deinit();
     }},
    {"FieldIsChanged", [](GaugeFixture &gauge) { gauge.items[1]->setFieldValue(level, 1); }},
    {"AlarmStatusIsChanged",
     [](GaugeFixture &gauge) { gauge.priv()->alarmEvent(NARV::AlarmInfo()); }},
};

static const struct
{
    const char *name;
    QString field;
    QVariant value;
    bool isInternal;
    QVariant stored; // before: 7
    int signalCount;
    int eventCount;
} writeRows[] = {
    {"plugin", level, 8, false, 8, 1, 1},         {"plugin, equal", level, 7, false, 7, 1, 0},
    {"converted", level, u("8"), false, 8, 1, 1}, {"unconvertible", level, u("x"), false, 7, 0, 0},
    {"forbidden", secret, 8, false, 7, 0, 0},     {"host", level, 8, true, 8, 0, 1},
    {"host, equal", level, 7, true, 7, 0, 0},     {"host, forbidden", secret, 8, true, 8, 0, 1},
    {"host, unknown", none, 8, true, {}, 0, 0},
};

// The second of three items deletes some. Afterwards each item that is still there has heard the
// event once, those gone before their turn have not.
static const struct
{
    const char *name;
    bool isInHandler; // else in narvEvent()
    QVector<int> victims;
    const char *heard;
} intrusionRows[] = {
    {"earlier", true, {0}, "w? w! 1? 1! 2? 2! 3? 3!"},
    {"later", true, {2}, "w? w! 1? 1! 2? 2!"},
    {"itself", true, {1}, "w? w! 1? 1! 2? 2! 3? 3!"},
    {"itself at once", false, {1}, "w? w! 1? 1! 2? 3? 3!"},
    {"all at once", false, {0, 2, 1}, "w? w! 1? 1! 2?"},
};

// Who deletes the widget when a field is written, and what is heard of that.
static const struct
{
    const char *name;
    void (*arm)(GaugeFixture &);
    const char *heard;
} killerRows[] = {
    {"slot of the signal",
     [](GaugeFixture &gauge) {
         QObject::connect(gauge.priv(), &NARV::WidgetPrivate::fieldIsChanged,
                          [&gauge] { delete gauge.widget; });
     },
     ""},
    {"widget",
     [](GaugeFixture &gauge) {
         gauge.widget->onEvent = [&gauge](NARV::Event *) { delete gauge.widget; };
     },
     "w?"},
    {"item",
     [](GaugeFixture &gauge) {
         gauge.items[0]->onEvent = [&gauge](NARV::Event *) { delete gauge.widget; };
     },
     "w? w! 1?"},
    {"write in an item",
     [](GaugeFixture &gauge) {
         gauge.items[0]->onEvent = [&gauge](NARV::Event *) {
             gauge.widget->onEvent = [&gauge](NARV::Event *) { delete gauge.widget; };
             gauge.items[0]->setFieldValue(level, 2);
         };
     },
     "w? w! 1? w?"},
};

class tst_Widget : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void graphicsObjectsList();
    void eventOrder_data() { addRows(eventRows); }
    void eventOrder();
    void initAndDeinitAreIdempotent();
    void writes_data() { addRows(writeRows); }
    void writes();
    void reads();
    void failuresAreLoggedInsideTheTestBenchOnly();
    void changes();
    void writeOfTheSameValueIsNoChange();
    void intrusiveHandlers_data() { addRows(intrusionRows); }
    void intrusiveHandlers();
    void itemMadeInHandlerIsNotServed();
    void stateChangedInHandler();
    void widgetDeletedInHandler_data() { addRows(killerRows); }
    void widgetDeletedInHandler();
    void itemReplacedInHandler();
    void nestedDeliveries();
    void exceptionInHandler();
    void logInHandler();
    void valuesSeenFromOutside();
    void itemOutlivesWidget();
    void eventWhileItemIsDestroyed();
    void roles();
    void asksTheHost();
    void managesWithoutHost();
};

void tst_Widget::graphicsObjectsList()
{
    GaugeFixture gauge(3);
    QCOMPARE(gauge.items[0]->id(), u("gauge"));
    QCOMPARE(gauge.items[0]->version(), u("1.0.0"));
    QCOMPARE(gauge.items[0]->widget(), gauge.widget);
    delete gauge.items[1];
    const QList<NARV::GraphicsObject *> left{gauge.items[0], gauge.items[2]};
    QCOMPARE(gauge.widget->graphicsObjectsList(), left);
}

void tst_Widget::eventOrder()
{
    const auto &[type, act] = currentRow(eventRows);
    GaugeFixture gauge(2);
    act(gauge);
    QCOMPARE(gauge.heard(type), u("w? w! 1? 1! 2? 2!"));
    GaugeFixture consuming(2);
    consuming.widget->consumes = consuming.items[1]->consumes = true;
    act(consuming);
    QCOMPARE(consuming.heard(type), u("w? 1? 1! 2?"));
}

void tst_Widget::initAndDeinitAreIdempotent()
{
    GaugeFixture gauge(1);
    gauge.priv()->deinit();
    gauge.priv()->init();
    gauge.priv()->init();
    QCOMPARE(gauge.heard("InitEvent"), u("w? w! 1? 1!"));
    GraphicsObjectPrivateAccessor::priv(gauge.addItem())->init();
    QCOMPARE(gauge.heard("InitEvent"), u("2? 2!"));
    gauge.priv()->deinit();
    gauge.priv()->deinit();
    QCOMPARE(gauge.heard("DeinitEvent"), u("w? w! 1? 1! 2? 2!"));
}

void tst_Widget::writes()
{
    const auto &row = currentRow(writeRows);
    GaugeFixture gauge;
    gauge.priv()->setFieldValue(level, 7, true, false);
    gauge.priv()->setFieldValue(secret, 7, true, false);
    QCOMPARE(gauge.heard(), QString());
    QSignalSpy spy(gauge.priv(), &NARV::WidgetPrivate::fieldIsChanged);
    gauge.priv()->setFieldValue(row.field, row.value, row.isInternal, true);
    const QVariant stored = gauge.priv()->getFieldValue(row.field, true);
    QCOMPARE(stored, row.stored);
    QCOMPARE(stored.userType(), row.stored.userType());
    QCOMPARE(spy.count(), row.signalCount);
    QCOMPARE(gauge.heard().count(QLatin1Char('!')), row.eventCount);
    if (!spy.isEmpty())
        QCOMPARE(spy.first(), (QVariantList{row.field, row.stored}));
}

void tst_Widget::reads()
{
    GaugeFixture gauge(1);
    gauge.priv()->setFieldValue(level, 7, true, false);
    gauge.priv()->setFieldValue(secret, 7, true, false);
    const auto *item = GraphicsObjectPrivateAccessor::priv(gauge.items[0]);
    QVariantList found;
    for (const QString &field : {level, secret, none})
        found << gauge.widget->getFieldValue(field) << gauge.items[0]->getFieldValue(field)
              << item->getFieldValue(field, true);
    const QVariant invalid;
    QCOMPARE(found, (QVariantList{7, 7, 7, invalid, invalid, 7, invalid, invalid, invalid}));
}

void tst_Widget::failuresAreLoggedInsideTheTestBenchOnly()
{
    GaugeFixture gauge;
    for (const bool inside : {false, true}) {
        gauge.host.insideDevProject = inside;
        gauge.widget->getFieldValue(none);
        gauge.widget->getFieldValue(secret);
        gauge.widget->setFieldValue(none, 1);
        gauge.widget->setFieldValue(secret, 1);
        gauge.widget->setFieldValue(level, u("x"));
    }
    const char *wrongValue = "setFieldValue called with wrong value for the field  \"level\" "
                             ": value is  QVariant(QString, \"x\")";
    QList<LogEntry> expected;
    for (const char *text : {"getFieldValue called with an invalid fieldId: \"none\"",
                             "getFieldValue can not be used for the field \"secret\"",
                             "setFieldValue called with an invalid fieldId: \"none\"",
                             "setFieldValue can not be used for the field \"secret\"", wrongValue})
        expected.append({QtWarningMsg, u("lib"), u("NARV"), u(text)});
    QCOMPARE(takeLog(), expected);
}

// A handler that writes its field again; the signal comes before the event.
void tst_Widget::changes()
{
    GaugeFixture gauge;
    QVariantList values;
    connect(gauge.priv(), &NARV::WidgetPrivate::fieldIsChanged,
            [&values](const QString &, const QVariant &value) { values << value; });
    gauge.widget->onHandler = [&](NARV::Event *event) {
        const auto *change = static_cast<NARV::FieldIsChangedEvent *>(event);
        values << change->fieldId() << change->oldValue() << change->value();
        gauge.widget->setFieldValue(level, qMin(change->value().toInt() + 1, 2));
    };
    gauge.widget->setFieldValue(level, 1);
    QCOMPARE(values, (QVariantList{1, level, QVariant(), 1, 2, level, 1, 2, 2}));
}

void tst_Widget::writeOfTheSameValueIsNoChange()
{
    GaugeFixture gauge;
    for (int i = 0; i < 2; ++i) {
        const QMap<int, QString> texts{{1, u("a")}};
        gauge.widget->setFieldValue(u("ratio"), qQNaN());
        gauge.widget->setFieldValue(u("picture"), QVariant()); // the first is a change
        gauge.widget->setFieldValue(u("texts"), QVariant::fromValue(texts));
    }
    QCOMPARE(gauge.heard("FieldIsChanged"), u("w? w! w? w! w? w!"));
}

void tst_Widget::intrusiveHandlers()
{
    const auto &row = currentRow(intrusionRows);
    GaugeFixture gauge(3);
    RecordingItem *second = gauge.items[1];
    (row.isInHandler ? second->onHandler : second->onEvent) = [&](NARV::Event *) {
        for (const int victim : row.victims)
            delete gauge.items[victim];
    };
    gauge.priv()->alarmEvent(NARV::AlarmInfo());
    QCOMPARE(gauge.heard("AlarmStatusIsChanged"), u(row.heard));
    QCOMPARE(gauge.widget->graphicsObjectsList().size(), 3 - row.victims.size());
}

void tst_Widget::itemMadeInHandlerIsNotServed()
{
    GaugeFixture gauge(1);
    gauge.widget->onHandler = [&gauge](NARV::Event *) { gauge.addItem(); };
    gauge.priv()->init();
    QCOMPARE(gauge.heard("InitEvent"), u("w? w! 1? 1!"));
    QCOMPARE(gauge.widget->graphicsObjectsList().size(), 2);
}

void tst_Widget::stateChangedInHandler()
{
    GaugeFixture gauge(2);
    gauge.items[0]->onEvent = [&gauge](NARV::Event *) { gauge.priv()->deinit(); };
    gauge.priv()->init();
    QCOMPARE(gauge.heard("nitEvent"), u("w?I w!I 1?I w?Dei w!Dei 1?Dei 1!Dei 1!I"));
    QVERIFY(!GraphicsObjectPrivateAccessor::priv(gauge.items[1])->initialised);
}

void tst_Widget::widgetDeletedInHandler()
{
    const auto &row = currentRow(killerRows);
    GaugeFixture gauge(2);
    row.arm(gauge);
    gauge.priv()->setFieldValue(level, 1, false, true);
    QVERIFY(!gauge.widget);
    QCOMPARE(gauge.heard("FieldIsChanged"), u(row.heard));
}

// The new item may well get the place in memory of the old one.
void tst_Widget::itemReplacedInHandler()
{
    GaugeFixture gauge(2);
    gauge.items[0]->onEvent = [&gauge](NARV::Event *) {
        delete gauge.items[0];
        gauge.addItem();
    };
    gauge.priv()->alarmEvent(NARV::AlarmInfo());
    QCOMPARE(gauge.heard("AlarmStatusIsChanged"), u("w? w! 1? 2? 2!"));
}

// An item writes a field, which is told at once, and in that the item before it goes. In the first
// round nobody is left out or served twice for it.
void tst_Widget::nestedDeliveries()
{
    GaugeFixture gauge(3);
    gauge.items[1]->onHandler = [&gauge](NARV::Event *event) {
        if (event->type() == NARV::Event::AlarmStatusIsChanged)
            gauge.items[1]->setFieldValue(level, 1);
        else
            delete gauge.items[0];
    };
    gauge.priv()->alarmEvent(NARV::AlarmInfo());
    QCOMPARE(gauge.heard("IsChanged"),
             u("w?AlarmStatus w!AlarmStatus 1?AlarmStatus 1!AlarmStatus 2?AlarmStatus "
               "2!AlarmStatus w?Field w!Field 1?Field 1!Field 2?Field 2!Field 3?Field 3!Field "
               "3?AlarmStatus 3!AlarmStatus"));
}

void tst_Widget::exceptionInHandler()
{
    GaugeFixture gauge(2);
    gauge.widget->onHandler = [](NARV::Event *) { throw std::runtime_error("w"); };
    gauge.items[0]->onEvent = [](NARV::Event *) { throw std::runtime_error("1"); };
    gauge.priv()->init();
    QCOMPARE(gauge.heard("InitEvent"), u("w? w! 1? 2? 2!"));
    QList<LogEntry> expected;
    for (const char *what : {"w", "1"})
        expected.append(
            {QtCriticalMsg, u("lib"), u("NARV"), u("the plugin threw an exception: ") + u(what)});
    QCOMPARE(takeLog(), expected);
}

// The log's own guard against records made while one is written is not in the way.
void tst_Widget::logInHandler()
{
    GaugeFixture gauge(1);
    gauge.host.insideDevProject = true;
    gauge.widget->onHandler = gauge.items[0]->onHandler = [&gauge](NARV::Event *) {
        gauge.widget->getFieldValue(none);
        NARV::LogHandler(u("lib"), nullptr, 0, nullptr).info().debug() << 1;
    };
    gauge.priv()->init();
    QStringList messages;
    for (const LogEntry &entry : takeLog())
        messages += entry.message;
    const QStringList once{u("getFieldValue called with an invalid fieldId: \"none\""), u("1")};
    QCOMPARE(messages, once + once);
}

// A copy of the values stays as it is, and so do the descriptions count that there are now.
void tst_Widget::valuesSeenFromOutside()
{
    GaugeFixture gauge;
    for (int value = 1; value < 4; ++value) {
        gauge.widget->setFieldValue(level, value);
        const QMap<QString, QVariant> copy = gauge.priv()->fieldValues;
        gauge.widget->setFieldValue(level, value + 10);
        gauge.widget->setFieldValue(u("ratio"), value);
        QCOMPARE(copy[level], QVariant(value));
        QCOMPARE(gauge.priv()->fieldValues[level], QVariant(value + 10));
        QCOMPARE(gauge.widget->getFieldValue(u("ratio")), QVariant(double(value)));
    }
    gauge.priv()->fieldsInfo = {{u("texts"), RecordingLibrary::fields()[level]}};
    gauge.widget->setFieldValue(u("texts"), 5);
    gauge.widget->setFieldValue(level, 5);
    QCOMPARE(gauge.priv()->getFieldValue(u("texts"), true), QVariant(5));
    QCOMPARE(gauge.priv()->getFieldValue(level, true), QVariant(13));
}

void tst_Widget::itemOutlivesWidget()
{
    GaugeFixture gauge(1);
    gauge.host.insideProjectEditor = true;
    RecordingItem *item = gauge.items[0];
    QVERIFY(item->widgetActionManager().isInsideProjectEditor());
    delete gauge.widget;
    QVERIFY(!item->widgetActionManager().isInsideProjectEditor());
    QVERIFY(!item->widget());
    item->setFieldValue(level, 1);
    QVERIFY(!item->getFieldValue(level).isValid());
    NARV::IconDataRole role;
    QVERIFY(!item->data(&role).isValid());
}

// A scene tells of a selected item's end while the item is half gone.
void tst_Widget::eventWhileItemIsDestroyed()
{
    GaugeFixture gauge(2);
    QGraphicsScene scene;
    scene.addItem(gauge.items[0]);
    gauge.items[0]->setAcceptTouchAndMouseEvents(true);
    gauge.items[0]->setSelected(true);
    connect(&scene, &QGraphicsScene::selectionChanged,
            [&gauge] { gauge.widget->setFieldValue(level, 1); });
    delete gauge.items[0];
    QCOMPARE(gauge.heard("FieldIsChanged"), u("w? w! 2? 2!"));
}

void tst_Widget::roles()
{
    GaugeFixture gauge(1);
    gauge.widget->ownIcon = QIcon(QPixmap(4, 4));
    NARV::IconDataRole icon;
    NARV::DataRole other(static_cast<NARV::DataRole::Type>(2));
    const qint64 key = gauge.widget->ownIcon.cacheKey();
    QCOMPARE(gauge.widget->data(&icon).value<QIcon>().cacheKey(), key);
    QCOMPARE(gauge.items[0]->data(&icon).value<QIcon>().cacheKey(), key);
    QVERIFY(!gauge.widget->data(&other).isValid() && !gauge.items[0]->data(&other).isValid());
    QVERIFY(gauge.widget->Widget::icon().isNull());
}

void tst_Widget::asksTheHost()
{
    GaugeFixture gauge;
    const NARV::WidgetActionManager &manager = gauge.widget->widgetActionManager();
    QCOMPARE(manager.getTagValue(u("t")), QVariant(u("tag t")));
    const QDateTime from({2024, 1, 2}, {3, 4});
    const QString trend = u("trend x 2024-01-02T03:04:00 2024-01-02T03:05:00 9 3");
    QCOMPARE(manager.getTrendValue(u("x"), from, from.addSecs(60), 9,
                                   NARV::WidgetActionManager::TrendTimeFormat::IsoText),
             QVariant(trend));
    gauge.host.alarms.resize(3);
    QCOMPARE(manager.getAlarms().size(), 3);
    manager.acknowAlarm(u("a"));
    manager.acknowAllAlarms();
    manager.resetAlarm(u("b"));
    manager.resetAllAlarms();
    const QString calls = u("tag t|%1|alarms|acknow a|acknow all|reset b|reset all");
    QCOMPARE(gauge.host.calls.join(QLatin1Char('|')), calls.arg(trend));

    auto *priv =
        NARV::INTERNAL::WidgetActionManagerPrivateAccessor::priv(gauge.priv()->widgetActionManager);
    QVERIFY(!manager.isInsideProjectEditor() && !priv->isInsideDevProject());
    gauge.host.insideProjectEditor = true;
    QVERIFY(manager.isInsideProjectEditor() && !priv->isInsideDevProject());
}

void tst_Widget::managesWithoutHost()
{
    RecordingLibrary library;
    const QScopedPointer<RecordingWidget> unbound(library.newGauge(nullptr));
    RecordingWidget unmanaged(NARV::WidgetData(u("gauge"), {}, {}, {}, nullptr, nullptr));
    for (RecordingWidget *widget : {unbound.data(), &unmanaged}) {
        const NARV::WidgetActionManager &manager = widget->widgetActionManager();
        QVERIFY(!manager.getTagValue(u("t")).isValid());
        QVERIFY(manager.getAlarms().isEmpty());
        manager.resetAllAlarms();
        QVERIFY(!manager.isInsideProjectEditor());
        widget->setFieldValue(none, 1);
    }
}

QTEST_MAIN(tst_Widget)
#include "tst_widget.moc"
