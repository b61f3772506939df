#include "loader/platform.h"

#include <QDir>

namespace NARV::INTERNAL {

static constexpr PluginPlatform windowsX86{"win32", "x86", "", ".dll"};
static constexpr PluginPlatform windowsX64{"win32", "x64", "", ".dll"};
static constexpr PluginPlatform linuxArm32{"linux", "arm32", "lib", ".so"};
static constexpr PluginPlatform linuxArm64{"linux", "arm64", "lib", ".so"};

// The only place that knows the system and the processor it is compiled for.
#if defined(Q_OS_WIN) && defined(Q_PROCESSOR_X86_64)
static constexpr PluginPlatform runningPlatform = windowsX64;
#elif defined(Q_OS_WIN)
static constexpr PluginPlatform runningPlatform = windowsX86;
#elif defined(Q_PROCESSOR_ARM_64)
static constexpr PluginPlatform runningPlatform = linuxArm64;
#elif defined(Q_PROCESSOR_ARM)
static constexpr PluginPlatform runningPlatform = linuxArm32;
#elif defined(Q_PROCESSOR_X86_64)
static constexpr PluginPlatform runningPlatform{"linux", "x64", "lib", ".so"};
#else
static constexpr PluginPlatform runningPlatform{"linux", "x86", "lib", ".so"};
#endif

QString PluginPlatform::libraryPath(const QString &pluginFolder, const QString &id) const
{
    const QString path = QStringLiteral("%1/%2/%3/%4%5%6")
                             .arg(pluginFolder, QLatin1String(system), QLatin1String(machine),
                                  QLatin1String(prefix), id, QLatin1String(suffix));
    return QDir::toNativeSeparators(path);
}

const QVector<PluginPlatform> &PluginPlatform::required()
{
    static const QVector<PluginPlatform> platforms{windowsX86, windowsX64, linuxArm32, linuxArm64};
    return platforms;
}

const PluginPlatform &PluginPlatform::running()
{
    return runningPlatform;
}

} // namespace NARV::INTERNAL
