#include "guardedtest.h"
#include "recordinglibrary.h"

#include <NARV/NullGraphicsObject>

#include <stdexcept>

using NARV::WidgetData;
using NARV::INTERNAL::ConstructorMatch;

static const QString gauge = u("gauge");
static const QString version = u("1.0.0");

// Each cannot be made for another reason.
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

class ThrowingWidget : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit ThrowingWidget(const NARV::WidgetData &data)
        : Widget(data)
    {
        throw std::runtime_error("no license");
    }
};

class ThrowingItem : public NARV::NullGraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit ThrowingItem(const NARV::GraphicsObjectData &data)
        : NullGraphicsObject(data)
    {
        throw 1;
    }
};

static const struct
{
    const char *name;
    const QMetaObject *widget;
    const QMetaObject *item;
    bool widgetIsMade;
    const char *thrown = nullptr;
} misfitRows[] = {
    {"no widget class", nullptr, &RecordingItem::staticMetaObject, false},
    {"no widget", &NoWidget::staticMetaObject, &RecordingItem::staticMetaObject, false},
    {"unqualified", &Unqualified::staticMetaObject, &RecordingItem::staticMetaObject, false},
    {"base itself", &NARV::Widget::staticMetaObject, &RecordingItem::staticMetaObject, false},
    {"no item class", &RecordingWidget::staticMetaObject, nullptr, true},
    {"no item", &RecordingWidget::staticMetaObject, &RecordingWidget::staticMetaObject, true},
    {"throwing widget", &ThrowingWidget::staticMetaObject, nullptr, false,
     "the plugin threw an exception: no license"},
    {"throwing item", &RecordingWidget::staticMetaObject, &ThrowingItem::staticMetaObject, true,
     "the plugin threw an exception of unknown type"},
};

// Does something before it is a widget.
class NestingWidget : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit NestingWidget(const NARV::WidgetData &data)
        : Widget(afterAction(data))
    {
    }

    static inline std::function<void()> action;

private:
    static const WidgetData &afterAction(const WidgetData &data)
    {
        if (const auto once = std::exchange(action, nullptr))
            once();
        return data;
    }
};

class tst_Registration : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void managerGoesWithWidget();
    void misfits_data() { addRows(misfitRows); }
    void misfits();
    void signatures();
    void instancesShareTheirFields();
    void constructorMakesAnotherInstance();
    void strayItemIsForgotten();
    void projectWidget();
    void table();
    void pluginInterface();
};

void tst_Registration::managerGoesWithWidget()
{
    GaugeFixture fixture;
    const QPointer<NARV::WidgetActionManager> manager = fixture.priv()->widgetActionManager;
    QVERIFY(manager && !fixture.widget->parent() && fixture.widget->children().isEmpty());
    delete fixture.widget;
    QVERIFY(!manager);
}

void tst_Registration::misfits()
{
    const auto &row = currentRow(misfitRows);
    RecordingLibrary library;
    NARV::registerWidget(&library, gauge, version, row.widget, row.item);
    const QScopedPointer<RecordingWidget> made(library.newGauge(nullptr));
    QCOMPARE(!made.isNull(), row.widgetIsMade);
    if (made) {
        auto *priv = NARV::INTERNAL::WidgetPrivateAccessor::priv(made.data());
        QCOMPARE(priv->newGraphicsObjectInstance(), nullptr);
        QVERIFY(made->graphicsObjectsList().isEmpty());
    }
    QList<LogEntry> expected;
    if (row.thrown)
        expected.append({QtCriticalMsg, u("lib"), u("NARV"), u(row.thrown)});
    QCOMPARE(takeLog(), expected);
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

// Also if the host makes the map anew for each of them.
void tst_Registration::instancesShareTheirFields()
{
    RecordingLibrary library;
    const QScopedPointer<RecordingWidget> first(library.newGauge(nullptr));
    const QScopedPointer<RecordingWidget> second(library.newGauge(nullptr));
    const auto &fields = NARV::INTERNAL::WidgetPrivateAccessor::priv(first.data())->fieldsInfo;
    QVERIFY(fields.isSharedWith(
        NARV::INTERNAL::WidgetPrivateAccessor::priv(second.data())->fieldsInfo));
    QVERIFY(fields == RecordingLibrary::fields());

    const std::unique_ptr<NARV::Widget> other(
        library.priv()->newWidgetInstance(gauge, version, {}, {}, nullptr));
    QVERIFY(NARV::INTERNAL::WidgetPrivateAccessor::priv(other.get())->fieldsInfo.isEmpty());
}

void tst_Registration::constructorMakesAnotherInstance()
{
    RecordingLibrary library;
    NARV::registerWidget(&library, gauge, version, &NestingWidget::staticMetaObject, nullptr);
    const auto make = [&library](const char *pluginId) {
        return std::unique_ptr<NARV::Widget>(
            library.priv()->newWidgetInstance(gauge, version, u(pluginId), {}, nullptr));
    };
    std::unique_ptr<NARV::Widget> inner;
    NestingWidget::action = [&] { inner = make("inner"); };
    const auto outer = make("outer");
    const auto *outerPriv = NARV::INTERNAL::WidgetPrivateAccessor::priv(outer.get());
    const auto *innerPriv = NARV::INTERNAL::WidgetPrivateAccessor::priv(inner.get());
    QCOMPARE(outerPriv->pluginId + innerPriv->pluginId, u("outerinner"));
    QVERIFY(outerPriv->widgetActionManager && innerPriv->widgetActionManager &&
            outerPriv->widgetActionManager != innerPriv->widgetActionManager);
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

// The last registration of a widget counts; ids and versions are compared as texts.
void tst_Registration::table()
{
    RecordingLibrary library;
    const QString other = u("0.10");
    NARV::registerProjectWidget<Unqualified>(&library, gauge, version);
    NARV::registerProjectWidget<RecordingWidget>(&library, gauge, other);
    QStringList keys;
    for (const auto &[key, registration] : library.priv()->registrations())
        keys += key.first + key.second;
    QCOMPARE(keys, (QStringList{gauge + other, gauge + version}));
    QCOMPARE(library.newGauge(nullptr), nullptr);
    const auto make = [&](const char *id, const char *text) {
        return std::unique_ptr<NARV::Widget>(
            library.priv()->newWidgetInstance(u(id), u(text), {}, {}, nullptr));
    };
    QVERIFY(!make("Gauge", "0.10") && !make("gauge", "0.10.0"));
    QVERIFY(make("gauge", "0.10")->version().isEmpty());

    auto original = std::make_unique<NARV::WidgetLibraryPluginPrivate>(*library.priv());
    delete original->newWidgetInstance(gauge, other, {}, {}, nullptr);
    const NARV::WidgetLibraryPluginPrivate copy = *original;
    original.reset();
    QVERIFY(QScopedPointer<NARV::Widget>(copy.newWidgetInstance(gauge, other, {}, {}, nullptr)));
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
