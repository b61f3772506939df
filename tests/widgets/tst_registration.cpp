#include "guardedtest.h"
#include "recordinglibrary.h"

#include <NARV/NullGraphicsObject>

#include <QTest>

using NARV::GraphicsObjectData;
using NARV::WidgetData;
using NARV::INTERNAL::ConstructorMatch;

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

Q_DECLARE_METATYPE(const QMetaObject *)

class tst_Registration : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void newInstance();
    void lookup_data();
    void lookup();
    void lastRegistrationCounts();
    void misfits_data();
    void misfits();
    void signatures();
    void projectWidget();
    void actionManagerGoesWithTheWidget();
    void table();
    void interface();
};

void tst_Registration::newInstance()
{
    GaugeFixture gauge;
    QVERIFY(gauge.widget);
    QCOMPARE(gauge.widget->parent(), nullptr);
    QVERIFY(gauge.widget->graphicsObjectsList().isEmpty());
    const NARV::WidgetPrivate *priv = gauge.priv();
    QCOMPARE(priv->pluginId, QStringLiteral("lib"));
    QCOMPARE(priv->fieldsInfo.keys(), RecordingLibrary::fields().keys());
    QVERIFY(!priv->initialised && priv->fieldValues.isEmpty());
}

void tst_Registration::lookup_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("found");
    QTest::newRow("exact") << QStringLiteral("short") << QStringLiteral("1.0") << true;
    QTest::newRow("versions are texts")
        << QStringLiteral("short") << QStringLiteral("1.0.0") << false;
    QTest::newRow("case") << QStringLiteral("Short") << QStringLiteral("1.0") << false;
    QTest::newRow("empty") << QString() << QString() << false;
}

void tst_Registration::lookup()
{
    QFETCH(QString, id);
    QFETCH(QString, version);
    RecordingLibrary library;
    NARV::registerWidget<RecordingWidget, RecordingItem>(&library, QStringLiteral("short"),
                                                         QStringLiteral("1.0"));
    const QScopedPointer<NARV::Widget> widget(
        library.priv()->newWidgetInstance(id, version, {}, {}, nullptr));
    QTEST(!widget.isNull(), "found");
    if (widget)
        QVERIFY(widget->version().isEmpty());
}

void tst_Registration::lastRegistrationCounts()
{
    RecordingLibrary library;
    NARV::registerProjectWidget<NoInvokable>(&library, QStringLiteral("gauge"),
                                             QStringLiteral("1.0.0"));
    QCOMPARE(library.newGauge(nullptr), nullptr);
    QCOMPARE(library.priv()->registrations().size(), 1);
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
    NARV::registerWidget(&library, QStringLiteral("gauge"), QStringLiteral("1.0.0"), widget, item);
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

void tst_Registration::projectWidget()
{
    RecordingLibrary library;
    NARV::registerProjectWidget(&library, QStringLiteral("gauge"), QStringLiteral("1.0.0"),
                                &RecordingWidget::staticMetaObject);
    const QScopedPointer<RecordingWidget> widget(library.newGauge(nullptr));
    const QScopedPointer<NARV::GraphicsObject> item(
        NARV::INTERNAL::WidgetPrivateAccessor::priv(widget.data())->newGraphicsObjectInstance());
    QVERIFY(qobject_cast<NARV::NullGraphicsObject *>(item.data()));
}

void tst_Registration::actionManagerGoesWithTheWidget()
{
    GaugeFixture gauge;
    const QPointer<NARV::WidgetActionManager> manager = gauge.priv()->widgetActionManager;
    QVERIFY(manager);
    QVERIFY(gauge.widget->children().isEmpty());
    delete gauge.widget;
    QVERIFY(!manager);
}

void tst_Registration::table()
{
    RecordingLibrary library;
    NARV::registerProjectWidget<NoInvokable>(&library, QStringLiteral("gauge"),
                                             QStringLiteral("0.10.0"));
    const auto &registrations = library.priv()->registrations();
    const QString id = QStringLiteral("gauge");
    const QList<QPair<QString, QString>> keys{{id, QStringLiteral("0.10.0")},
                                              {id, QStringLiteral("1.0.0")}};
    QCOMPARE(registrations.keys(), keys);
    QCOMPARE(registrations.first().widgetMetaObject, &NoInvokable::staticMetaObject);
    QCOMPARE(registrations.first().graphicsObjectMetaObject,
             &NARV::NullGraphicsObject::staticMetaObject);
    QVERIFY(registrations.last().widgetConstructor.isValid());
}

void tst_Registration::interface()
{
    RecordingLibrary library;
    QObject *root = &library;
    QCOMPARE(qobject_cast<NARV::WidgetLibraryPlugin *>(root), &library);
    QVERIFY(root->qt_metacast("org.Mirt.NARV.WidgetLibrary/1.0.0"));
}

QTEST_MAIN(tst_Registration)
#include "tst_registration.moc"
