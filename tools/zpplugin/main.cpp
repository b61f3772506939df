#include "checkcommand.h"
#include "describecommand.h"
#include "listcommand.h"
#include "plugin/probecommand.h"
#include "probe/pluginapplication.h"
#include "probe/probeprocess.h"
#include "resourcescommand.h"
#include "terminal/terminal.h"
#include "terminal/text.h"

#include <QCoreApplication>

using namespace ZPPluginTool;

static const struct
{
    const CommandHelp &help;
    int (*run)(const QStringList &arguments);
} commands[] = {
    {listHelp, runList},
    {describeHelp, runDescribe},
    {checkHelp, runCheck},
    {resourcesHelp, runResources},
};

static QString helpText()
{
    QString text =
        QStringLiteral("Usage: zpplugin COMMAND [options] ARGUMENT\n\n"
                       "Looks at widget-library plugins without an editor or a panel.\n\n"
                       "Commands:\n");
    for (const auto &command : commands)
        text += QStringLiteral("  %1  %2\n")
                    .arg(QLatin1String(command.help.name), -10)
                    .arg(QLatin1String(command.help.summary));
    return text +
           QStringLiteral("\n'zpplugin COMMAND --help' tells more. 'zpplugin --version' prints the "
                          "version.\n"
                          "Exit code: 0 fine, 1 something was found, 2 wrong usage.");
}

static int runCommand(const QString &name, const QStringList &arguments)
{
    QStringList names;
    for (const auto &command : commands) {
        names += QLatin1String(command.help.name);
        if (name == names.last())
            return command.run(arguments);
    }
    return usageError(QStringLiteral("zpplugin"),
                      QStringLiteral("Unknown command '%1'%2").arg(name, didYouMean(name, names)));
}

static std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    if (argc > 1 && QLatin1String(argv[1]) == QLatin1String(resourcesHelp.name))
        return NARV::PROBE::makePluginApplication(argc, argv);
    return std::make_unique<QCoreApplication>(argc, argv);
}

int main(int argc, char **argv)
{
    if (argc > 1 && QLatin1String(argv[1]) == NARV::PROBE::probeCommand)
        return runPluginProbe(argc, argv);
    const auto app = makeApplication(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty())
        return usageError(QStringLiteral("zpplugin"), QStringLiteral("Which command?"));
    const QString &first = arguments.first();
    if (first == QLatin1String("--version") || first == QLatin1String("-v"))
        Terminal(stdout).print(QStringLiteral("zpplugin " ZPPLUGIN_VERSION));
    else if (first == QLatin1String("--help") || first == QLatin1String("-h"))
        Terminal(stdout).print(helpText());
    else
        return runCommand(first, arguments.mid(1));
    return Fine;
}
