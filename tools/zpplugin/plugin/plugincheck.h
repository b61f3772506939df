#pragma once

#include "metadata/finding.h"
#include "plugin/probecommand.h"

#include <QPair>

namespace ZPPluginTool {

//! Looks at a plugin folder, or at one library, for what its author should know before shipping.
class PluginCheck
{
public:
    //! Checks at once; loading the plugin may take that many seconds.
    PluginCheck(const QString &path, int seconds);

    //! What the plugin is: labels and texts.
    const QVector<QPair<QString, QString>> &passport() const { return m_passport; }
    const Findings &findings() const { return m_findings; }

private:
    bool isPluginFolder() const;
    void checkFolder();
    void checkMetaData();
    void checkSymbols(int seconds);
    void checkLoading();
    void checkLog();
    void checkContent();
    void fillPassport();
    void stamp(const char *label, const QString &text);
    void add(const Findings &findings, const QString &file);

    QString m_path;
    NARV::PROBE::ProbeResult m_probe;
    QString m_libraryPath;
    QVector<QPair<QString, QString>> m_passport;
    Findings m_findings;
    bool m_isExplained = false; //!< why the plugin does not load has been reported already
};

} // namespace ZPPluginTool
