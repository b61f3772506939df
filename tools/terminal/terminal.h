#pragma once

#include <QFile>
#include <QString>

#include <cstdio>

namespace ZPPluginTool {

//! How a piece of text stands out on a terminal.
enum class Style
{
    Plain,
    Bold,
    Dim,
    Good,
    Warning,
    Error
};

//! One of the program's two output streams. Text is written as UTF-8, without colour unless the
//! stream is a terminal and NO_COLOR is not set.
class Terminal
{
public:
    explicit Terminal(FILE *stream);

    //! The number of columns; 0 when the stream is no terminal and lines may have any length.
    int width() const { return m_width; }
    QString styled(const QString &text, Style style) const;
    void print(const QString &line);
    //! Shows on a terminal how far the program is, in a line that the next one replaces.
    void progress(const QString &text);
    //! Writes out what is left. Gives the code to end with: exitCode, or 2 when something could not
    //! be written, as on a full disk.
    int finish(int exitCode);

private:
    void eraseProgress();

    QFile m_file;
    int m_width = 0;
    bool m_colour = false;
    bool m_failed = false;
    bool m_showsProgress = false;
};

} // namespace ZPPluginTool
