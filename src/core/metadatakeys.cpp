#include "core/metadatakeys_p.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace NARV::INTERNAL {

// In the order of the enumerators.
static constexpr std::string_view names[] = {
    "author",
    "copyright",
    "defaultFont",
    "defaultLanguage",
    "defaultSize",
    "defaultValue",
    "description",
    "display",
    "displayFontBold",
    "displayFontFamily",
    "displayFontSize",
    "displayFontStyle",
    "displayFontUnderline",
    "fields",
    "galleryGroupName",
    "group",
    "id",
    "license",
    "maximum",
    "MetaData",
    "minimum",
    "multiLanguage",
    "name",
    "options",
    "private",
    "readOnly",
    "receiveAlarmsEvents",
    "requirements",
    "showInPageGallery",
    "showInProjectGallery",
    "tagAcceptedTypes",
    "tagCanBeAttached",
    "tagOnDemand",
    "translation",
    "type",
    "version",
    "widgets",
    "", // Unknown
};
static_assert(std::size(names) == size_t(MetaDataKey::Unknown) + 1);

//! Where a name of that size with these letters at its ends belongs. Tells nearly all keys apart.
static constexpr size_t slotOf(size_t size, size_t front, size_t back)
{
    return (5 * size + front + 3 * back) % 128;
}

//! The keys by slot; those that would share one move on to the next free slot.
static constexpr std::array<MetaDataKey, 128> slotsOfKeys()
{
    std::array<MetaDataKey, 128> keys{};
    for (MetaDataKey &key : keys)
        key = MetaDataKey::Unknown;
    for (size_t i = 0; i < size_t(MetaDataKey::Unknown); ++i) {
        size_t slot = slotOf(names[i].size(), size_t(names[i].front()), size_t(names[i].back()));
        while (keys[slot] != MetaDataKey::Unknown)
            slot = (slot + 1) % keys.size();
        keys[slot] = MetaDataKey(i);
    }
    return keys;
}

QLatin1String keyName(MetaDataKey key)
{
    const std::string_view name = names[size_t(key)];
    return QLatin1String(name.data(), int(name.size()));
}

static bool isEqual(QStringView text, std::string_view name)
{
    return size_t(text.size()) == name.size() &&
           std::equal(name.begin(), name.end(), text.begin(),
                      [](char a, QChar b) { return a == b.unicode(); });
}

MetaDataKey keyFromName(QStringView name)
{
    static constexpr std::array<MetaDataKey, 128> keys = slotsOfKeys();
    if (name.isEmpty())
        return MetaDataKey::Unknown;
    size_t slot = slotOf(size_t(name.size()), name.front().unicode(), name.back().unicode());
    while (keys[slot] != MetaDataKey::Unknown && !isEqual(name, names[size_t(keys[slot])]))
        slot = (slot + 1) % keys.size();
    return keys[slot];
}

} // namespace NARV::INTERNAL
