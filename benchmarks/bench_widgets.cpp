// What widgets cost: a field write beside a dynamic property, a new widget beside Qt's own way to
// make one, and the heap they take.

#include "ratioreporter.h"
#include "recordinghost.h"

#include <NARV/Event>
#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetPrivateAccessor>
#include <NARV/Widget>
#include <NARV/WidgetLibraryPlugin>

#include <QApplication>
#include <QColor>
#include <QDynamicPropertyChangeEvent>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstdio>
#include <memory>

using NARV::INTERNAL::WidgetPrivateAccessor;
using Description = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
using Type = Description::FieldType;
using Fields = QMap<QString, Description::FieldInfo>;

static constexpr int fieldCount = 40;

//! A field with two values of its type, neither of which is small enough to be shared.
struct Field
{
    QString id;
    QByteArray propertyName;
    Type type;
    QVariant values[2];
};

static QVector<Field> makeFields()
{
    const std::pair<Type, std::array<QVariant, 2>> types[] = {
        {Type::Integer, {17, 18}},
        {Type::Double, {0.5, 1.5}},
        {Type::Bool, {false, true}},
        {Type::String, {QStringLiteral("Pump 1 is running"), QStringLiteral("Pump 1 has stopped")}},
        {Type::Color, {QColor(Qt::darkGreen), QColor(Qt::red)}}};
    QVector<Field> fields;
    for (int i = 0; i < fieldCount; ++i) {
        const auto &[type, values] = types[size_t(i) % std::size(types)];
        const QString id = QStringLiteral("parameter%1").arg(i);
        fields.append({id, id.toLatin1(), type, {values[0], values[1]}});
    }
    return fields;
}

static const QVector<Field> &fields()
{
    static const QVector<Field> made = makeFields();
    return made;
}

static Fields description()
{
    Fields map;
    for (const Field &field : fields())
        map.insert(field.id, {true, true, false, field.type, QMetaType::UnknownType});
    return map;
}

//! A receiver that looks at what has changed, as every receiver does.
template<class Base>
class Attentive : public Base
{
public:
    using Base::Base;
    using Base::setFieldValue;

protected:
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override
    {
        benchmark::DoNotOptimize(event->fieldId() == QLatin1String("parameter0"));
        benchmark::DoNotOptimize(event->value().constData());
    }
};

class Meter : public Attentive<NARV::Widget>
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit Meter(const NARV::WidgetData &data)
        : Attentive(data)
    {
    }
};

class MeterItem : public Attentive<NARV::GraphicsObject>
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit MeterItem(const NARV::GraphicsObjectData &data)
        : Attentive(data)
    {
    }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}
};

//! A receiver that lets all pass, so that the delivery alone counts.
class SilentItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit SilentItem(const NARV::GraphicsObjectData &data)
        : GraphicsObject(data)
    {
    }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}
};

class MeterLibrary : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT

public:
    MeterLibrary()
    {
        NARV::registerWidget<Meter, MeterItem>(this, QStringLiteral("meter"),
                                               QStringLiteral("1.0.0"));
    }
    std::unique_ptr<Meter> make(const Fields &map)
    {
        const auto *priv = NARV::INTERNAL::WidgetLibraryPluginPrivateAccessor::priv(this);
        return std::unique_ptr<Meter>(static_cast<Meter *>(priv->newWidgetInstance(
            QStringLiteral("meter"), QStringLiteral("1.0.0"),
            QStringLiteral("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11"), map, &m_host)));
    }

private:
    RecordingHost m_host;
};

//! Calls write for every field in turn, with one of its values for a whole round and, if they are
//! to change, with the other one in the next.
template<class Write>
static void writeInTurn(benchmark::State &state, bool change, Write write)
{
    int value = 0;
    while (state.KeepRunningBatch(fieldCount)) {
        for (const Field &field : fields())
            write(field, field.values[value]);
        value ^= int(change);
    }
}

//! state.range() is the number of graphics objects.
static void fieldWrites(benchmark::State &state, bool change, const QMetaObject &itemClass)
{
    MeterLibrary library;
    const auto widget = library.make(description());
    auto *priv = WidgetPrivateAccessor::priv(widget.get());
    priv->graphicsObjectMetaObject = &itemClass;
    std::vector<std::unique_ptr<NARV::GraphicsObject>> items;
    for (int i = 0; i < state.range(); ++i)
        items.emplace_back(priv->newGraphicsObjectInstance());
    writeInTurn(state, change, [&widget](const Field &field, const QVariant &value) {
        widget->setFieldValue(field.id, value);
    });
}

static void changedWrite(benchmark::State &state)
{
    fieldWrites(state, true, MeterItem::staticMetaObject);
}
BENCHMARK(changedWrite)->Arg(4);

static void equalWrite(benchmark::State &state)
{
    fieldWrites(state, false, MeterItem::staticMetaObject);
}
BENCHMARK(equalWrite)->Arg(4);

//! The widget is a receiver, too.
static void delivery(benchmark::State &state)
{
    fieldWrites(state, true, SilentItem::staticMetaObject);
}
BENCHMARK(delivery)->Arg(0)->Arg(15);

//! Learns of a change what a receiver of a field's event is told.
class PropertyFilter : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange)
            return false;
        const QByteArray name = static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
        benchmark::DoNotOptimize(name == "parameter0");
        benchmark::DoNotOptimize(watched->property(name).constData());
        return false;
    }
};

static void propertyWrite(benchmark::State &state)
{
    QObject object;
    for (const Field &field : fields())
        object.setProperty(field.propertyName, field.values[1]);
    PropertyFilter filter;
    object.installEventFilter(&filter);
    writeInTurn(state, true, [&object](const Field &field, const QVariant &value) {
        object.setProperty(field.propertyName, value);
    });
}
BENCHMARK(propertyWrite);

//! Makes widgets a thousand at a time; only that is timed, not their end.
template<class Make>
static void makeMany(benchmark::State &state, Make make)
{
    constexpr size_t batch = 1000;
    std::vector<std::unique_ptr<QObject>> made(batch);
    while (state.KeepRunningBatch(batch)) {
        for (auto &object : made)
            object = make();
        state.PauseTiming();
        for (auto &object : made)
            object.reset();
        state.ResumeTiming();
    }
}

static void newWidgetInstance(benchmark::State &state)
{
    MeterLibrary library;
    const Fields map = description();
    makeMany(state, [&] { return library.make(map); });
}
BENCHMARK(newWidgetInstance);

//! All from one record, without an action manager of their own.
static void metaObjectNewInstance(benchmark::State &state)
{
    const NARV::WidgetData::VersionType version(1, 0, 0);
    const Fields map = description();
    const NARV::WidgetData data(QStringLiteral("meter"), version,
                                QStringLiteral("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11"), map,
                                &MeterItem::staticMetaObject, nullptr);
    const auto make = [&] {
        return std::unique_ptr<QObject>(
            Meter::staticMetaObject.newInstance(Q_ARG(NARV::WidgetData, data)));
    };
    if (!make())
        return state.SkipWithError("no instance");
    makeMany(state, make);
}
BENCHMARK(metaObjectNewInstance);

static size_t heapInUse()
{
    return mallinfo2().uordblks;
}

//! A thousand widgets of one description, with none or with some of their fields written once.
class Thousand
{
public:
    explicit Thousand(int writtenFields)
    {
        for (auto &widget : m_widgets) {
            widget = m_library.make(m_fields);
            for (int i = 0; i < writtenFields; ++i)
                widget->setFieldValue(fields()[i].id, fields()[i].values[0]);
        }
    }

private:
    MeterLibrary m_library;
    const Fields m_fields = description();
    std::unique_ptr<Meter> m_widgets[1000];
};

static void thousandWidgets(benchmark::State &state)
{
    for (auto _ : state) {
        const Thousand widgets(10);
        benchmark::DoNotOptimize(&widgets);
    }
}
BENCHMARK(thousandWidgets)->Unit(benchmark::kMillisecond);

static double bytesPerWidget(int writtenFields)
{
    const size_t before = heapInUse();
    const Thousand widgets(writtenFields);
    return double(heapInUse() - before) / 1000;
}

static double bytesOfDescription()
{
    fields();
    const size_t before = heapInUse();
    const Fields map = description();
    return double(heapInUse() - before);
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const int result = runBenchmarks(
        argc, argv,
        {
            {"changed field, 4 items / property", "changedWrite/4", "propertyWrite", 0.7},
            {"16 receivers / 1", "delivery/15", "delivery/0", 1.5},
            {"equal value / changed", "equalWrite/4", "changedWrite/4", 0.3},
            {"newWidgetInstance / QMetaObject::newInstance", "newWidgetInstance",
             "metaObjectNewInstance", 0.5},
        });
    printMeasured("heap of a widget without values, bytes", bytesPerWidget(0), 1024);
    std::printf("heap of a description: %.0f bytes\n", bytesOfDescription());
    std::printf("heap of a widget with ten values: %.0f bytes\n", bytesPerWidget(10));
    return result;
}

#include "bench_widgets.moc"
