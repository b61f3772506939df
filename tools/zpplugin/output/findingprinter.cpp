#include "output/findingprinter.h"

#include "metadata/textposition.h"
#include "terminal/text.h"

namespace ZPPluginTool {

void FindingPrinter::printWithPositions(const QString &file, const QByteArray &fileText,
                                        const Findings &findings)
{
    QVector<qint64> offsets;
    for (const Finding &finding : findings)
        offsets.append(finding.offset);
    const QVector<TextPosition> positions = textPositions(fileText, offsets);
    for (int i = 0; i < findings.size(); ++i) {
        const QString place = QStringLiteral("%1:%2:%3")
                                  .arg(file, QString::number(positions[i].line),
                                       QString::number(positions[i].column));
        print(place, findings[i], findings[i].text);
    }
}

void FindingPrinter::printWithPaths(const Findings &findings)
{
    for (const Finding &finding : findings) {
        const QString path = valuePathToText(finding.path);
        print(finding.file, finding,
              path.isEmpty() ? finding.text : path + QLatin1String(": ") + finding.text);
    }
}

void FindingPrinter::print(const QString &place, const Finding &finding, const QString &text)
{
    const bool isError = finding.severity == Severity::Error;
    ++(isError ? m_errors : m_warnings);
    const QString start = m_terminal.styled(printable(place) + QLatin1Char(':'), Style::Bold);
    const QString kind = isError ? m_terminal.styled(QStringLiteral("error:"), Style::Error)
                                 : m_terminal.styled(QStringLiteral("warning:"), Style::Warning);
    const QString code = m_terminal.styled(QStringLiteral("[%1]").arg(finding.code), Style::Dim);
    m_terminal.print(QStringList{start, kind, printable(text), code}.join(QLatin1Char(' ')));
    for (const QString &detail : finding.details)
        m_terminal.print(QLatin1String("    | ") + printable(detail));
}

QString FindingPrinter::summary() const
{
    const auto part = [](int count, const QString &noun) {
        return count == 0 ? QStringLiteral("no %1s").arg(noun) : counted(count, noun);
    };
    return part(m_errors, QStringLiteral("error")) + QStringLiteral(", ") +
           part(m_warnings, QStringLiteral("warning"));
}

} // namespace ZPPluginTool
