#include "guardedtest.h"
#include "recordinglibrary.h"

#include <NARV/NullGraphicsObject>

#include <QTest>

using NARV::WidgetData;
using NARV::INTERNAL::ConstructorMatch;

static const QString gauge = QStringLiteral("gauge");
static const QString version = QStringLiteral("1.0.0");

// Each cannot be made for another reason.
class NoInvokable : public NARV::Widget
{
    Q_OBJECT

public:
    explicit NoInvokable(const WidgetData &data)
        : Widget(data)
    {
    }
};

class Unqualified : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit Unqualified(const WidgetData &data)
        : Widget(data)
    {
    }
};

class NoWidget : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit NoWidget(const NARV::WidgetData &) {}
};

// Does not pass on what it is made from.
class StrayItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit StrayItem(const NARV::GraphicsObjectData &data)
        : GraphicsObject({data.id, data.version, nullptr, nullptr})
    {
    }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}
};

Q_DECLARE_METATYPE(const QMetaObject *)

class tst_Registration : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void newInstance();
    void lookup_data();
    void lookup();
    void misfits_data();
    void misfits();
    void signatures();
    void strayItemIsForgotten();
    void projectWidget();
    void table();
    void pluginInterface();
};

void tst_Registration::newInstance()
{
    GaugeFixture fixture;
    const NARV::WidgetPrivate *priv = fixture.priv();
    QCOMPARE(priv->pluginId, QStringLiteral("lib"));
    QCOMPARE(priv->fieldsInfo.keys(), RecordingLibrary::fields().keys());
    QVERIFY(!priv->initialised && priv->fieldValues.isEmpty() && priv->graphicsObjects.isEmpty());
    const QPointer<NARV::WidgetActionManager> manager = priv->widgetActionManager;
    QVERIFY(manager && !fixture.widget->parent() && fixture.widget->children().isEmpty());
    delete fixture.widget;
    QVERIFY(!manager);
}

void tst_Registration::lookup_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("found");
    const QString id = QStringLiteral("short");
    QTest::newRow("exact") << id << QStringLiteral("1.0") << true;
    QTest::newRow("versions are texts") << id << QStringLiteral("1.0.0") << false;
    QTest::newRow("case") << QStringLiteral("Short") << QStringLiteral("1.0") << false;
}

void tst_Registration::lookup()
{
    QFETCH(QString, id);
    QFETCH(QString, text);
    RecordingLibrary library;
    NARV::registerProjectWidget<RecordingWidget>(&library, QStringLiteral("short"),
                                                 QStringLiteral("1.0"));
    const QScopedPointer<NARV::Widget> widget(
        library.priv()->newWidgetInstance(id, text, {}, {}, nullptr));
    QTEST(!widget.isNull(), "found");
    QVERIFY(!widget || widget->version().isEmpty());
}

void tst_Registration::misfits_data()
{
    QTest::addColumn<const QMetaObject *>("widget");
    QTest::addColumn<const QMetaObject *>("item");
    QTest::addColumn<bool>("widgetIsMade");
    const QMetaObject *none = nullptr;
    const QMetaObject *item = &RecordingItem::staticMetaObject;
    const QMetaObject *widget = &RecordingWidget::staticMetaObject;
    QTest::newRow("no widget class") << none << item << false;
    QTest::newRow("no widget") << &NoWidget::staticMetaObject << item << false;
    QTest::newRow("item for widget") << item << item << false;
    QTest::newRow("not invokable") << &NoInvokable::staticMetaObject << item << false;
    QTest::newRow("unqualified") << &Unqualified::staticMetaObject << item << false;
    QTest::newRow("base itself") << &NARV::Widget::staticMetaObject << item << false;
    QTest::newRow("no item class") << widget << none << true;
    QTest::newRow("widget for item") << widget << widget << true;
}

void tst_Registration::misfits()
{
    QFETCH(const QMetaObject *, widget);
    QFETCH(const QMetaObject *, item);
    RecordingLibrary library;
    NARV::registerWidget(&library, gauge, version, widget, item);
    const QScopedPointer<RecordingWidget> made(library.newGauge(nullptr));
    QTEST(!made.isNull(), "widgetIsMade");
    if (made) {
        auto *priv = NARV::INTERNAL::WidgetPrivateAccessor::priv(made.data());
        QCOMPARE(priv->newGraphicsObjectInstance(), nullptr);
        QVERIFY(made->graphicsObjectsList().isEmpty());
    }
}

void tst_Registration::signatures()
{
    const QMetaObject *found = &Unqualified::staticMetaObject;
    QCOMPARE(ConstructorMatch::forWidget(found).index(), -1);
    QCOMPARE(ConstructorMatch::signatures(found), QList<QByteArray>{"Unqualified(WidgetData)"});
    QCOMPARE(ConstructorMatch::signatures(nullptr), QList<QByteArray>());
    const QMetaObject *null = &NARV::NullGraphicsObject::staticMetaObject;
    QCOMPARE(ConstructorMatch::forGraphicsObject(null).index(), 0);
    QVERIFY(!ConstructorMatch::forWidget(null).isValid());
}

void tst_Registration::strayItemIsForgotten()
{
    GaugeFixture fixture;
    fixture.priv()->graphicsObjectMetaObject = &StrayItem::staticMetaObject;
    delete fixture.priv()->newGraphicsObjectInstance();
    QVERIFY(fixture.widget->graphicsObjectsList().isEmpty());
}

void tst_Registration::projectWidget()
{
    RecordingLibrary library;
    NARV::registerProjectWidget(&library, gauge, version, &RecordingWidget::staticMetaObject);
    const QScopedPointer<RecordingWidget> widget(library.newGauge(nullptr));
    const QScopedPointer<NARV::GraphicsObject> item(
        NARV::INTERNAL::WidgetPrivateAccessor::priv(widget.data())->newGraphicsObjectInstance());
    QVERIFY(qobject_cast<NARV::NullGraphicsObject *>(item.data()));
}

// The last registration of a widget counts; ids and versions are ordered as texts.
void tst_Registration::table()
{
    RecordingLibrary library;
    const QString other = QStringLiteral("0.10.0");
    NARV::registerProjectWidget<NoInvokable>(&library, gauge, version);
    NARV::registerWidget<RecordingWidget, RecordingItem>(&library, gauge, other);
    const auto &registrations = library.priv()->registrations();
    const QList<QPair<QString, QString>> keys{{gauge, other}, {gauge, version}};
    QCOMPARE(registrations.keys(), keys);
    QVERIFY(registrations.first().widgetConstructor.isValid());
    QCOMPARE(registrations.first().widgetMetaObject, &RecordingWidget::staticMetaObject);
    QCOMPARE(registrations.first().graphicsObjectMetaObject, &RecordingItem::staticMetaObject);
    QVERIFY(!registrations.last().widgetConstructor.isValid());
    QCOMPARE(library.newGauge(nullptr), nullptr);
}

void tst_Registration::pluginInterface()
{
    RecordingLibrary library;
    QObject *root = &library;
    QCOMPARE(qobject_cast<NARV::WidgetLibraryPlugin *>(root), &library);
    QVERIFY(root->qt_metacast("org.Mirt.NARV.WidgetLibrary/1.0.0"));
}

QTEST_MAIN(tst_Registration)
#include "tst_registration.moc"
