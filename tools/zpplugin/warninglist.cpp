#include "warninglist.h"

namespace ZPPluginTool {

void WarningList::add(const char *code, const QString &text)
{
    Finding finding;
    finding.severity = Severity::Warning;
    finding.text = text;
    finding.code = QLatin1String(code);
    finding.path = m_path;
    m_findings.append(finding);
}

void WarningList::addAtKey(const QString &key, const char *code, const QString &text)
{
    addAt(key, code, text);
    m_findings.last().atKey = true;
}

void WarningList::addAt(const PathStep &step, const char *code, const QString &text)
{
    const Step into(*this, step);
    add(code, text);
}

} // namespace ZPPluginTool
