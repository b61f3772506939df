#include "core/metadatakeys_p.h"

#include <QString>

#include <array>
#include <cstring>
#include <iterator>

namespace NARV::INTERNAL {

// In the order of the enumerators.
static constexpr QStringView names[] = {
    u"author",
    u"copyright",
    u"defaultFont",
    u"defaultLanguage",
    u"defaultSize",
    u"defaultValue",
    u"description",
    u"display",
    u"displayFontBold",
    u"displayFontFamily",
    u"displayFontSize",
    u"displayFontStyle",
    u"displayFontUnderline",
    u"fields",
    u"galleryGroupName",
    u"group",
    u"id",
    u"license",
    u"maximum",
    u"MetaData",
    u"minimum",
    u"multiLanguage",
    u"name",
    u"options",
    u"private",
    u"readOnly",
    u"receiveAlarmsEvents",
    u"requirements",
    u"showInPageGallery",
    u"showInProjectGallery",
    u"tagAcceptedTypes",
    u"tagCanBeAttached",
    u"tagOnDemand",
    u"translation",
    u"type",
    u"version",
    u"widgets",
    {}, // Unknown
};
static_assert(std::size(names) == size_t(MetaDataKey::Unknown) + 1);

//! Where a name belongs. Its size and the letters at its ends tell nearly all keys apart.
static constexpr size_t slotOf(QStringView name)
{
    return (5 * size_t(name.size()) + name.front().unicode() + 3 * name.back().unicode()) % 128;
}

//! The keys by slot; those that would share one move on to the next free slot.
static constexpr std::array<MetaDataKey, 128> slotsOfKeys()
{
    std::array<MetaDataKey, 128> keys{};
    for (MetaDataKey &key : keys)
        key = MetaDataKey::Unknown;
    for (size_t i = 0; i < size_t(MetaDataKey::Unknown); ++i) {
        size_t slot = slotOf(names[i]);
        while (keys[slot] != MetaDataKey::Unknown)
            slot = (slot + 1) % keys.size();
        keys[slot] = MetaDataKey(i);
    }
    return keys;
}

static bool isSame(QStringView name, QStringView other)
{
    return name.size() == other.size() &&
           std::memcmp(name.data(), other.data(), size_t(name.size()) * sizeof(QChar)) == 0;
}

QStringView keyName(MetaDataKey key)
{
    return names[size_t(key)];
}

MetaDataKey keyFromName(QStringView name)
{
    static constexpr std::array<MetaDataKey, 128> keys = slotsOfKeys();
    if (name.isEmpty())
        return MetaDataKey::Unknown;
    size_t slot = slotOf(name);
    while (keys[slot] != MetaDataKey::Unknown && !isSame(name, keyName(keys[slot])))
        slot = (slot + 1) % keys.size();
    return keys[slot];
}

} // namespace NARV::INTERNAL
