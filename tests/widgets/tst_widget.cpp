#include "guardedtest.h"
#include "recordinglibrary.h"

#include <QGraphicsScene>
#include <QSignalSpy>
#include <QTest>

using NARV::INTERNAL::GraphicsObjectPrivateAccessor;
using Action = std::function<void(GaugeFixture &)>;
Q_DECLARE_METATYPE(Action)

static const QString level = QStringLiteral("level");
static const QString secret = QStringLiteral("secret");
static const QString none = QStringLiteral("none");

class tst_Widget : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void identity();
    void eventOrder_data();
    void eventOrder();
    void initAndDeinitAreIdempotent();
    void writes_data();
    void writes();
    void reads();
    void failuresAreLoggedInsideTheTestBenchOnly();
    void changes();
    void writeOfTheSameValueIsNoChange();
    void intrusiveHandlers_data();
    void intrusiveHandlers();
    void itemMadeInHandlerIsNotServed();
    void stateChangedInHandler();
    void widgetDeletedInHandler();
    void itemOutlivesWidget();
    void eventWhileItemIsDestroyed();
    void roles();
};

void tst_Widget::identity()
{
    GaugeFixture gauge(3);
    QCOMPARE(gauge.widget->id(), QStringLiteral("gauge"));
    QCOMPARE(gauge.widget->version(), QStringLiteral("1.0.0"));
    QCOMPARE(gauge.widget->versionMajor(), 1u);
    QCOMPARE(gauge.items[0]->id(), QStringLiteral("gauge"));
    QCOMPARE(gauge.items[0]->version(), QStringLiteral("1.0.0"));
    QCOMPARE(gauge.items[0]->widget(), gauge.widget);
    QCOMPARE(&gauge.items[0]->widgetActionManager(), &gauge.widget->widgetActionManager());
    delete gauge.items[1];
    const QList<NARV::GraphicsObject *> left{gauge.items[0], gauge.items[2]};
    QCOMPARE(gauge.widget->graphicsObjectsList(), left);
}

void tst_Widget::eventOrder_data()
{
    QTest::addColumn<Action>("act");
    QTest::addColumn<QByteArray>("type");
    const auto row = [](const char *type, const Action &act) {
        QTest::newRow(type) << act << QByteArray(type);
    };
    row("InitEvent", [](GaugeFixture &gauge) { gauge.priv()->init(); });
    row("DeinitEvent", [](GaugeFixture &gauge) {
        gauge.priv()->init();
        gauge.journal.clear();
        gauge.priv()->deinit();
    });
    row("FieldIsChanged", [](GaugeFixture &gauge) { gauge.items[1]->setFieldValue(level, 1); });
    row("AlarmStatusIsChanged",
        [](GaugeFixture &gauge) { gauge.priv()->alarmEvent(NARV::AlarmInfo()); });
}

void tst_Widget::eventOrder()
{
    QFETCH(Action, act);
    QFETCH(QByteArray, type);
    GaugeFixture gauge(2);
    act(gauge);
    QCOMPARE(gauge.heard(type), QStringLiteral("w? w! 1? 1! 2? 2!"));
    GaugeFixture consuming(2);
    consuming.widget->consumes = consuming.items[1]->consumes = true;
    act(consuming);
    QCOMPARE(consuming.heard(type), QStringLiteral("w? 1? 1! 2?"));
}

void tst_Widget::initAndDeinitAreIdempotent()
{
    GaugeFixture gauge(1);
    gauge.priv()->deinit();
    gauge.priv()->init();
    gauge.priv()->init();
    QCOMPARE(gauge.heard("InitEvent"), QStringLiteral("w? w! 1? 1!"));
    GraphicsObjectPrivateAccessor::priv(gauge.addItem())->init();
    QCOMPARE(gauge.heard("InitEvent"), QStringLiteral("2? 2!"));
    gauge.priv()->deinit();
    gauge.priv()->deinit();
    QCOMPARE(gauge.heard("DeinitEvent"), QStringLiteral("w? w! 1? 1! 2? 2!"));
}

void tst_Widget::writes_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("internal");
    QTest::addColumn<QVariant>("stored"); // before: 7
    QTest::addColumn<int>("signalCount");
    QTest::addColumn<int>("eventCount");
    const QVariant seven(7), eight(8), text(QStringLiteral("8")), word(QStringLiteral("x"));
    QTest::newRow("plugin") << level << eight << false << eight << 1 << 1;
    QTest::newRow("plugin, equal") << level << seven << false << seven << 1 << 0;
    QTest::newRow("converted") << level << text << false << eight << 1 << 1;
    QTest::newRow("unconvertible") << level << word << false << seven << 0 << 0;
    QTest::newRow("forbidden") << secret << eight << false << seven << 0 << 0;
    QTest::newRow("host") << level << eight << true << eight << 0 << 1;
    QTest::newRow("host, equal") << level << seven << true << seven << 0 << 0;
    QTest::newRow("host, forbidden") << secret << eight << true << eight << 0 << 1;
    QTest::newRow("host, unknown") << none << eight << true << QVariant() << 0 << 0;
}

void tst_Widget::writes()
{
    QFETCH(QString, field);
    QFETCH(QVariant, value);
    QFETCH(bool, internal);
    QFETCH(QVariant, stored);
    GaugeFixture gauge;
    gauge.priv()->setFieldValue(level, 7, true, false);
    gauge.priv()->setFieldValue(secret, 7, true, false);
    QCOMPARE(gauge.heard(), QString());
    QSignalSpy spy(gauge.priv(), &NARV::WidgetPrivate::fieldIsChanged);
    gauge.priv()->setFieldValue(field, value, internal, true);
    QCOMPARE(gauge.priv()->getFieldValue(field, true), stored);
    QCOMPARE(gauge.priv()->getFieldValue(field, true).userType(), stored.userType());
    QTEST(spy.count(), "signalCount");
    QTEST(gauge.heard().count(QLatin1Char('!')), "eventCount");
    if (!spy.isEmpty())
        QCOMPARE(spy.first(), (QVariantList{field, stored}));
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
        gauge.widget->setFieldValue(level, QStringLiteral("x"));
    }
    const char *wrongValue = "setFieldValue called with wrong value for the field  \"level\" "
                             ": value is  QVariant(QString, \"x\")";
    QList<LogEntry> expected;
    for (const char *text : {"getFieldValue called with an invalid fieldId: \"none\"",
                             "getFieldValue can not be used for the field \"secret\"",
                             "setFieldValue called with an invalid fieldId: \"none\"",
                             "setFieldValue can not be used for the field \"secret\"", wrongValue})
        expected.append(
            {QtWarningMsg, QStringLiteral("lib"), QStringLiteral("NARV"), QLatin1String(text)});
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
        const QMap<int, QString> texts{{1, QStringLiteral("a")}};
        gauge.widget->setFieldValue(QStringLiteral("ratio"), qQNaN());
        gauge.widget->setFieldValue(QStringLiteral("texts"), QVariant::fromValue(texts));
    }
    QCOMPARE(gauge.heard("FieldIsChanged"), QStringLiteral("w? w! w? w!"));
}

// The second of three items deletes some. Afterwards each item that is still there has heard the
// event once, those gone before their turn have not.
void tst_Widget::intrusiveHandlers_data()
{
    QTest::addColumn<bool>("inHandler"); // else in narvEvent()
    QTest::addColumn<QVector<int>>("victims");
    QTest::addColumn<QString>("heard");
    const QString upTo2 = QStringLiteral("w? w! 1? 1! 2? ");
    QTest::newRow("earlier") << true << QVector<int>{0} << upTo2 + QStringLiteral("2! 3? 3!");
    QTest::newRow("later") << true << QVector<int>{2} << upTo2 + QStringLiteral("2!");
    QTest::newRow("itself") << true << QVector<int>{1} << upTo2 + QStringLiteral("2! 3? 3!");
    QTest::newRow("itself at once") << false << QVector<int>{1} << upTo2 + QStringLiteral("3? 3!");
    QTest::newRow("all at once") << false << QVector<int>{0, 2, 1} << upTo2.trimmed();
}

void tst_Widget::intrusiveHandlers()
{
    QFETCH(bool, inHandler);
    QFETCH(QVector<int>, victims);
    GaugeFixture gauge(3);
    RecordingItem *second = gauge.items[1];
    RecordingItem::Hook *const hooks[] = {&second->onEvent, &second->onHandler};
    *hooks[inHandler] = [&](NARV::Event *) {
        for (const int victim : qAsConst(victims))
            delete gauge.items[victim];
    };
    gauge.priv()->alarmEvent(NARV::AlarmInfo());
    QTEST(gauge.heard("AlarmStatusIsChanged"), "heard");
    QCOMPARE(gauge.widget->graphicsObjectsList().size(), 3 - victims.size());
}

void tst_Widget::itemMadeInHandlerIsNotServed()
{
    GaugeFixture gauge(1);
    gauge.widget->onHandler = [&gauge](NARV::Event *) { gauge.addItem(); };
    gauge.priv()->init();
    QCOMPARE(gauge.heard("InitEvent"), QStringLiteral("w? w! 1? 1!"));
    QCOMPARE(gauge.widget->graphicsObjectsList().size(), 2);
}

void tst_Widget::stateChangedInHandler()
{
    GaugeFixture gauge(2);
    gauge.items[0]->onEvent = [&gauge](NARV::Event *) { gauge.priv()->deinit(); };
    gauge.priv()->init();
    QCOMPARE(gauge.heard("nitEvent"), QStringLiteral("w?I w!I 1?I w?Dei w!Dei 1?Dei 1!Dei 1!I"));
    QVERIFY(!GraphicsObjectPrivateAccessor::priv(gauge.items[1])->initialised);
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
        QCOMPARE(gauge.heard("FieldIsChanged"), inSignal ? QString() : QStringLiteral("w?"));
    }
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
    QCOMPARE(gauge.heard("FieldIsChanged"), QStringLiteral("w? w! 2? 2!"));
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

QTEST_MAIN(tst_Widget)
#include "tst_widget.moc"
