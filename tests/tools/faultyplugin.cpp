#include <NARV/GraphicsObject>
#include <NARV/LogHandler>
#include <NARV/Widget>
#include <NARV/WidgetLibraryPlugin>

#include <QPainter>
#include <QPixmap>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <thread>

// The plugins that the command line program has to cope with: the definition tells the fault.

using namespace NARV;

//! Found by its constructor's name only if that is written with its namespace.
class Gauge : public Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit Gauge(const WidgetData &data)
        : Widget(data)
    {
    }
};

class GaugeItem : public GraphicsObject
{
    Q_OBJECT

public:
    explicit GaugeItem(const GraphicsObjectData &data)
        : GraphicsObject(data)
    {
    }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}
};

[[maybe_unused]] static void crash()
{
    std::signal(SIGSEGV, SIG_DFL); // some sanitizers handle it
    std::raise(SIGSEGV);
}

class FaultyPlugin : public WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "faulty.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    FaultyPlugin();
#ifdef FAULT_UNLOAD
    ~FaultyPlugin() override
    {
        crash();
    }
#endif
#ifdef FAULT_LOAD_HOOK
    void load() override
    {
        throw std::runtime_error("no database");
    }
#endif
};

#ifdef FAULT_SYMBOL
struct Elsewhere
{
    static int defined(int number);
};
int elsewhere();
#endif

FaultyPlugin::FaultyPlugin()
{
    LogHandler({}, nullptr, 0, nullptr, "TEST").warning().debug().noquote() << "last record";
    std::fputs("last words\n", stderr);
#if defined(FAULT_PRINT)
    QPixmap(8, 8).fill(Qt::red); // needs a platform
    std::puts("{\"description\": {\"name\": \"wrong\"}}");
    std::fflush(stdout);
#elif defined(FAULT_CRASH)
    crash();
#elif defined(FAULT_HANG)
    std::this_thread::sleep_for(std::chrono::hours(1));
#elif defined(FAULT_THROW)
    throw std::runtime_error("no \033[31mlicense");
#elif defined(FAULT_EXIT)
    std::_Exit(3);
#elif defined(FAULT_SYMBOL)
    if (std::getenv("ZPPLUGIN_NEVER_SET"))
        setObjectName(QString::number(Elsewhere::defined(elsewhere())));
#elif defined(FAULT_CONTENT)
    NARV::registerWidget<Gauge, GaugeItem>(this, QStringLiteral("gauge"), QStringLiteral("1.0"));
    NARV::registerProjectWidget(this, QStringLiteral("extra"), QStringLiteral("1.0.0"), nullptr);
#endif
}

#include "faultyplugin.moc"
