#include "commandline.h"

#include "terminal/terminal.h"
#include "terminal/text.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace ZPPluginTool {

int usageError(const QString &command, const QString &reason)
{
    Terminal(stderr).print(
        QStringLiteral("%1: %2\nTry '%1 --help'.").arg(command, printable(reason)));
    return WrongUsage;
}

CommandLine::CommandLine(const CommandHelp &help)
    : m_help(help)
{
    m_parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")});
}

static const QString timeoutName = QStringLiteral("timeout");
static const QString languageName = QStringLiteral("language");
static const int maxSeconds = 3600;

void CommandLine::addTimeoutOption()
{
    addOption({timeoutName, QStringLiteral("Give up on a plugin after this time (default: 10)."),
               QStringLiteral("seconds"), QStringLiteral("10")});
    m_seconds = 10;
}

bool CommandLine::readSeconds()
{
    if (m_seconds == 0)
        return true; // without that option
    m_seconds = value(timeoutName).toInt();
    return m_seconds > 0 && m_seconds <= maxSeconds;
}

void CommandLine::addLanguageOption(const QString &description, const QString &defaultCode)
{
    addOption({languageName, description, QStringLiteral("code"), defaultCode});
    m_hasLanguage = true;
}

QString CommandLine::language() const
{
    return m_hasLanguage ? value(languageName) : QString();
}

std::optional<int> CommandLine::checkLanguage() const
{
    static const QRegularExpression code(QStringLiteral("\\A[a-z]{2}-[A-Z]{2}\\z"));
    const bool isGiven = m_hasLanguage && isSet(languageName);
    if (!isGiven || code.match(language()).hasMatch())
        return {};
    return misused(QStringLiteral("A language is named as in it-IT, not '%1'.").arg(language()));
}

std::optional<int> CommandLine::parse(const QStringList &arguments)
{
    const bool ok = m_parser.parse(QStringList(QString()) + arguments);
    if (m_parser.isSet(QStringLiteral("help"))) {
        Terminal(stdout).print(helpText());
        return Fine;
    }
    if (!ok)
        return misused(m_parser.errorText());
    const QStringList positional = m_parser.positionalArguments();
    const QStringList names = QString::fromLatin1(m_help.arguments).split(QLatin1Char(' '));
    if (positional.size() < names.size())
        return misused(QStringLiteral("%1 is missing.").arg(names[positional.size()]));
    if (positional.size() > names.size())
        return misused(QStringLiteral("Unexpected argument '%1'.").arg(positional[names.size()]));
    if (!readSeconds())
        return misused(QStringLiteral("The timeout is a number of seconds from 1 to %1, not '%2'.")
                           .arg(QString::number(maxSeconds), value(timeoutName)));
    return checkLanguage();
}

QString CommandLine::helpText() const
{
    const QString generated = m_parser.helpText();
    const QString options = generated.mid(generated.indexOf(QLatin1String("Options:"))).trimmed();
    return QStringLiteral("Usage: zpplugin %1 [options] %2\n\n%3\n\n%4")
        .arg(QLatin1String(m_help.name), QLatin1String(m_help.arguments),
             QString::fromUtf8(m_help.text), options);
}

std::optional<int> CommandLine::checkPath() const
{
    const QFileInfo info(argument());
    if (info.isFile() || info.isDir())
        return {};
    return misused(QStringLiteral("There is no file or folder '%1'.").arg(argument()));
}

int CommandLine::misused(const QString &reason) const
{
    return usageError(QStringLiteral("zpplugin ") + QLatin1String(m_help.name), reason);
}

} // namespace ZPPluginTool
