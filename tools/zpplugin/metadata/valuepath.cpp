#include "metadata/valuepath.h"

#include <QStringList>

namespace ZPPluginTool {

ValuePath valuePathFromText(const QString &text)
{
    ValuePath path;
    for (const QString &piece : text.split(QLatin1Char('.'), Qt::SkipEmptyParts)) {
        const QStringList parts = piece.split(QLatin1Char('['));
        path.append(parts.first());
        for (int i = 1; i < parts.size(); ++i)
            path.append(parts[i].chopped(1).toInt());
    }
    return path;
}

QString valuePathToText(const ValuePath &path)
{
    QString text;
    for (const PathStep &step : path) {
        if (step.isIndex())
            text += QStringLiteral("[%1]").arg(step.index);
        else
            text += (text.isEmpty() ? QString() : QStringLiteral(".")) + step.key;
    }
    return text;
}

} // namespace ZPPluginTool
