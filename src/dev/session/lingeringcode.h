#pragma once

#include <functional>

class QString;

namespace NARV::DEV {

//! Unloads a library by calling unload, but leaves its memory where it is: texts that its code has
//! handed out lie there, also in caches of the toolkit, and are read long after. What it has
//! registered, such as its resources, goes. Where the system offers no way to do that, or where
//! other builds of the library go on with its variables, only unload is called.
void unloadButKeepMemory(const QString &libraryPath, const std::function<void()> &unload);

} // namespace NARV::DEV
