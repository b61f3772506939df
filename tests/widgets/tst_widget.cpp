#include "guardedtest.h"
#include "recordinglibrary.h"

#include <QSignalSpy>
#include <QTest>

using NARV::INTERNAL::GraphicsObjectPrivateAccessor;

static const QString level = QStringLiteral("level");
static const QString secret = QStringLiteral("secret");

class tst_Widget : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void identity();
    void eventOrder_data();
    void eventOrder();
    void consumedEvent();
    void initAndDeinitAreIdempotent();
    void writes_data();
    void writes();
    void reads_data();
    void reads();
    void failuresAreLoggedInsideTheTestBenchOnly();
    void firstAndLaterChange();
    void writeOfTheSameValueIsNoChange();
    void signalPrecedesEvents();
    void destroyedItemIsForgotten();
    void intrusiveHandlers_data();
    void intrusiveHandlers();
    void itemMadeInHandlerIsNotServed();
    void stateChangedInHandler();
    void nestedWrite();
    void widgetDeletedInHandler();
    void itemOutlivesWidget();
    void roles();
};

void tst_Widget::identity()
{
    GaugeFixture gauge(1);
    QCOMPARE(gauge.widget->id(), QStringLiteral("gauge"));
    QCOMPARE(gauge.widget->version(), QStringLiteral("1.0.0"));
    QCOMPARE(gauge.widget->versionMajor(), 1u);
    QCOMPARE(gauge.items[0]->id(), QStringLiteral("gauge"));
    QCOMPARE(gauge.items[0]->version(), QStringLiteral("1.0.0"));
    QCOMPARE(gauge.items[0]->versionMajor(), 1u);
    QCOMPARE(gauge.items[0]->widget(), gauge.widget);
    QCOMPARE(&gauge.items[0]->widgetActionManager(), &gauge.widget->widgetActionManager());
    QCOMPARE(gauge.widget->graphicsObjectsList(), QList<NARV::GraphicsObject *>{gauge.items[0]});
}

using Action = std::function<void(GaugeFixture &)>;
Q_DECLARE_METATYPE(Action)

void tst_Widget::eventOrder_data()
{
    QTest::addColumn<Action>("act");
    QTest::addColumn<QString>("type");
    QTest::newRow("init") << Action([](GaugeFixture &gauge) { gauge.priv()->init(); })
                          << QStringLiteral("InitEvent");
    QTest::newRow("deinit") << Action([](GaugeFixture &gauge) {
        gauge.priv()->init();
        gauge.heard();
        gauge.priv()->deinit();
    }) << QStringLiteral("DeinitEvent");
    QTest::newRow("field") << Action([](GaugeFixture &gauge) {
        gauge.items[1]->setFieldValue(level, 1);
    }) << QStringLiteral("FieldIsChanged");
    QTest::newRow("alarm") << Action([](GaugeFixture &gauge) {
        gauge.priv()->alarmEvent(NARV::AlarmInfo());
    }) << QStringLiteral("AlarmStatusIsChanged");
}

void tst_Widget::eventOrder()
{
    QFETCH(Action, act);
    QFETCH(QString, type);
    GaugeFixture gauge(2);
    act(gauge);
    QCOMPARE(gauge.heard(), QStringLiteral("w?%1 w!%1 1?%1 1!%1 2?%1 2!%1").arg(type));
}

void tst_Widget::consumedEvent()
{
    GaugeFixture gauge(2);
    gauge.widget->consumes = gauge.items[1]->consumes = true;
    gauge.priv()->init();
    QCOMPARE(gauge.heard(), QStringLiteral("w?InitEvent 1?InitEvent 1!InitEvent 2?InitEvent"));
}

void tst_Widget::initAndDeinitAreIdempotent()
{
    GaugeFixture gauge(1);
    gauge.priv()->deinit();
    QCOMPARE(gauge.heard(), QString());
    gauge.priv()->init();
    gauge.heard();
    gauge.priv()->init();
    QCOMPARE(gauge.heard(), QString());

    gauge.addItem();
    GraphicsObjectPrivateAccessor::priv(gauge.items[1])->init();
    QCOMPARE(gauge.heard(), QStringLiteral("2?InitEvent 2!InitEvent"));
    gauge.priv()->deinit();
    QCOMPARE(gauge.heard().count(QLatin1Char('!')), 3);
    gauge.priv()->deinit();
    QCOMPARE(gauge.heard(), QString());
}

void tst_Widget::writes_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("internal");
    QTest::addColumn<bool>("sendEvent");
    QTest::addColumn<QVariant>("stored"); // before: 7
    QTest::addColumn<int>("signalCount");
    QTest::addColumn<int>("events");
    QTest::newRow("plugin") << level << QVariant(8) << false << true << QVariant(8) << 1 << 1;
    QTest::newRow("plugin, equal")
        << level << QVariant(7) << false << true << QVariant(7) << 1 << 0;
    QTest::newRow("converted") << level << QVariant(QStringLiteral("8")) << false << true
                               << QVariant(8) << 1 << 1;
    QTest::newRow("unconvertible")
        << level << QVariant(QStringLiteral("x")) << false << true << QVariant(7) << 0 << 0;
    QTest::newRow("host") << level << QVariant(8) << true << true << QVariant(8) << 0 << 1;
    QTest::newRow("host, silent") << level << QVariant(8) << true << false << QVariant(8) << 0 << 0;
    QTest::newRow("forbidden") << secret << QVariant(8) << false << true << QVariant(7) << 0 << 0;
    QTest::newRow("forbidden, host")
        << secret << QVariant(8) << true << true << QVariant(8) << 0 << 1;
    QTest::newRow("unknown, host")
        << QStringLiteral("none") << QVariant(8) << true << true << QVariant() << 0 << 0;
}

void tst_Widget::writes()
{
    QFETCH(QString, field);
    QFETCH(QVariant, value);
    QFETCH(bool, internal);
    QFETCH(bool, sendEvent);
    QFETCH(QVariant, stored);
    QFETCH(int, signalCount);
    QFETCH(int, events);
    GaugeFixture gauge;
    gauge.priv()->setFieldValue(level, 7, true, false);
    gauge.priv()->setFieldValue(secret, 7, true, false);
    QSignalSpy spy(gauge.priv(), &NARV::WidgetPrivate::fieldIsChanged);
    gauge.priv()->setFieldValue(field, value, internal, sendEvent);
    QCOMPARE(gauge.priv()->getFieldValue(field, true), stored);
    QCOMPARE(gauge.priv()->getFieldValue(field, true).userType(), stored.userType());
    QCOMPARE(spy.count(), signalCount);
    QCOMPARE(gauge.heard().count(QLatin1Char('!')), events);
    if (signalCount)
        QCOMPARE(spy.first(), (QVariantList{field, stored}));
}

void tst_Widget::reads_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QVariant>("plugin");
    QTest::addColumn<QVariant>("host");
    QTest::newRow("set") << level << QVariant(7) << QVariant(7);
    QTest::newRow("forbidden") << secret << QVariant() << QVariant(7);
    QTest::newRow("never set") << QStringLiteral("ratio") << QVariant() << QVariant();
    QTest::newRow("unknown") << QStringLiteral("none") << QVariant() << QVariant();
}

void tst_Widget::reads()
{
    QFETCH(QString, field);
    QFETCH(QVariant, plugin);
    QFETCH(QVariant, host);
    GaugeFixture gauge(1);
    gauge.priv()->setFieldValue(level, 7, true, false);
    gauge.priv()->setFieldValue(secret, 7, true, false);
    QCOMPARE(gauge.widget->getFieldValue(field), plugin);
    QCOMPARE(gauge.items[0]->getFieldValue(field), plugin);
    QCOMPARE(GraphicsObjectPrivateAccessor::priv(gauge.items[0])->getFieldValue(field, true), host);
}

void tst_Widget::failuresAreLoggedInsideTheTestBenchOnly()
{
    GaugeFixture gauge;
    const auto failInEveryWay = [&gauge] {
        gauge.widget->getFieldValue(QStringLiteral("none"));
        gauge.widget->getFieldValue(secret);
        gauge.widget->setFieldValue(QStringLiteral("none"), 1);
        gauge.widget->setFieldValue(secret, 1);
        gauge.widget->setFieldValue(level, QStringLiteral("x"));
    };
    failInEveryWay();
    QCOMPARE(takeLog(), QList<LogEntry>());

    gauge.host.insideDevProject = true;
    failInEveryWay();
    const auto warning = [](const char *text) {
        return LogEntry{QtWarningMsg, QStringLiteral("lib"), QStringLiteral("NARV"),
                        QString::fromLatin1(text)};
    };
    const QList<LogEntry> expected = {
        warning("getFieldValue called with an invalid fieldId: \"none\""),
        warning("getFieldValue can not be used for the field \"secret\""),
        warning("setFieldValue called with an invalid fieldId: \"none\""),
        warning("setFieldValue can not be used for the field \"secret\""),
        warning("setFieldValue called with wrong value for the field  \"level\" : value is  "
                "QVariant(QString, \"x\")")};
    QCOMPARE(takeLog(), expected);
}

void tst_Widget::firstAndLaterChange()
{
    GaugeFixture gauge;
    QVariantList values;
    gauge.widget->onHandler = [&values](NARV::Event *event) {
        const auto *change = static_cast<NARV::FieldIsChangedEvent *>(event);
        values << change->fieldId() << change->oldValue() << change->value();
    };
    gauge.widget->setFieldValue(level, 1);
    gauge.widget->setFieldValue(level, QStringLiteral("2"));
    QCOMPARE(values, (QVariantList{level, QVariant(), 1, level, 1, 2}));
}

void tst_Widget::writeOfTheSameValueIsNoChange()
{
    GaugeFixture gauge;
    const QString ratio = QStringLiteral("ratio");
    const QString texts = QStringLiteral("texts");
    for (int i = 0; i < 2; ++i) {
        gauge.widget->setFieldValue(ratio, qQNaN());
        gauge.widget->setFieldValue(
            texts, QVariant::fromValue(QMap<int, QString>{{1, QStringLiteral("a")}}));
    }
    QCOMPARE(gauge.heard().count(QLatin1Char('!')), 2);
}

void tst_Widget::signalPrecedesEvents()
{
    GaugeFixture gauge;
    connect(gauge.priv(), &NARV::WidgetPrivate::fieldIsChanged,
            [&gauge] { gauge.journal.append(QStringLiteral("signal")); });
    gauge.widget->setFieldValue(level, 1);
    QCOMPARE(gauge.heard(), QStringLiteral("signal w?FieldIsChanged w!FieldIsChanged"));
}

void tst_Widget::destroyedItemIsForgotten()
{
    GaugeFixture gauge(3);
    delete gauge.items[1];
    const QList<NARV::GraphicsObject *> left{gauge.items[0], gauge.items[2]};
    QCOMPARE(gauge.widget->graphicsObjectsList(), left);
}

// A handler of the second of three items does something to the items. Afterwards each item that is
// still there has heard the event once, those gone before their turn have not.
void tst_Widget::intrusiveHandlers_data()
{
    QTest::addColumn<bool>("inHandler"); // else in narvEvent()
    QTest::addColumn<QVector<int>>("victims");
    QTest::addColumn<QString>("heard");
    const QString all = QStringLiteral("w? w! 1? 1! 2? 2! 3? 3!");
    for (const bool inHandler : {false, true}) {
        const char *place = inHandler ? "handler" : "narvEvent";
        const QString own = inHandler ? all : QStringLiteral("w? w! 1? 1! 2? 3? 3!");
        QTest::addRow("nothing in %s", place) << inHandler << QVector<int>() << all;
        QTest::addRow("earlier in %s", place) << inHandler << QVector<int>{0} << all;
        QTest::addRow("itself in %s", place) << inHandler << QVector<int>{1} << own;
        QTest::addRow("later in %s", place)
            << inHandler << QVector<int>{2} << QStringLiteral("w? w! 1? 1! 2? 2!");
        QTest::addRow("all in %s", place)
            << inHandler << QVector<int>{0, 2, 1} << own.left(own.indexOf(QLatin1String(" 3")));
    }
}

void tst_Widget::intrusiveHandlers()
{
    QFETCH(bool, inHandler);
    QFETCH(QVector<int>, victims);
    QFETCH(QString, heard);
    GaugeFixture gauge(3);
    const auto intrude = [&gauge, victims](NARV::Event *) {
        for (const int victim : victims)
            delete gauge.items[victim];
    };
    (inHandler ? gauge.items[1]->onHandler : gauge.items[1]->onEvent) = intrude;
    gauge.priv()->alarmEvent(NARV::AlarmInfo());
    QCOMPARE(gauge.heard().remove(QLatin1String("AlarmStatusIsChanged")), heard);
    QCOMPARE(gauge.widget->graphicsObjectsList().size(), 3 - victims.size());
}

void tst_Widget::itemMadeInHandlerIsNotServed()
{
    GaugeFixture gauge(1);
    gauge.widget->onHandler = [&gauge](NARV::Event *) { gauge.addItem(); };
    gauge.priv()->init();
    QCOMPARE(gauge.heard(), QStringLiteral("w?InitEvent w!InitEvent 1?InitEvent 1!InitEvent"));
    gauge.widget->setFieldValue(level, 1);
    QCOMPARE(gauge.heard().count(QLatin1Char('!')), 3);
}

void tst_Widget::stateChangedInHandler()
{
    GaugeFixture gauge(2);
    gauge.items[0]->onHandler = [&gauge](NARV::Event *event) {
        if (event->type() == NARV::Event::InitEvent)
            gauge.priv()->deinit();
    };
    gauge.priv()->init();
    QCOMPARE(gauge.heard(), QStringLiteral("w?InitEvent w!InitEvent 1?InitEvent 1!InitEvent "
                                           "w?DeinitEvent w!DeinitEvent 1?DeinitEvent "
                                           "1!DeinitEvent"));
    QVERIFY(!GraphicsObjectPrivateAccessor::priv(gauge.items[1])->initialised);
}

void tst_Widget::nestedWrite()
{
    GaugeFixture gauge(1);
    gauge.widget->onHandler = [&gauge](NARV::Event *) {
        const int value = gauge.widget->getFieldValue(level).toInt();
        gauge.widget->setFieldValue(level, qMin(value + 1, 3));
    };
    gauge.widget->setFieldValue(level, 1);
    QCOMPARE(gauge.widget->getFieldValue(level), QVariant(3));
    QCOMPARE(gauge.heard().count(QLatin1Char('!')), 6);
}

void tst_Widget::widgetDeletedInHandler()
{
    for (const bool inSignal : {true, false}) {
        GaugeFixture gauge(1);
        const auto kill = [&gauge] { delete gauge.widget; };
        if (inSignal)
            connect(gauge.priv(), &NARV::WidgetPrivate::fieldIsChanged, kill);
        else
            gauge.widget->onEvent = [kill](NARV::Event *) { kill(); };
        gauge.priv()->setFieldValue(level, 1, false, true);
        QCOMPARE(gauge.heard(), inSignal ? QString() : QStringLiteral("w?FieldIsChanged"));
    }
}

void tst_Widget::itemOutlivesWidget()
{
    GaugeFixture gauge(1);
    gauge.host.insideProjectEditor = true;
    QVERIFY(gauge.items[0]->widgetActionManager().isInsideProjectEditor());
    delete gauge.widget;
    RecordingItem *item = gauge.items[0];
    QCOMPARE(item->widget(), nullptr);
    QVERIFY(!item->widgetActionManager().isInsideProjectEditor());
    item->setFieldValue(level, 1);
    QCOMPARE(item->getFieldValue(level), QVariant());
    NARV::IconDataRole role;
    QCOMPARE(item->data(&role), QVariant());
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
    QVERIFY(!gauge.widget->data(&other).isValid());
    QVERIFY(!gauge.items[0]->data(&other).isValid());
    QVERIFY(gauge.widget->Widget::icon().isNull());
}

QTEST_MAIN(tst_Widget)
#include "tst_widget.moc"
