#include "core/pluginmetainformation.h"

#include <array>
#include <charconv>
#include <limits>
#include <tuple>

namespace NARV::INTERNAL {

using VersionType = PluginMetaInformation::VersionType;

static const QLatin1Char dot('.');
static constexpr unsigned int largestNumberInText = 999999999;

static QString canonicalText(std::initializer_list<unsigned int> numbers)
{
    static constexpr int longest = std::numeric_limits<unsigned int>::digits10 + 1;
    std::array<char, 3 * (longest + 1)> text;
    char *end = text.data();
    for (unsigned int number : numbers) {
        end = std::to_chars(end, end + longest, number).ptr;
        *end++ = '.';
    }
    return QString::fromLatin1(text.data(), int(end - text.data()) - 1);
}

VersionType::VersionType(const QString &text)
{
    const int first = text.indexOf(dot);
    const int second = text.indexOf(dot, first + 1);
    if (first < 0 || second < 0)
        return;
    const QStringRef parts[] = {text.leftRef(first), text.midRef(first + 1, second - first - 1),
                                text.midRef(second + 1)};
    unsigned int numbers[3];
    for (int i = 0; i < 3; ++i) {
        bool ok = false;
        numbers[i] = parts[i].toUInt(&ok, 10); // no number has a dot in it
        if (!ok || numbers[i] > largestNumberInText)
            return;
    }
    *this = VersionType(numbers[0], numbers[1], numbers[2]);
}

VersionType::VersionType(unsigned int major, unsigned int minor, unsigned int patch)
    : m_major(major)
    , m_minor(minor)
    , m_patch(patch)
    , m_version(canonicalText({major, minor, patch}))
{
}

int VersionType::compare(const VersionType &other) const
{
    const auto mine = std::tie(m_major, m_minor, m_patch);
    const auto theirs = std::tie(other.m_major, other.m_minor, other.m_patch);
    if (mine == theirs)
        return 0;
    return mine < theirs ? -1 : 1;
}

} // namespace NARV::INTERNAL
