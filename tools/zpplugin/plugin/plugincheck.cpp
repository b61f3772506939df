#include "plugin/plugincheck.h"

#include "metadata/metadatafindings.h"
#include "plugin/contentfindings.h"
#include "plugin/descriptionjson.h"
#include "plugin/unresolvedsymbols.h"
#include "probe/libraryfile.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QUuid>

namespace ZPPluginTool {

using Key = QLatin1String;
using NARV::INTERNAL::PluginPlatform;
using NARV::PROBE::LibraryFile;

PluginCheck::PluginCheck(const QString &path, int seconds)
    : m_path(path)
    , m_probe(inspectPlugin(path, ownLanguage, seconds))
    , m_libraryPath(m_probe.values.value(Key("libraryPath")).toString())
{
    fillPassport();
    if (isPluginFolder())
        checkFolder();
    checkMetaData();
    checkSymbols(seconds);
    checkLoading();
    checkLog();
    checkContent();
}

//! The path as short as it gets.
static QString shortPath(const QString &path)
{
    const QString relative = QDir::current().relativeFilePath(path);
    return relative.startsWith(QLatin1String("..")) ? path : relative;
}

void PluginCheck::add(const Findings &findings, const QString &file)
{
    for (Finding finding : findings) {
        finding.file = shortPath(file);
        m_findings.append(finding);
    }
}

void PluginCheck::stamp(const char *label, const QString &text)
{
    if (!text.isEmpty())
        m_passport.append({QLatin1String(label), text});
}

static QString qtText(const QJsonObject &metaData)
{
    const int version = metaData.value(Key("version")).toInt();
    if (version == 0)
        return {};
    const bool isDebug = metaData.value(Key("debug")).toBool();
    // A library does not tell the third number.
    return QStringLiteral("%1.%2, %3 build")
        .arg(QString::number(version >> 16), QString::number(version >> 8 & 0xff),
             isDebug ? QStringLiteral("debug") : QStringLiteral("release"));
}

void PluginCheck::fillPassport()
{
    const QJsonObject metaData = m_probe.values.value(Key("metaData")).toObject();
    const QJsonObject description = m_probe.values.value(Key("description")).toObject();
    stamp("plugin", description.value(Key("name")).toString());
    stamp("version", description.value(Key("version")).toString());
    stamp("id", metaData.value(Key("MetaData")).toObject().value(Key("id")).toString());
    stamp("library", QFileInfo(m_libraryPath).isFile() ? shortPath(m_libraryPath) : QString());
    stamp("machine", LibraryFile::read(m_libraryPath).kind.text());
    stamp("built with Qt", qtText(metaData));
    stamp("interface", metaData.value(Key("IID")).toString());
    if (description.isEmpty())
        return;
    stamp("languages", languagesOf(description).join(Key(", ")));
    stamp("widgets", QString::number(description.value(Key("widgets")).toArray().size()));
    stamp("loaded in", QStringLiteral("%1 ms").arg(
                           m_probe.values.value(Key("loadingTimeMs")).toDouble(), 0, 'f', 1));
}

static QString nameOf(const PluginPlatform &platform)
{
    return QStringLiteral("%1/%2").arg(QLatin1String(platform.system),
                                       QLatin1String(platform.machine));
}

static bool isRequired(const PluginPlatform &platform)
{
    const QVector<PluginPlatform> &required = PluginPlatform::required();
    return std::any_of(required.cbegin(), required.cend(), [&](const PluginPlatform &other) {
        return nameOf(other) == nameOf(platform);
    });
}

static QVector<PluginPlatform> platformsToCheck()
{
    QVector<PluginPlatform> platforms = PluginPlatform::required();
    if (!isRequired(PluginPlatform::running()))
        platforms.append(PluginPlatform::running());
    return platforms;
}

bool PluginCheck::isPluginFolder() const
{
    const QDir dir(m_path);
    return dir.exists() && !QUuid(QDir(dir.absolutePath()).dirName()).isNull();
}

void PluginCheck::checkFolder()
{
    QStringList present;
    QStringList missing;
    const QDir dir(QDir(m_path).absolutePath());
    for (const PluginPlatform &platform : platformsToCheck()) {
        const QString path = platform.libraryPath(dir.path(), dir.dirName());
        const bool isThere = QFileInfo(path).isFile();
        if (isThere)
            present += nameOf(platform);
        else if (isRequired(platform))
            missing += nameOf(platform);
        const QString fault = isThere ? LibraryFile::read(path).whyNotFor(platform) : QString();
        if (!fault.isEmpty())
            add({Finding(Severity::Error, "architecture", fault)}, path);
        m_isExplained |= !fault.isEmpty() && fault == m_probe.failure;
    }
    stamp("platforms", present.isEmpty() ? QStringLiteral("none") : present.join(Key(", ")));
    if (!missing.isEmpty())
        add({Finding(present.isEmpty() ? Severity::Error : Severity::Warning, "platform",
                     QStringLiteral("no library for %1").arg(missing.join(Key(", "))))},
            m_path);
}

void PluginCheck::checkMetaData()
{
    const QJsonObject metaData = m_probe.values.value(Key("metaData")).toObject();
    if (!metaData.contains(Key("MetaData")))
        return;
    const Findings findings = metaDataFindings(metaData);
    m_isExplained |= m_probe.failureCode == Key("load") && !findings.isEmpty() &&
                     findings.first().text.startsWith(m_probe.failure);
    add(findings, m_path);
}

void PluginCheck::checkSymbols(int seconds)
{
    if (!LibraryFile::read(m_libraryPath).whyNotFor(PluginPlatform::running()).isEmpty())
        return;
    for (const QString &symbol : unresolvedSymbols(m_libraryPath, seconds)) {
        add({Finding(Severity::Error, "symbol", QStringLiteral("unresolved symbol: ") + symbol)},
            m_path);
        m_isExplained |= m_probe.failure.contains(QStringLiteral("undefined symbol: ") + symbol);
    }
}

void PluginCheck::checkLoading()
{
    if (m_probe.failure.isEmpty() || m_isExplained)
        return;
    Finding finding;
    finding.code = m_probe.failureCode;
    finding.text = m_probe.failure;
    if (m_probe.failureCode != Key("architecture")) // then no code has run
        finding.details = m_probe.lastWords;
    if (QFileInfo(m_path).isDir() && !isPluginFolder())
        finding.details = QStringList{
            QStringLiteral("A plugin folder is named by the plugin's id. For a folder of plugins, "
                           "see 'zpplugin list --help'.")};
    if (finding.code == Key("platform")) {
        finding.severity = Severity::Warning;
        finding.text += QLatin1String(": the plugin's code was not checked");
    }
    add({finding}, m_path);
}

void PluginCheck::checkLog()
{
    for (const QString &text : qAsConst(m_probe.errors))
        add({Finding(Severity::Error, "log", text)}, m_path);
}

void PluginCheck::checkContent()
{
    const QJsonObject &values = m_probe.values;
    if (values.contains(Key("registrations")))
        add(registrationFindings(values.value(Key("description"))[Key("widgets")].toArray(),
                                 values.value(Key("registrations")).toArray()),
            m_path);
    add(translationFindings(values.value(Key("translations")).toObject()), m_path);
}

} // namespace ZPPluginTool
