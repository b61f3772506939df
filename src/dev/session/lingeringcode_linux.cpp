#include "session/lingeringcode.h"

#include <QFile>

#include <dlfcn.h>
#include <link.h>

#include <algorithm>

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

//! Of what is not hidden, such as a variable in a header, there may be one for all builds that are
//! loaded: then others go on with that of this library.
static bool isShared(const QString &libraryPath)
{
    QFile file(libraryPath);
    const uchar *content = file.open(QIODevice::ReadOnly) ? file.map(0, file.size()) : nullptr;
    if (!content)
        return true;
    const auto *header = reinterpret_cast<const ElfW(Ehdr) *>(content);
    const auto *sections = reinterpret_cast<const ElfW(Shdr) *>(content + header->e_shoff);
    for (int i = 0; i < header->e_shnum; ++i) {
        const auto *symbols = reinterpret_cast<const ElfW(Sym) *>(content + sections[i].sh_offset);
        if (sections[i].sh_type == SHT_DYNSYM &&
            std::any_of(
                symbols, symbols + sections[i].sh_size / sizeof(ElfW(Sym)), [](auto &symbol) {
                    return symbol.st_info >> 4 == STB_GNU_UNIQUE && symbol.st_shndx != SHN_UNDEF;
                }))
            return true;
    }
    return false;
}

// The handle is never closed, so that the library stays mapped. The system would run its static
// destructors at the end of the process only, so they are run here; then they do nothing.
// (Functions that a plugin has marked as destructors by hand do run twice.)
void unloadButKeepMemory(const QString &libraryPath, const std::function<void()> &unload)
{
    void *handle = dlopen(QFile::encodeName(libraryPath).constData(), RTLD_LAZY | RTLD_NOLOAD);
    unload();
    link_map *library = nullptr;
    if (!handle || isShared(libraryPath) || dlinfo(handle, RTLD_DI_LINKMAP, &library) != 0)
        return;
    const Finishers finishers = finishersOf(*library);
    for (size_t i = finishers.all ? finishers.count : 0; i > 0; --i)
        finishers.all[i - 1]();
}

} // namespace NARV::DEV
