#include "checkcommand.h"

#include "findingprinter.h"
#include "metadatafindings.h"

#include <QFileInfo>

namespace ZPPluginTool {

const CommandHelp checkHelp = {
    "check", "FOLDER|LIBRARY|METADATA.json",
    "Find what is wrong with a plugin before it is shipped",
    "x"};

static int checkFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return usageError(QStringLiteral("zpplugin check"), file.errorString());
    const QByteArray json = file.readAll();
    Terminal out(stdout);
    FindingPrinter printer(out);
    printer.printWithPositions(path, json, metaDataFileFindings(json));
    out.print(printer.summary());
    return printer.errors() ? HasFindings : Fine;
}

int runCheck(const QStringList &arguments)
{
    CommandLine line(checkHelp);
    if (const auto code = line.parse(arguments))
        return *code;
    return checkFile(line.argument());
}

} // namespace ZPPluginTool
