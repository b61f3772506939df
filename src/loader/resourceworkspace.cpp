#include "loader/resourceworkspace_p.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>
#include <system_error>
#include <type_traits>

namespace NARV::INTERNAL {

bool isOccupied(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

static std::filesystem::path toNative(const QString &path)
{
    if constexpr (std::is_same_v<std::filesystem::path::value_type, char>)
        return QFile::encodeName(path).toStdString();
    else
        return path.toStdWString();
}

// Qt's own replaces nothing, and copies what it cannot move.
static bool move(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(toNative(from), toNative(to), error);
    return !error;
}

// Unlike Qt's own this takes all kinds of links that Windows has for what they are.
static bool remove(const QString &path)
{
    std::error_code error;
    std::filesystem::remove_all(toNative(path), error);
    return !error;
}

ResourceWorkspace::ResourceWorkspace(const QString &folder)
{
    QTemporaryDir made(folder + QLatin1String("/.new-XXXXXX"));
    made.setAutoRemove(false); // which warns where it fails
    if (made.isValid())
        m_path = made.path();
}

ResourceWorkspace::~ResourceWorkspace()
{
    if (isValid())
        remove(m_path);
}

QString ResourceWorkspace::path(const QString &name) const
{
    return m_path + QLatin1Char('/') + name;
}

bool ResourceWorkspace::moveOut(const QString &name, const QString &target) const
{
    return move(path(name), target);
}

bool ResourceWorkspace::discard(const QString &path)
{
    const QString inside = this->path(QStringLiteral("discarded-%1").arg(m_discarded++));
    return remove(isValid() && move(path, inside) ? inside : path);
}

} // namespace NARV::INTERNAL
