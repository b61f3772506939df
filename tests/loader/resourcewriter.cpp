// Loads the plugins of a folder, says so, and generates the editor's resources: for the tests to
// kill.
//
//     resourcewriter PLUGINS OUT LANGUAGE

#include <NARV/INTERNAL/PluginLoader>

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    NARV::INTERNAL::PluginLoader loader;
    if (arguments.size() != 4 || !loader.loadFromDir(arguments[1]) || !loader.init())
        return 2;
    std::puts("ready");
    std::fflush(stdout);
    return loader.generateStudioExtraResources(arguments[2], arguments[3]) ? 0 : 1;
}
