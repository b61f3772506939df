#include "plugincheck.h"

#include "contentfindings.h"
#include "descriptionjson.h"
#include "libraryfile.h"
#include "metadatafindings.h"
#include "unresolvedsymbols.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

namespace ZPPluginTool {

using Key = QLatin1String;
using NARV::INTERNAL::PluginPlatform;

PluginCheck::PluginCheck(const QString &path, int seconds)
    : m_probe(Probe({path, ownLanguage, seconds, true}).run())
    , m_libraryPath(m_probe.values.value(Key("libraryPath")).toString())
{
    fillPassport();
    if (QFileInfo(path).isDir())
        checkFolder(path);
    checkMetaData();
    checkSymbols(seconds);
    checkLoading();
    checkContent();
}

void PluginCheck::add(const Findings &findings, const QString &file)
{
    for (Finding finding : findings) {
        finding.file = QDir::current().relativeFilePath(file);
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
    return QStringLiteral("%1.%2.%3, %4 build")
        .arg(QString::number(version >> 16), QString::number(version >> 8 & 0xff),
             QString::number(version & 0xff),
             isDebug ? QStringLiteral("debug") : QStringLiteral("release"));
}

void PluginCheck::fillPassport()
{
    const QJsonObject metaData = m_probe.values.value(Key("metaData")).toObject();
    const QJsonObject description = m_probe.values.value(Key("description")).toObject();
    stamp("plugin", description.value(Key("name")).toString());
    stamp("version", description.value(Key("version")).toString());
    stamp("id", metaData.value(Key("MetaData")).toObject().value(Key("id")).toString());
    stamp("library", m_libraryPath);
    stamp("machine", LibraryFile::read(m_libraryPath).kind.text());
    stamp("built with Qt", qtText(metaData));
    stamp("interface", metaData.value(Key("IID")).toString());
    if (description.isEmpty())
        return;
    stamp("widgets", QString::number(description.value(Key("widgets")).toArray().size()));
    stamp("loaded in", QStringLiteral("%1 ms").arg(
                           m_probe.values.value(Key("loadingTimeMs")).toDouble(), 0, 'f', 1));
}

//! The required platforms, and the one that this program runs on.
static QVector<PluginPlatform> platformsToCheck()
{
    QVector<PluginPlatform> platforms = PluginPlatform::required();
    const auto isRunning = [](const PluginPlatform &platform) {
        const QString id;
        return platform.libraryPath(id, id) == PluginPlatform::running().libraryPath(id, id);
    };
    if (std::none_of(platforms.cbegin(), platforms.cend(), isRunning))
        platforms.append(PluginPlatform::running());
    return platforms;
}

static QString faultOnPlatform(const QString &path, const PluginPlatform &platform)
{
    const LibraryFile file = LibraryFile::read(path);
    const LibraryKind needed = libraryKindOf(platform);
    if (!file.fault.isEmpty() || file.kind == needed)
        return file.fault;
    return QStringLiteral("built for another machine: it is %1, its folder is for %2")
        .arg(file.kind.text(), needed.text());
}

void PluginCheck::checkFolder(const QString &folder)
{
    QStringList present;
    QStringList missing;
    const QDir dir(QDir(folder).absolutePath());
    for (const PluginPlatform &platform : platformsToCheck()) {
        const QString path = platform.libraryPath(dir.path(), dir.dirName());
        const QString name = QStringLiteral("%1/%2").arg(QLatin1String(platform.system),
                                                         QLatin1String(platform.machine));
        const bool isThere = QFileInfo(path).isFile();
        (isThere ? present : missing) += name;
        const QString fault = isThere ? faultOnPlatform(path, platform) : QString();
        if (!fault.isEmpty())
            add({Finding(Severity::Error, "architecture", fault)}, path);
    }
    stamp("platforms", present.isEmpty() ? QStringLiteral("none") : present.join(Key(", ")));
    if (!missing.isEmpty())
        add({Finding(Severity::Warning, "platform",
                     QStringLiteral("no library for %1").arg(missing.join(Key(", "))))},
            folder);
}

void PluginCheck::checkMetaData()
{
    const QJsonObject metaData = m_probe.values.value(Key("metaData")).toObject();
    if (!metaData.contains(Key("MetaData")))
        return;
    const Findings findings = metaDataFindings(metaData);
    m_isExplained = m_probe.failureCode == Key("load") && !findings.isEmpty()
        && findings.first().text.startsWith(m_probe.failure);
    add(findings, m_libraryPath);
}

void PluginCheck::checkSymbols(int seconds)
{
    if (!LibraryFile::read(m_libraryPath).whyNotHere().isEmpty())
        return;
    for (const QString &symbol : unresolvedSymbols(m_libraryPath, seconds)) {
        add({Finding(Severity::Error, "symbol", QStringLiteral("unresolved symbol: ") + symbol)},
            m_libraryPath);
        m_isExplained |= m_probe.failure.contains(symbol);
    }
}

void PluginCheck::checkLoading()
{
    if (m_probe.failure.isEmpty() || m_isExplained)
        return;
    Finding finding;
    finding.code = m_probe.failureCode;
    finding.text = m_probe.failure;
    if (m_probe.failureCode != Key("load"))
        finding.details = m_probe.lastWords;
    add({finding}, m_libraryPath);
}

void PluginCheck::checkContent()
{
    const QJsonObject &values = m_probe.values;
    if (values.contains(Key("registrations")))
        add(registrationFindings(values.value(Key("description"))[Key("widgets")].toArray(),
                                 values.value(Key("registrations")).toArray()),
            m_libraryPath);
    add(translationFindings(values.value(Key("translations")).toObject()), m_libraryPath);
}

} // namespace ZPPluginTool
