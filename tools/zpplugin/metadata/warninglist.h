#pragma once

#include "metadata/finding.h"

#include <QLatin1String>

namespace ZPPluginTool {

//! Collects warnings and knows where in the metadata the checks are.
class WarningList
{
public:
    //! Goes into a value, and back out at the end of the scope.
    class Step
    {
    public:
        Step(WarningList &list, const PathStep &step)
            : m_list(list)
        {
            m_list.m_path.append(step);
        }
        ~Step() { m_list.m_path.removeLast(); }

    private:
        Q_DISABLE_COPY(Step)
        WarningList &m_list;
    };

    //! Warns of the value where the checks are.
    void add(const char *code, const QString &text);
    //! Warns of a key of the object where the checks are.
    void addAtKey(const QString &key, const char *code, const QString &text);
    //! Warns of a value in the object or array where the checks are.
    void addAt(const PathStep &step, const char *code, const QString &text);

    const Findings &findings() const { return m_findings; }

private:
    ValuePath m_path;
    Findings m_findings;
};

} // namespace ZPPluginTool
