#include "probe/process.h"

#include <QRegularExpression>

namespace NARV::PROBE {

QString demangledText(const QString &text)
{
    static const QRegularExpression symbol(QStringLiteral("\\b_Z\\w+"));
    QString result;
    int end = 0;
    auto matches = symbol.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(end, match.capturedStart() - end) + demangled(match.captured());
        end = match.capturedEnd();
    }
    return result + text.mid(end);
}

} // namespace NARV::PROBE
