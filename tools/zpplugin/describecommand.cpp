#include "describecommand.h"

#include "output/descriptionprinter.h"
#include "plugin/descriptionjson.h"
#include "plugin/probecommand.h"
#include "terminal/text.h"

#include <NARV/INTERNAL/MetaDataChecker>

#include <QJsonDocument>

namespace ZPPluginTool {

const CommandHelp describeHelp = {
    "describe", "FOLDER|LIBRARY", "Show all that a plugin tells about itself and its widgets",
    R"(Loads the plugin in a plugin folder, or in a library file, and prints its description: the plugin,
its widgets and their fields, with the defaults filled in.

Texts are in the plugin's own language unless --language names another; where a translation is
missing they fall back to it. With --json and no language, every text is an object with all its
languages.

  zpplugin describe plugins/0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11
  zpplugin describe libdemo.so --language it-IT
  zpplugin describe libdemo.so --json | jq '.widgets[].id'

Of a library that can not be loaded here the description is printed as far as the file holds it,
without translations.

Exit code: 0 when the plugin loaded, 1 when it did not, 2 when the file is not there.)"};

static const QString jsonOption = QStringLiteral("json");

//! The description in the metadata of a library that could not be loaded; empty if it has faults.
static QJsonObject withoutLoading(const QJsonObject &metaData, const QString &language)
{
    NARV::INTERNAL::WidgetLibraryPluginMetaInformation info;
    const bool ok = NARV::INTERNAL::MetaDataChecker::allProblems(metaData, &info).isEmpty();
    return ok ? descriptionToJson(info, language) : QJsonObject();
}

static void note(const QString &text)
{
    Terminal(stderr).print(QLatin1String("zpplugin describe: ") + printable(text));
}

static int describe(const CommandLine &line)
{
    const QString chosen = line.language();
    const bool asJson = line.isSet(jsonOption);
    const QString language = chosen.isEmpty() && !asJson ? QString(ownLanguage) : chosen;
    const auto result = describePlugin(line.argument(), language, line.seconds());
    QJsonObject description = result.values.value(QLatin1String("description")).toObject();
    if (!result.failure.isEmpty())
        note(QStringLiteral("%1: %2").arg(line.argument(), result.failure));
    if (description.isEmpty())
        description =
            withoutLoading(result.values.value(QLatin1String("metaData")).toObject(), language);
    if (description.isEmpty())
        return HasFindings;

    const QStringList languages = languagesOf(description);
    if (!chosen.isEmpty() && !languages.contains(chosen))
        note(QStringLiteral("the plugin has no texts in %1, only in %2")
                 .arg(chosen, languages.join(QLatin1String(", "))));
    Terminal terminal(stdout);
    if (asJson)
        terminal.print(QString::fromUtf8(QJsonDocument(description).toJson().trimmed()));
    else
        printDescription(description, terminal);
    return terminal.finish(result.failure.isEmpty() ? Fine : HasFindings);
}

int runDescribe(const QStringList &arguments)
{
    CommandLine line(describeHelp);
    line.addOption({jsonOption, QStringLiteral("Print the description as JSON.")});
    line.addLanguageOption(QStringLiteral("Show the texts in this language, as in it-IT."));
    line.addTimeoutOption();
    if (const auto code = line.parse(arguments))
        return *code;
    if (const auto code = line.checkPath())
        return *code;
    return describe(line);
}

} // namespace ZPPluginTool
