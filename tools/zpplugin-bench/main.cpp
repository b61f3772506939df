#include "options.h"
#include "picture.h"
#include "terminal/terminal.h"
#include "terminal/text.h"

#include <NARV/DEV/PluginProbe>
#include <NARV/DEV/WidgetLibraryPluginTestWidget>
#include <NARV/INTERNAL/Init>

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QStandardPaths>

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

static int showWindow(const Options &options, int &argc, char **argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("ZPPluginLibrary"));
    QCoreApplication::setApplicationName(QStringLiteral("zpplugin-bench"));
    QSettings settings;
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    WidgetLibraryPluginTestWidget bench;
    NARV::INTERNAL::narvInit(bench.windowIcon());
    bench.resize(1280, 800);
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
