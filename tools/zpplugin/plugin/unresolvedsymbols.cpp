#include "plugin/unresolvedsymbols.h"

#include "system.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

namespace ZPPluginTool {

QString demangledText(const QString &text)
{
    static const QRegularExpression symbol(QStringLiteral("\\b_Z\\w+"));
    QString result;
    int end = 0;
    auto matches = symbol.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(end, match.capturedStart() - end) + demangled(match.captured());
        end = match.capturedEnd();
    }
    return result + text.mid(end);
}

QStringList unresolvedSymbols(const QString &libraryPath, int seconds)
{
    // The linker takes a list of paths, separated by blanks and colons.
    const QFileInfo library(libraryPath);
    const QString preload = QStringLiteral("./") + library.fileName();
    static const QRegularExpression separator(QStringLiteral("[\\s:;]"));
    if (preload.contains(separator))
        return {};

    // With these set the linker loads everything and reports what is missing instead of running
    // the program, which would print its version.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_TRACE_LOADED_OBJECTS"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LD_WARN"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LD_BIND_NOW"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LD_PRELOAD"), preload);
    QProcess linker;
    linker.setProcessEnvironment(environment);
    linker.setWorkingDirectory(library.absolutePath());
    linker.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--version")},
                 QIODevice::ReadOnly);
    if (!linker.waitForFinished(seconds * 1000))
        linker.kill();

    static const QRegularExpression line(
        QStringLiteral("^(?:undefined )?symbol:? ([^\\s,]+).*\\((.*)\\)$"),
        QRegularExpression::MultilineOption);
    QStringList result;
    auto matches = line.globalMatch(QString::fromLocal8Bit(linker.readAllStandardError()));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.captured(2) == preload)
            result += demangled(match.captured(1));
    }
    result.removeDuplicates();
    return result;
}

} // namespace ZPPluginTool
