#pragma once

#include <QString>

#include <cstdio>

//! What a process that runs foreign code needs, done each operating system's own way.
namespace NARV::PROBE {

//! Gives what stands on standard output a stream of its own, and sends to standard error all that
//! the process and its libraries print on standard output from then on.
FILE *takeStandardOutput();

//! Keeps a process that runs foreign code from dumping core, from using up the machine's memory,
//! from surviving the process that started it, and from running longer than that.
void limitThisProcess(int seconds);

//! How a crashed process ended: "crashed with signal 11 (SIGSEGV)".
QString crashText(int exitCode);

//! The symbol as the author wrote it, or as it is if it is no C++ symbol.
QString demangled(const QString &symbol);
//! The text with the C++ symbols in it as the author wrote them.
QString demangledText(const QString &text);

} // namespace NARV::PROBE
