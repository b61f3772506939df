#include "core/pluginmetainformation.h"

#include <QVector>

#include <tuple>

namespace NARV::INTERNAL {

using VersionType = PluginMetaInformation::VersionType;

static const QLatin1Char dot('.');
static constexpr unsigned int largestNumberInText = 999999999;

VersionType::VersionType(const QString &text)
{
    if (text.count(dot) != 2)
        return;
    unsigned int numbers[3];
    unsigned int *number = numbers;
    for (const QStringRef &part : text.splitRef(dot)) {
        bool ok = false;
        *number = part.toUInt(&ok, 10);
        if (!ok || *number > largestNumberInText)
            return;
        ++number;
    }
    *this = VersionType(numbers[0], numbers[1], numbers[2]);
}

VersionType::VersionType(unsigned int major, unsigned int minor, unsigned int patch)
    : m_major(major)
    , m_minor(minor)
    , m_patch(patch)
    , m_version(QString::number(major) + dot + QString::number(minor) + dot +
                QString::number(patch))
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
