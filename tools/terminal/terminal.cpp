#include "terminal/terminal.h"

#include "terminal/system.h"
#include "terminal/text.h"

#include <utility>

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

void Terminal::eraseProgress()
{
    if (std::exchange(m_showsProgress, false))
        m_file.write("\r\033[K");
}

void Terminal::progress(const QString &text)
{
    if (m_width == 0)
        return;
    eraseProgress();
    m_file.write(elided(printable(text), m_width - 1).toUtf8());
    m_file.flush();
    m_showsProgress = true;
}

void Terminal::print(const QString &line)
{
    eraseProgress();
    const QByteArray bytes = line.toUtf8() + '\n';
    m_failed |= m_file.write(bytes) != bytes.size();
}

int Terminal::finish(int exitCode)
{
    return m_file.flush() && !m_failed ? exitCode : 2;
}

} // namespace ZPPluginTool
