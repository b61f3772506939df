#include "console/recordtime.h"

#include <QDateTime>

namespace NARV::DEV {

static const int longestToolTip = 2000;

QString recordTime(qint64 time)
{
    return QDateTime::fromMSecsSinceEpoch(time).time().toString(QStringLiteral("HH:mm:ss.zzz"));
}

QString recordToolTip(const QStringList &parts, const QString &text)
{
    QStringList present = parts;
    present.removeAll(QString());
    const QString shown =
        text.size() > longestToolTip ? text.left(longestToolTip) + QLatin1String("...") : text;
    return QStringLiteral("<p style='white-space:pre-wrap'><b>%1</b><br>%2</p>")
        .arg(present.join(QStringLiteral(" \u00b7 ")).toHtmlEscaped(), shown.toHtmlEscaped());
}

} // namespace NARV::DEV
