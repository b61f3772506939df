#pragma once

#include "metadata/finding.h"
#include "terminal/terminal.h"

namespace ZPPluginTool {

//! Prints findings, one a line, and counts them.
class FindingPrinter
{
public:
    explicit FindingPrinter(Terminal &terminal)
        : m_terminal(terminal)
    {
    }

    //! As compilers do: "file:line:column: error: text [code]".
    void printWithPositions(const QString &file, const QByteArray &fileText,
                            const Findings &findings);
    //! Without a text to point into: "file: error: widgets[0].id: text [code]".
    void printWithPaths(const Findings &findings);

    int errors() const { return m_errors; }
    int warnings() const { return m_warnings; }
    //! "2 errors, 1 warning", or "no errors, no warnings".
    QString summary() const;

private:
    void print(const QString &place, const Finding &finding, const QString &text);

    Terminal &m_terminal;
    int m_errors = 0;
    int m_warnings = 0;
};

} // namespace ZPPluginTool
