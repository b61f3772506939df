#include "metadata/metadatafindings.h"

#include "metadata/jsonscan.h"
#include "metadata/metadatahints.h"
#include "metadata/metadatawarnings.h"
#include "metadata/textposition.h"

#include <NARV/INTERNAL/MetaDataChecker>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QJsonDocument>

#include <algorithm>

namespace ZPPluginTool {

using NARV::INTERNAL::MetaDataChecker;
using NARV::INTERNAL::MetaDataProblem;
using NARV::INTERNAL::WidgetLibraryPluginUtils;

static const QLatin1String metaDataKey("MetaData");

static Finding findingAt(qint64 offset, Severity severity, const char *code, const QString &text)
{
    Finding result(severity, code, text);
    result.offset = offset;
    return result;
}

static Finding fromProblem(const MetaDataProblem &problem)
{
    Finding result;
    result.code = QString::number(problem.code);
    result.path = valuePathFromText(problem.path).mid(1); // without "MetaData"
    result.text = QLatin1String(WidgetLibraryPluginUtils::errorToString(problem.code));
    const QString hint = hintForMetaDataError(problem.code);
    if (!hint.isEmpty())
        result.text += QStringLiteral(": ") + hint;
    return result;
}

Findings metaDataFindings(const QJsonObject &libraryMetaData)
{
    Findings result;
    const QVector<MetaDataProblem> problems = MetaDataChecker::allProblems(libraryMetaData);
    for (const MetaDataProblem &problem : problems)
        result.append(fromProblem(problem));
    return result + metaDataWarnings(libraryMetaData.value(metaDataKey).toObject());
}

//! Finds where in the text the findings are, and adds what is wrong with the text itself.
static void scanText(const QByteArray &json, JsonScan &scan, Findings &findings)
{
    QVector<int> wanted;
    for (const Finding &entry : qAsConst(findings))
        wanted.append(scan.want(entry.path));
    const JsonSyntaxError error = scan.run(json);
    for (int i = 0; i < findings.size(); ++i) {
        const bool atKey = findings[i].atKey;
        findings[i].offset = atKey ? scan.keyOffset(wanted[i]) : scan.valueOffset(wanted[i]);
    }
    if (!error.message.isEmpty())
        findings.append(
            findingAt(error.offset, Severity::Warning, "json",
                      QStringLiteral("Qt reads this, but it is not valid JSON: ") + error.message));
}

static void addDuplicateKeys(const QByteArray &json, const JsonScan &scan, Findings &findings)
{
    QVector<qint64> firstOffsets;
    for (const DuplicateKey &duplicate : scan.duplicateKeys())
        firstOffsets.append(duplicate.firstOffset);
    const QVector<TextPosition> firstPositions = textPositions(json, firstOffsets);
    for (int i = 0; i < firstPositions.size(); ++i) {
        const DuplicateKey &duplicate = scan.duplicateKeys()[i];
        findings.append(
            findingAt(duplicate.offset, Severity::Error, "duplicate-key",
                      QStringLiteral("duplicate key \"%1\", the one in line %2 is lost")
                          .arg(duplicate.key, QString::number(firstPositions[i].line))));
    }
}

//! The one fault of a text that Qt, and with it the build of a plugin, can not read.
static Finding syntaxError(const QByteArray &json, const QJsonParseError &qtError)
{
    JsonScan scan;
    const JsonSyntaxError error = scan.run(json); // tells better where and why
    if (error.message.isEmpty())
        return findingAt(qtError.offset, Severity::Error, "json", qtError.errorString());
    return findingAt(error.offset, Severity::Error, "json", error.message);
}

Findings metaDataFileFindings(const QByteArray &json)
{
    QJsonParseError error = {};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return {syntaxError(json, error)};
    if (!document.isObject())
        return {findingAt(0, Severity::Error, "json",
                          QStringLiteral("an object is needed: { \"id\": ..., \"name\": ... }"))};

    Findings findings = metaDataFindings({{metaDataKey, document.object()}});
    JsonScan scan;
    scanText(json, scan, findings);
    addDuplicateKeys(json, scan, findings);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.offset < b.offset; });
    return findings;
}

} // namespace ZPPluginTool
