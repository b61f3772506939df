#pragma once

#include <cstdio>

//! What every operating system does its own way; one source file for each.
namespace ZPPluginTool {

//! The number of columns of the terminal behind a stream, or 0 if there is none.
int terminalWidth(FILE *stream);

} // namespace ZPPluginTool
