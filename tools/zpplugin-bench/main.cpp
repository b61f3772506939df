#include "dev/scene/thrownby.h"
#include "options.h"
#include "picture.h"
#include "terminal/terminal.h"
#include "terminal/text.h"

#include <NARV/DEV/PluginProbe>
#include <NARV/DEV/WidgetLibraryPluginTestWidget>
#include <NARV/INTERNAL/Init>
#include <NARV/LogHandler>

#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QStyle>

using NARV::DEV::WidgetLibraryPluginTestWidget;

static QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    return arguments;
}

static bool hasDisplay()
{
#ifdef Q_OS_LINUX
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
#else
    return true;
#endif
}

static void open(WidgetLibraryPluginTestWidget &bench, const Options &options)
{
    if (!options.language.isEmpty())
        bench.setLanguage(options.language);
    QString problem;
    if (!options.scene.isEmpty() && !bench.openScene(options.scene, &problem))
        ZPPluginTool::Terminal(stderr).print(QStringLiteral("zpplugin-bench: ") +
                                             ZPPluginTool::printable(problem));
    if (options.isRuntime)
        bench.setRuntimeMode(*options.isRuntime);
    if (!options.plugin.isEmpty())
        bench.openPlugin(options.plugin);
}

static const int smallScreen = 1500; // pixels

//! Outlives what a widget throws in a slot of its own, as of a timer.
class BenchApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        bool isTaken = false;
        const QString thrown =
            NARV::DEV::thrownBy([&] { isTaken = QApplication::notify(receiver, event); });
        if (!thrown.isEmpty())
            NARV::LogHandler({}, __FILE__, __LINE__, __func__, "TESTAPP")
                    .critical()
                    .debug()
                    .noquote()
                << "The library threw in an event of its own:" << thrown;
        return isTaken;
    }
};

static int showWindow(const Options &options, int &argc, char **argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    BenchApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("ZPPluginLibrary"));
    QCoreApplication::setApplicationName(QStringLiteral("zpplugin-bench"));
    QSettings settings;
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    NARV::INTERNAL::narvInit(QApplication::style()->standardIcon(QStyle::SP_FileIcon));
    WidgetLibraryPluginTestWidget bench;
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    bench.resize(room * 0.85);
    if (room.width() < smallScreen)
        bench.setWindowState(Qt::WindowMaximized);
    bench.setProbeCommand(QCoreApplication::applicationFilePath(), {});
    bench.showLog();
    bench.setSettings(&settings, data.filePath(QStringLiteral("unsaved")));
    bench.show();
    open(bench, options);
    return QApplication::exec();
}

int main(int argc, char **argv)
{
    if (NARV::DEV::isPluginProbe(argc, argv))
        return NARV::DEV::runPluginProbe(argc, argv);
    std::optional<int> exitCode;
    const Options options = readOptions(argumentsOf(argc, argv), exitCode);
    if (exitCode)
        return *exitCode;
    if (!options.picture.isEmpty())
        return drawPicture(options, argc, argv);
    if (!hasDisplay())
        return usageError(QStringLiteral(
            "There is no display. 'zpplugin-bench --render OUT.png PLUGIN' needs none."));
    return showWindow(options, argc, argv);
}
