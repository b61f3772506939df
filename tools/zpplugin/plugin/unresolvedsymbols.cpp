#include "plugin/unresolvedsymbols.h"

#include "probe/process.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

namespace ZPPluginTool {

//! What the dynamic linker complains of when this program is to run with the library loaded. The
//! path may not have blanks or colons, which separate the paths of a list.
static QString linkerReport(const QString &folder, const QString &libraryPath, int seconds)
{
    // With these set the linker loads everything and reports what is missing instead of running
    // the program, which would print its version.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_TRACE_LOADED_OBJECTS"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LD_WARN"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LD_BIND_NOW"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LD_PRELOAD"), libraryPath);
    QProcess linker;
    linker.setProcessEnvironment(environment);
    linker.setWorkingDirectory(folder);
    linker.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--version")},
                 QIODevice::ReadOnly);
    if (!linker.waitForFinished(seconds * 1000))
        linker.kill();
    return QString::fromLocal8Bit(linker.readAllStandardError());
}

QStringList unresolvedSymbols(const QString &libraryPath, int seconds)
{
    const QFileInfo library(libraryPath);
    const QString path = QStringLiteral("./") + library.fileName();
    static const QRegularExpression separator(QStringLiteral("[\\s:;]"));
    if (path.contains(separator))
        return {};

    static const QRegularExpression line(
        QStringLiteral("^(?:undefined )?symbol:? ([^\\s,]+).*\\((.*)\\)$"),
        QRegularExpression::MultilineOption);
    QStringList result;
    auto matches = line.globalMatch(linkerReport(library.absolutePath(), path, seconds));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.captured(2) == path)
            result += NARV::PROBE::demangled(match.captured(1));
    }
    result.removeDuplicates();
    return result;
}

} // namespace ZPPluginTool
