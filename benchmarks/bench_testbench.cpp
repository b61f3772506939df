// What the test bench does with a thousand widgets and five hundred moving tags. The window must
// answer within the blink of an eye, 100 ms, whatever it is at.

#include "ratioreporter.h"

#include <NARV/DEV/WidgetLibraryPluginTestWidget>
#include <NARV/INTERNAL/Init>
#include <NARV/LogHandler>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QGraphicsView>
#include <QIcon>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <thread>

using NARV::DEV::WidgetLibraryPluginTestWidget;

static constexpr double blinkMs = 100;
static constexpr int tickMs = 50;

static const QSizeF page(3840, 2160);

[[noreturn]] static void fail(const char *what)
{
    std::fprintf(stderr, "bench_testbench: %s\n", what);
    std::exit(1);
}

//! Fields of the gallery that show what a tag does.
static const std::map<QString, QString> boundFields{
    {QStringLiteral("gauge"), QStringLiteral("value")},
    {QStringLiteral("bar"), QStringLiteral("value")},
    {QStringLiteral("numericDisplay"), QStringLiteral("value")},
    {QStringLiteral("lamp"), QStringLiteral("state")},
    {QStringLiteral("numericInput"), QStringLiteral("value")},
    {QStringLiteral("selector"), QStringLiteral("value")},
};

static QString tagName(int number)
{
    return QStringLiteral("tag %1").arg(number);
}

//! Tags that all have another value at each tick.
static QJsonArray movingTags(int count)
{
    QJsonArray tags;
    for (int i = 0; i < count; ++i) {
        const QJsonObject generator{{QStringLiteral("kind"), QStringLiteral("sine")},
                                    {QStringLiteral("period"), 5000 + 17 * i},
                                    {QStringLiteral("minimum"), 0},
                                    {QStringLiteral("maximum"), 100}};
        tags.append(QJsonObject{{QStringLiteral("name"), tagName(i)},
                                {QStringLiteral("type"), QStringLiteral("double")},
                                {QStringLiteral("generator"), generator}});
    }
    return tags;
}

static QJsonObject emptyScene(int tags)
{
    const QJsonObject pageObject{{QStringLiteral("size"), QJsonArray{page.width(), page.height()}},
                                 {QStringLiteral("background"), QStringLiteral("#ffffffff")}};
    return {{QStringLiteral("format"), QStringLiteral("zpplugin-bench-page")},
            {QStringLiteral("version"), 1},
            {QStringLiteral("page"), pageObject},
            {QStringLiteral("widgets"), QJsonArray()},
            {QStringLiteral("data"), QJsonObject{{QStringLiteral("tags"), movingTags(tags)}}}};
}

static double processorMs()
{
    return 1e3 * double(std::clock()) / CLOCKS_PER_SEC;
}

//! The test bench in its window, with the gallery and as many moving tags.
class TestBench : public QObject
{
public:
    explicit TestBench(int tags, const QSize &size = {1280, 800})
    {
        widget.resize(size);
        widget.show();
        view().viewport()->installEventFilter(this);
        widget.openPlugin(QStringLiteral(GALLERY_LIBRARY));
        if (!widget.isPluginLoaded())
            fail("the gallery does not load");
        QFile file(scenePath());
        const QByteArray text = QJsonDocument(emptyScene(tags)).toJson();
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            fail("the scene cannot be written");
        file.close();
        if (!widget.openScene(scenePath()))
            fail("the scene does not open");
        trigger("zoom-fit");
        settle();
    }

    QString scenePath() const { return m_folder.filePath(QStringLiteral("scene.json")); }

    QGraphicsView &view() const
    {
        return *widget.findChild<QGraphicsView *>(QStringLiteral("page"));
    }

    void trigger(const char *action) const
    {
        widget.findChild<QAction *>(QLatin1String(action))->trigger();
    }

    //! All that is due, the repainting too, frame by frame. Returns the longest that no input would
    //! have been heard, in milliseconds of processor time.
    double settle()
    {
        double longest = 0;
        const auto time = [&longest](const auto &step) {
            const double start = processorMs();
            step();
            longest = qMax(longest, processorMs() - start);
        };
        do {
            m_hasPainted = false;
            time([] { QCoreApplication::processEvents(); });
            time([this] {
                QEvent update(QEvent::UpdateRequest);
                QCoreApplication::sendEvent(&widget, &update);
            });
        } while (m_hasPainted);
        return longest;
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_hasPainted = m_hasPainted || event->type() == QEvent::Paint;
        return false;
    }

    void press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&view(), &event);
    }

    void showPanel(const char *name)
    {
        widget.findChild<QDockWidget *>(QLatin1String(name))->raise();
        settle();
    }

    QWidget &panel(const char *name) const
    {
        return *widget.findChild<QDockWidget *>(QLatin1String(name))->widget();
    }

    //! A mix of all widgets of the gallery, half of which show a tag.
    void place(int count, int tags)
    {
        const QStringList ids = widget.widgetIds();
        const int columns = int(std::ceil(std::sqrt(count * page.width() / page.height())));
        const int rows = (count + columns - 1) / columns;
        const QSizeF cell(page.width() / columns, page.height() / rows);
        int bound = 0;
        for (int i = 0; i < count; ++i) {
            const QString id = ids.at(i % ids.size());
            const QPointF corner(i % columns * cell.width(), i / columns * cell.height());
            const QString name = widget.placeWidget(id, {}, corner);
            widget.setWidgetGeometry(name, QRectF(corner, cell));
            const auto field = boundFields.find(id);
            if (field != boundFields.end() && bound < tags)
                widget.bindField(name, field->second, tagName(bound++));
        }
        if (bound < tags)
            fail("too few widgets show tags");
        settle();
    }

    WidgetLibraryPluginTestWidget widget;

private:
    QTemporaryDir m_folder;
    bool m_hasPainted = false;
};

// A tick of the clock: the tags move, the widgets hear of it and the page is painted.

static void tick(benchmark::State &state)
{
    const int widgets = int(state.range());
    TestBench bench(widgets / 2);
    bench.place(widgets, widgets / 2);
    bench.widget.setRuntimeMode(true);
    bench.widget.setTimeRunning(false);
    bench.settle();
    for (auto _ : state) {
        bench.widget.advanceTime(tickMs);
        bench.settle();
    }
    state.SetItemsProcessed(state.iterations() * widgets);
}
BENCHMARK(tick)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

// The same without the painting of the widgets, which is theirs to make fast.
static void delivery(benchmark::State &state)
{
    const int widgets = int(state.range());
    TestBench bench(widgets / 2);
    bench.place(widgets, widgets / 2);
    bench.widget.setRuntimeMode(true);
    bench.widget.setTimeRunning(false);
    bench.view().setUpdatesEnabled(false);
    bench.settle();
    for (auto _ : state) {
        bench.widget.advanceTime(tickMs);
        bench.settle();
    }
    state.SetItemsProcessed(state.iterations() * widgets);
}
BENCHMARK(delivery)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

static void placing(benchmark::State &state)
{
    const int widgets = int(state.range());
    for (auto _ : state) {
        state.PauseTiming();
        auto bench = std::make_unique<TestBench>(widgets / 2);
        state.ResumeTiming();
        bench->place(widgets, widgets / 2);
        state.PauseTiming();
        bench.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * widgets);
}
BENCHMARK(placing)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(1);

// Selecting all changes nothing in the widgets, so none of them need paint again. The other side is
// what their painting takes.

static void selecting(benchmark::State &state)
{
    TestBench bench(500);
    bench.place(1000, 500);
    for (auto _ : state) {
        bench.trigger("select-all");
        bench.settle();
        bench.press(Qt::Key_Escape);
        bench.settle();
    }
}
BENCHMARK(selecting)->Unit(benchmark::kMillisecond);

static void painting(benchmark::State &state)
{
    TestBench bench(500);
    bench.place(1000, 500);
    for (auto _ : state)
        benchmark::DoNotOptimize(bench.view().viewport()->grab());
}
BENCHMARK(painting)->Unit(benchmark::kMillisecond);

// How long the window is deaf, in milliseconds of processor time, which other programs disturb
// least.

static void printBlink(const char *what, double ms)
{
    printMeasured(std::string(what) + ", ms", ms, blinkMs);
    std::fflush(stdout);
}

static double median(std::vector<double> &values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

//! The medians of several runs of an action and of what follows from it: the longest that the
//! window was deaf, and how long it took in all.
static void measure(
    TestBench &bench, const char *what, const std::function<void()> &action,
    const std::function<void()> &before = [] {})
{
    std::vector<double> blocks;
    std::vector<double> times;
    for (int run = 0; run < 5; ++run) {
        before();
        bench.settle();
        const double start = processorMs();
        action();
        const double block = processorMs() - start;
        blocks.push_back(qMax(block, bench.settle()));
        times.push_back(processorMs() - start);
    }
    printBlink(what, median(blocks));
    std::printf("    of %.4g in all\n", median(times));
}

//! Notes how long after its posting a mouse move arrives; its place on the screen is the time.
class Arrivals : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::MouseMove) {
            const auto *move = static_cast<QMouseEvent *>(event);
            latest = qMax(latest, processorMs() - move->screenPos().x());
            ++count;
        }
        return false;
    }

    double latest = 0;
    int count = 0;
};

//! The longest that an input event waits while the machine runs.
static void measureLatency(TestBench &bench, const char *what, int tickCount)
{
    Arrivals arrivals;
    QWidget *viewport = bench.view().viewport();
    viewport->installEventFilter(&arrivals);
    std::atomic<bool> isOver{false};
    // The mouse goes its way whatever the window is at.
    std::thread mouse([&] {
        while (!isOver) {
            const QPointF position(std::fmod(processorMs(), 800), 200);
            QCoreApplication::postEvent(viewport,
                                        new QMouseEvent(QEvent::MouseMove, position, position,
                                                        QPointF(processorMs(), 0), Qt::NoButton,
                                                        Qt::NoButton, Qt::NoModifier));
            std::this_thread::sleep_for(std::chrono::milliseconds(8));
        }
    });
    bench.widget.setTimeRunning(true);
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < tickCount * tickMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    bench.widget.setTimeRunning(false);
    isOver = true;
    mouse.join();
    bench.settle();
    viewport->removeEventFilter(&arrivals);
    printBlink(what, arrivals.latest);
    std::printf("    of %d events in %lld ms\n", arrivals.count, timer.elapsed());
}

static void measureEditing(TestBench &bench)
{
    const auto trigger = [&bench](const char *action) {
        return [&bench, action] { bench.trigger(action); };
    };
    const auto selectNone = [&bench] { bench.press(Qt::Key_Escape); };
    const auto selectAll = trigger("select-all");
    const QStringList ids = bench.widget.widgetIds();
    measure(bench, "painting the page, which many of these do",
            [&] { bench.view().viewport()->update(); });
    measure(bench, "place one more", [&] { bench.widget.placeWidget(ids[0], {}, {500, 500}); });
    measure(bench, "select all", selectAll, selectNone);
    measure(bench, "move all by a key", [&] { bench.press(Qt::Key_Right); });
    measure(bench, "undo it", trigger("undo"), [&] { bench.press(Qt::Key_Right); });
    measure(bench, "align all", trigger("align-left"), trigger("undo"));
    bench.trigger("undo");
    measure(bench, "raise the lowest to the top", trigger("to-top"), [&] {
        bench.press(Qt::Key_Escape);
        bench.press(Qt::Key_Tab);
    });
    selectAll();
    measure(bench, "copy all", trigger("copy"));
    measure(bench, "delete all", trigger("delete"), [&] {
        if (bench.widget.widgetNames().isEmpty())
            bench.trigger("undo");
        selectAll();
    });
    measure(bench, "undo the deletion", trigger("undo"), [&] {
        selectAll();
        bench.trigger("delete");
    });
}

static void measureFiles(TestBench &bench)
{
    const QString path = bench.scenePath();
    const auto require = [](bool isDone) {
        if (!isDone)
            fail("a scene does not open or save");
    };
    measure(bench, "save the scene", [&] { require(bench.widget.saveScene(path)); });
    measure(bench, "open the scene", [&] { require(bench.widget.openScene(path)); });
    measure(bench, "reload the plugin", [&] { bench.widget.reloadPlugin(); });
    measure(
        bench, "run the page",
        [&] {
            bench.widget.setRuntimeMode(true);
            bench.widget.setTimeRunning(false);
        },
        [&] { bench.widget.setRuntimeMode(false); });
    bench.widget.setRuntimeMode(true);
    bench.widget.setTimeRunning(false);
    measure(bench, "a tick of the clock", [&] { bench.widget.advanceTime(tickMs); });
}

static void measureZoom(TestBench &bench)
{
    const auto fit = [&bench] { bench.trigger("zoom-fit"); };
    measure(
        bench, "zoom in", [&bench] { bench.trigger("zoom-in"); }, fit);
    fit();
}

static void measureBand(TestBench &bench)
{
    QWidget *viewport = bench.view().viewport();
    const auto send = [&](QEvent::Type type, const QPoint &position) {
        QMouseEvent event(type, position, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport, &event);
    };
    bench.press(Qt::Key_Escape);
    send(QEvent::MouseButtonPress, {1, 1});
    int width = viewport->width();
    measure(bench, "a step of a band around all", [&] {
        send(QEvent::MouseMove, {width -= 3, viewport->height() - 2});
    });
    send(QEvent::MouseButtonRelease, {width, viewport->height() - 2});
}

static void log(int count)
{
    for (int i = 0; i < count; ++i)
        NARV::LogHandler({}, __FILE__, __LINE__, __func__, "BENCH").warning().debug()
            << "record" << i << (i % 100 ? "" : "needle");
}

//! A log or event panel with as many rows as it holds.
static void measurePanel(TestBench &bench, const char *name, const char *subject)
{
    bench.showPanel(name);
    auto *table = bench.panel(name).findChild<QTableView *>();
    auto *words = bench.panel(name).findChild<QLineEdit *>(QStringLiteral("words"));
    std::printf("%s: %d rows\n", subject, table->model()->rowCount());
    // The panel waits until the last letter is some 150 ms old.
    const auto filter = [&](const QString &text) {
        words->setText(text);
        const auto timers = bench.panel(name).findChildren<QTimer *>();
        for (QTimer *timer : timers) {
            if (timer->isActive() && timer->isSingleShot())
                QMetaObject::invokeMethod(timer, "timeout");
        }
    };
    measure(
        bench, "  filter by words", [&] { filter(QStringLiteral("needle")); }, [&] { filter({}); });
    measure(
        bench, "  no filter", [&] { filter({}); }, [&] { filter(QStringLiteral("needle")); });
    QScrollBar *bar = table->verticalScrollBar();
    measure(
        bench, "  scroll to the middle", [&] { bar->setValue(bar->maximum() / 2); },
        [&] { bar->setValue(0); });
}

static void measureConsole(TestBench &bench)
{
    bench.widget.showLog();
    bench.showPanel("console");
    std::thread logger([] { log(100000); });
    measureLatency(bench, "input while 100000 records come, worst", 40);
    logger.join();
    bench.settle();
    measurePanel(bench, "console", "log");
    measure(bench, "  a batch of 1000 records", [&] {
        log(1000);
        QElapsedTimer timer;
        for (timer.start(); timer.elapsed() < 40;)
            QCoreApplication::processEvents();
    });
    bench.showPanel("events");
    measureLatency(bench, "input while events come, worst", 40);
    measurePanel(bench, "events", "events");
}

static void measureScenarios(TestBench &bench)
{
    const auto actions = bench.widget.findChild<QAction *>(QStringLiteral("scenario"))->menu();
    for (QAction *action : actions->actions()) {
        if (action->isSeparator())
            continue;
        bench.showPanel("alarm");
        measure(
            bench, qPrintable(QStringLiteral("scenario: ") + action->text()),
            [action] { action->trigger(); }, [&] { actions->actions().last()->trigger(); });
    }
}

static void measureWindow(const char *name, const QSize &size)
{
    std::printf("%s\n", name);
    TestBench bench(500, size);
    bench.place(1000, 500);
    measureEditing(bench);
    measureBand(bench);
    measureZoom(bench);
    measureFiles(bench);
    measureLatency(bench, "input while 500 tags move, worst", 100);
}

static void measurePanels()
{
    TestBench bench(500);
    bench.place(1000, 500);
    bench.widget.setRuntimeMode(true);
    bench.widget.setTimeRunning(false);
    measureScenarios(bench);
    measureConsole(bench);
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    NARV::INTERNAL::narvInit(QIcon());
    const int result =
        runBenchmarks(argc, argv,
                      {
                          {"a tick per widget, of 1000 / of 100", "tick/1000", "tick/100", 1.3},
                          {"the same without painting", "delivery/1000", "delivery/100", 1.3},
                          {"selecting all and none / painting all", "selecting", "painting", 0.3},
                          {"placing a widget, of 1000 / of 100", "placing/1000/iterations:1",
                           "placing/100/iterations:1", 1.5},
                      });
    measureWindow("in a window of 1280 x 800", {1280, 800});
    measureWindow("on a screen of 3840 x 2160", {3840, 2160});
    measurePanels();
    return result;
}
