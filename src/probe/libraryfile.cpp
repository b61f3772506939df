#include "probe/libraryfile.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QFile>
#include <QtEndian>

namespace NARV::PROBE {

using NARV::INTERNAL::PluginPlatform;

namespace {

//! A processor under all its names and numbers.
struct Machine
{
    const char *name;
    int bits;
    int elfNumber;
    int peNumber;
    const char *folder; //!< in a plugin folder
};

constexpr Machine machines[] = {
    {"x86", 32, 3, 0x014c, "x86"},    {"x86-64", 64, 62, 0x8664, "x64"},
    {"ARM", 32, 40, 0x01c4, "arm32"}, {"AArch64", 64, 183, 0xaa64, "arm64"},
    {"MIPS", 32, 8, 0x0166, ""},      {"PowerPC", 32, 20, 0x01f0, ""},
    {"PowerPC", 64, 21, -1, ""},      {"RISC-V", 64, 243, 0x5064, ""},
    {"RISC-V", 32, 243, 0x5032, ""},  {"LoongArch", 64, 258, 0x6264, ""},
};

QString machineName(int number, int Machine::*numbers)
{
    for (const Machine &machine : machines) {
        if (machine.*numbers == number)
            return QLatin1String(machine.name);
    }
    return QStringLiteral("processor number %1").arg(number);
}

//! Numbers in a block of bytes. What lies outside the block reads as 0.
class Bytes
{
public:
    Bytes(const QByteArray &bytes, bool isBigEndian)
        : m_bytes(bytes)
        , m_isBigEndian(isBigEndian)
    {
    }

    template<typename Number>
    Number at(qint64 offset) const
    {
        if (offset < 0 || offset > m_bytes.size() - qint64(sizeof(Number)))
            return 0;
        const char *start = m_bytes.constData() + offset;
        return m_isBigEndian ? qFromBigEndian<Number>(start) : qFromLittleEndian<Number>(start);
    }

private:
    const QByteArray m_bytes;
    const bool m_isBigEndian;
};

//! Where the fields of an ELF header are that depend on the number of bits.
struct ElfLayout
{
    int bits;
    int headerSize;
    int sectionTableOffset;
    int sectionSize;
    int sectionCount;
};

constexpr ElfLayout elf32{32, 52, 0x20, 0x2e, 0x30};
constexpr ElfLayout elf64{64, 64, 0x28, 0x3a, 0x3c};

const int elfSharedObject = 3;
const int elfBigEndian = 2;

LibraryFile readElf(const QByteArray &head, qint64 fileSize)
{
    LibraryFile result;
    const ElfLayout &layout = head.at(4) == 2 ? elf64 : elf32;
    const Bytes bytes(head, head.at(5) == elfBigEndian);
    result.kind = {QStringLiteral("ELF"), machineName(bytes.at<quint16>(0x12), &Machine::elfNumber),
                   layout.bits};
    const quint64 sections = layout.bits == 64 ? bytes.at<quint64>(layout.sectionTableOffset)
                                               : bytes.at<quint32>(layout.sectionTableOffset);
    const quint64 sectionsSize =
        quint64(bytes.at<quint16>(layout.sectionSize)) * bytes.at<quint16>(layout.sectionCount);
    const auto size = static_cast<quint64>(fileSize);
    if (head.size() < layout.headerSize || sections > size || sectionsSize > size - sections)
        result.fault = QStringLiteral("the file is cut off: its own tables lie beyond its end");
    else if (bytes.at<quint16>(0x10) != elfSharedObject)
        result.fault = QStringLiteral("the file is no shared library");
    return result;
}

const quint16 peMagic64 = 0x20b;
const quint16 peIsLibrary = 0x2000;

LibraryFile readPe(QFile &file, const QByteArray &head)
{
    LibraryFile result;
    const qint64 start = Bytes(head, false).at<quint32>(0x3c);
    const QByteArray header = file.seek(start) ? file.read(26) : QByteArray();
    if (!header.startsWith(QByteArray("PE\0\0", 4)) || header.size() < 26) {
        result.fault = QStringLiteral("the file is no library: a Windows header without content");
        return result;
    }
    const Bytes bytes(header, false);
    const int bits = bytes.at<quint16>(24) == peMagic64 ? 64 : 32;
    result.kind = {QStringLiteral("PE"), machineName(bytes.at<quint16>(4), &Machine::peNumber),
                   bits};
    if ((bytes.at<quint16>(22) & peIsLibrary) == 0)
        result.fault = QStringLiteral("the file is no DLL");
    return result;
}

} // namespace

bool LibraryKind::operator==(const LibraryKind &other) const
{
    return format == other.format && machine == other.machine && bits == other.bits;
}

QString LibraryKind::text() const
{
    return format.isEmpty()
               ? QString()
               : QStringLiteral("%1, %2, %3 bit").arg(format, machine, QString::number(bits));
}

LibraryFile LibraryFile::read(const QString &path)
{
    LibraryFile result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.fault = QStringLiteral("the file can not be read: ") + file.errorString();
        return result;
    }
    const QByteArray head = file.read(64);
    if (head.startsWith("\177ELF") && head.size() > 16)
        return readElf(head, file.size());
    if (head.startsWith("MZ"))
        return readPe(file, head);
    result.fault = head.isEmpty() ? QStringLiteral("the file is empty")
                                  : QStringLiteral("the file is no library");
    return result;
}

//! The kind of library that a platform needs.
static LibraryKind kindFor(const PluginPlatform &platform)
{
    const bool isWindows = QLatin1String(platform.suffix) == QLatin1String(".dll");
    for (const Machine &machine : machines) {
        if (QLatin1String(machine.folder) == QLatin1String(platform.machine))
            return {isWindows ? QStringLiteral("PE") : QStringLiteral("ELF"),
                    QLatin1String(machine.name), machine.bits};
    }
    return {};
}

QString LibraryFile::whyNotFor(const PluginPlatform &platform) const
{
    const LibraryKind needed = kindFor(platform);
    if (!fault.isEmpty() || kind == needed)
        return fault;
    return QStringLiteral("the library is built for another machine: it is %1; %2/%3 is %4")
        .arg(kind.text(), QLatin1String(platform.system), QLatin1String(platform.machine),
             needed.text());
}

} // namespace NARV::PROBE
