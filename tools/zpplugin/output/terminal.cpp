#include "output/terminal.h"

#include "system.h"

namespace ZPPluginTool {

static const char *escapeSequence(Style style)
{
    switch (style) {
    case Style::Plain:
        return "";
    case Style::Bold:
        return "\033[1m";
    case Style::Dim:
        return "\033[2m";
    case Style::Good:
        return "\033[32m";
    case Style::Warning:
        return "\033[1;35m";
    case Style::Error:
        return "\033[1;31m";
    }
    return "";
}

Terminal::Terminal(FILE *stream)
    : m_width(terminalWidth(stream))
{
    m_file.open(stream, QIODevice::WriteOnly);
    m_colour = m_width > 0 && qEnvironmentVariableIsEmpty("NO_COLOR") &&
               qgetenv("TERM") != QByteArrayLiteral("dumb");
}

QString Terminal::styled(const QString &text, Style style) const
{
    if (!m_colour || style == Style::Plain)
        return text;
    return QLatin1String(escapeSequence(style)) + text + QLatin1String("\033[0m");
}

void Terminal::print(const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    m_failed |= m_file.write(bytes) != bytes.size();
}

int Terminal::finish(int exitCode)
{
    return m_file.flush() && !m_failed ? exitCode : 2;
}

} // namespace ZPPluginTool
