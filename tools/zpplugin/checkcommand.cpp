#include "checkcommand.h"

#include "metadata/metadatafindings.h"
#include "output/findingprinter.h"
#include "plugin/plugincheck.h"
#include "terminal/text.h"

#include <QFileInfo>
#include <QLibrary>

namespace ZPPluginTool {

const CommandHelp checkHelp = {
    "check", "FOLDER|LIBRARY|METADATA.json",
    "Find what is wrong with a plugin before it is shipped",
    R"(Of a metadata file prints every fault with its place, in the form that editors understand:

  demo.json:12:24: error: MetaData/widgets/fields/minimum attribute is not valid: ... [10034]

Of a plugin folder or a library prints what it is, then what is wrong: libraries for the wrong
machine, symbols that nothing provides, a plugin that crashes or hangs, widgets declared but not
registered and the other way round, classes that can not be constructed, missing translations, and
the faults of its metadata. The plugin is loaded in a process of its own.

An error keeps the plugin, or a part of it, from working. A warning is about what works but is
hardly meant. The word in brackets names the kind of finding.

  zpplugin check demo.json
  zpplugin check plugins/0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11 --timeout 30
  zpplugin check libdemo.so --strict && make publish

Exit code: 0 when there are no errors (with --strict: no warnings either), 1 when there are, 2 when
the file is not there.)"};

static bool isLibrary(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray start = file.read(4);
    return QLibrary::isLibrary(path) || start == "\177ELF" || start.startsWith("MZ");
}

static void printPassport(const PluginCheck &check, Terminal &terminal)
{
    for (const auto &entry : check.passport())
        terminal.print(terminal.styled(entry.first.leftJustified(15), Style::Dim) +
                       printable(entry.second));
    terminal.print({});
}

static int check(const CommandLine &line, const QString &path)
{
    const bool isQuiet = line.isSet(QStringLiteral("quiet"));
    Terminal terminal(stdout);
    FindingPrinter printer(terminal);
    if (QFileInfo(path).isDir() || isLibrary(path)) {
        const PluginCheck pluginCheck(path, line.seconds());
        if (!isQuiet)
            printPassport(pluginCheck, terminal);
        printer.printWithPaths(pluginCheck.findings());
    } else {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return line.misused(QStringLiteral("%1: %2").arg(path, file.errorString()));
        const QByteArray json = file.readAll();
        printer.printWithPositions(path, json, metaDataFileFindings(json));
    }
    if (!isQuiet)
        terminal.print(QStringLiteral("%1: %2").arg(printable(path), printer.summary()));
    const bool isStrict = line.isSet(QStringLiteral("strict"));
    const bool isFine = printer.errors() == 0 && !(isStrict && printer.warnings() > 0);
    return terminal.finish(isFine ? Fine : HasFindings);
}

int runCheck(const QStringList &arguments)
{
    CommandLine line(checkHelp);
    line.addOption({QStringLiteral("strict"), QStringLiteral("Count warnings as errors.")});
    line.addOption({QStringLiteral("quiet"), QStringLiteral("Print only what is wrong.")});
    line.addTimeoutOption();
    if (const auto code = line.parse(arguments))
        return *code;
    if (const auto code = line.checkPath())
        return *code;
    return check(line, line.argument());
}

} // namespace ZPPluginTool
