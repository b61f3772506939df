#include "console/patterncheck.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

namespace NARV::DEV {

static const int longestTimeFormat = 256;

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::MessagePattern", text);
}

QStringList messagePatternPlaceholders()
{
    static const char *const names[] = {
        "MESSAGE",     "TYPE",        "CATEGORY",    "FILE",     "LINE",    "FUNCTION",
        "PID",         "THREAD",      "TIME",        "IF-DEBUG", "IF-INFO", "IF-WARNING",
        "IF-CRITICAL", "IF-NOT-INFO", "IF-CATEGORY", "ENDIF",
    };
    QStringList all;
    for (const char *name : names)
        all += QStringLiteral("%{%1}").arg(QLatin1String(name));
    return all;
}

//! What is wrong with one placeholder; isInside is whether a condition is open, before and after.
static QString placeholderProblem(const QString &placeholder, bool &isInside)
{
    if (placeholder.startsWith(QLatin1String("%{TIME ")))
        return placeholder.size() > longestTimeFormat ? tr("The format of the time is too long.")
                                                      : QString();
    if (!messagePatternPlaceholders().contains(placeholder))
        return tr("There is no %1; it prints nothing.").arg(placeholder);
    const bool isEnd = placeholder == QLatin1String("%{ENDIF}");
    const bool isStart = placeholder.startsWith(QLatin1String("%{IF-"));
    if (isStart && isInside)
        return tr("%1 stands inside another condition; conditions do not nest.").arg(placeholder);
    if (isEnd && !isInside)
        return tr("%{ENDIF} ends no condition.");
    isInside = isStart || (isInside && !isEnd);
    return {};
}

QString messagePatternProblem(const QString &pattern)
{
    static const QRegularExpression start(QStringLiteral("%\\{[^}]*\\}?"));
    bool isInside = false;
    auto matches = start.globalMatch(pattern);
    while (matches.hasNext()) {
        const QString placeholder = matches.next().captured();
        if (!placeholder.endsWith(QLatin1Char('}')))
            return tr("%1 is not closed by \"}\".").arg(placeholder);
        const QString problem = placeholderProblem(placeholder, isInside);
        if (!problem.isEmpty())
            return problem;
    }
    return isInside ? tr("A condition has no %{ENDIF}.") : QString();
}

} // namespace NARV::DEV
