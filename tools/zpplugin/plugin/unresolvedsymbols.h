#pragma once

#include <QStringList>

namespace ZPPluginTool {

//! The symbols that a library needs and that neither it nor this program's libraries have, as the
//! author wrote them. Asks the system's dynamic linker, which runs none of the library's code; the
//! answer is empty where the linker can not be asked (it can on Linux with the GNU C library).
QStringList unresolvedSymbols(const QString &libraryPath, int seconds);

} // namespace ZPPluginTool
