#pragma once

#include <QString>

namespace NARV::INTERNAL {
struct PluginPlatform;
}

namespace NARV::PROBE {

//! Which system and processor a library is for.
struct LibraryKind
{
    QString format;  //!< "ELF", "PE", or empty when the file is no library
    QString machine; //!< such as "AArch64"
    int bits = 0;

    bool operator==(const LibraryKind &other) const;
    bool operator!=(const LibraryKind &other) const { return !(*this == other); }
    //! Such as "ELF, AArch64, 64 bit"; empty when the file is no library.
    QString text() const;
};

//! What the header of a library file tells. The file is read, not loaded, so it may be hostile.
struct LibraryFile
{
    LibraryKind kind;
    QString fault; //!< why the file is no usable library; empty for none

    static LibraryFile read(const QString &path);
    //! Why a platform can not load the file; empty when nothing speaks against it.
    QString whyNotFor(const NARV::INTERNAL::PluginPlatform &platform) const;
};

} // namespace NARV::PROBE
