#include "data/quality.h"

namespace NARV::DEV {

const QStringList &qualityNames()
{
    static const QStringList names{QStringLiteral("good"), QStringLiteral("uncertain"),
                                   QStringLiteral("bad")};
    return names;
}

QString qualityName(Quality quality)
{
    return qualityNames().value(int(quality));
}

bool qualityFromName(const QString &name, Quality &quality)
{
    const int index = qualityNames().indexOf(name);
    if (index < 0)
        return false;
    quality = Quality(index);
    return true;
}

} // namespace NARV::DEV
