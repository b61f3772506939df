#include "session/lingeringcode.h"

#include <QFile>

#include <dlfcn.h>
#include <link.h>

namespace NARV::DEV {

namespace {

using Finisher = void (*)();

//! What a library has to be called with at its end.
struct Finishers
{
    const Finisher *all = nullptr;
    size_t count = 0;
};

} // namespace

static Finishers finishersOf(const link_map &library)
{
    Finishers finishers;
    for (const ElfW(Dyn) *entry = library.l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_FINI_ARRAY)
            finishers.all = reinterpret_cast<const Finisher *>(library.l_addr + entry->d_un.d_ptr);
        else if (entry->d_tag == DT_FINI_ARRAYSZ)
            finishers.count = entry->d_un.d_val / sizeof(Finisher);
    }
    return finishers;
}

// The handle is never closed, so that the library stays mapped; then the system does not run its
// static destructors before the end of the process, when they no longer do anything.
void unloadButKeepMemory(const QString &libraryPath, const std::function<void()> &unload)
{
    void *handle = dlopen(QFile::encodeName(libraryPath).constData(), RTLD_LAZY | RTLD_NOLOAD);
    unload();
    link_map *library = nullptr;
    if (!handle || dlinfo(handle, RTLD_DI_LINKMAP, &library) != 0)
        return;
    const Finishers finishers = finishersOf(*library);
    for (size_t i = finishers.all ? finishers.count : 0; i > 0; --i)
        finishers.all[i - 1]();
}

} // namespace NARV::DEV
