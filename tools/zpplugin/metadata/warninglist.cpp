#include "metadata/warninglist.h"

namespace ZPPluginTool {

void WarningList::add(const char *code, const QString &text)
{
    m_findings.append(Finding(Severity::Warning, code, text));
    m_findings.last().path = m_path;
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
