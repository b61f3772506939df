#include "session/lingeringcode.h"

#include <QFile>
#include <QVector>

#include <dlfcn.h>
#include <link.h>

#include <algorithm>

namespace NARV::DEV {

namespace {

using Finisher = void (*)();
using Header = ElfW(Ehdr);
using Section = ElfW(Shdr);
using Symbol = ElfW(Sym);

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

//! The records that lie there; none if they would go beyond the end of the file.
template<typename Record>
static QVector<Record> recordsAt(QFile &file, quint64 offset, quint64 size)
{
    const auto fileSize = quint64(file.size());
    if (offset > fileSize || size > fileSize - offset || !file.seek(qint64(offset)))
        return {};
    QVector<Record> records(int(size / sizeof(Record)));
    const qint64 wanted = qint64(records.size()) * qint64(sizeof(Record));
    return file.read(reinterpret_cast<char *>(records.data()), wanted) == wanted
               ? records
               : QVector<Record>();
}

static bool isUnique(const Symbol &symbol)
{
    return symbol.st_info >> 4 == STB_GNU_UNIQUE && symbol.st_shndx != SHN_UNDEF;
}

//! Of what is not hidden, such as a variable in a header, there may be one for all builds that are
//! loaded: then others go on with that of this library. The system loads a library whatever its
//! table of sections says, so that the table may be wrong; then nothing is known.
static bool mayBeShared(const QString &libraryPath)
{
    QFile file(libraryPath);
    if (!file.open(QIODevice::ReadOnly))
        return true;
    for (const Header &header : recordsAt<Header>(file, 0, sizeof(Header))) {
        const quint64 size = quint64(header.e_shnum) * sizeof(Section);
        for (const Section &section : recordsAt<Section>(file, header.e_shoff, size)) {
            if (section.sh_type != SHT_DYNSYM)
                continue;
            const auto symbols = recordsAt<Symbol>(file, section.sh_offset, section.sh_size);
            return symbols.isEmpty() || std::any_of(symbols.begin(), symbols.end(), isUnique);
        }
    }
    return true;
}

// The handle is never closed, so that the library stays mapped. The system would run its static
// destructors at the end of the process only, so they are run here; then they do nothing.
// (Functions that a plugin has marked as destructors by hand do run twice.)
void unloadButKeepMemory(const QString &libraryPath, const std::function<void()> &unload)
{
    void *handle = dlopen(QFile::encodeName(libraryPath).constData(), RTLD_LAZY | RTLD_NOLOAD);
    unload();
    link_map *library = nullptr;
    if (!handle || mayBeShared(libraryPath) || dlinfo(handle, RTLD_DI_LINKMAP, &library) != 0)
        return;
    const Finishers finishers = finishersOf(*library);
    for (size_t i = finishers.all ? finishers.count : 0; i > 0; --i)
        finishers.all[i - 1]();
}

} // namespace NARV::DEV
