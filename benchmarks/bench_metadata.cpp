// From metadata text to description records, and translations, beside QJsonDocument.

#include "metadatagenerator.h"
#include "ratioreporter.h"

#include "core/translationtable_p.h"

#include <NARV/INTERNAL/PluginUtils>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace NARV::INTERNAL;
using Text = PluginMetaInformation::TranslationStringType;

static constexpr int fieldsPerWidget = 40;
static const QString english = QStringLiteral("en-US");

static QByteArray metaDataText(const benchmark::State &state)
{
    return generateMetaData("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11",
                            int(state.range(0)) / fieldsPerWidget, fieldsPerWidget);
}

static void fromJson(benchmark::State &state)
{
    const QByteArray text = metaDataText(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(text));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(fromJson)->Arg(800)->Arg(8000);

static void records(benchmark::State &state)
{
    const QJsonObject object = QJsonDocument::fromJson(metaDataText(state)).object();
    for (auto _ : state) {
        WidgetLibraryPluginMetaInformation info;
        if (WidgetLibraryPluginUtils::metaInformationFromMetaData(object, info))
            state.SkipWithError("the metadata has a fault");
        benchmark::DoNotOptimize(info.widgets().size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(records)->Arg(800)->Arg(8000);

static void translatableStrings(benchmark::State &state)
{
    const QJsonObject object = QJsonDocument::fromJson(metaDataText(state)).object();
    WidgetLibraryPluginMetaInformation info;
    WidgetLibraryPluginUtils::metaInformationFromMetaData(object, info);
    for (auto _ : state)
        benchmark::DoNotOptimize(info.translatableStrings(english).size());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(translatableStrings)->Arg(800)->Arg(8000);

namespace {

//! Translation files of a number of rows in ten languages.
class TranslationFiles
{
public:
    static constexpr int languages = 10;

    explicit TranslationFiles(int rows)
    {
        for (int i = 0; i < languages; ++i) {
            QFile file(path(i));
            const QByteArray content = generateTranslation("l" + QByteArray::number(i), rows);
            if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
                qFatal("cannot write %s", qPrintable(file.fileName()));
        }
    }

    QString path(int language) const
    {
        return m_dir.filePath(code(language) + QStringLiteral(".csv"));
    }
    static QString code(int language)
    {
        return QStringLiteral("l%1-XX").arg(QChar('a' + language));
    }

private:
    QTemporaryDir m_dir;
};

} // namespace

//! Every translatable text of the metadata, in the order in which the reader meets them.
static QVector<QPair<QString, QString>> textsOf(const QJsonValue &value)
{
    QVector<QPair<QString, QString>> texts;
    const QJsonArray widgets = value.toObject().value(QLatin1String("widgets")).toArray();
    for (const QJsonValue &widget : widgets) {
        const QJsonArray fields = widget.toObject().value(QLatin1String("fields")).toArray();
        for (const QJsonValue &item : fields) {
            const QJsonObject field = item.toObject();
            for (const char *key :
                 {"display", "description", "group", "displayFontFamily", "displayFontSize",
                  "displayFontBold", "displayFontStyle", "displayFontUnderline"}) {
                const QJsonValue text = field.value(QLatin1String(key));
                if (text.isString())
                    texts.append({text.toString(), QString()});
                else if (text.isArray())
                    texts.append({text[0].toString(), text[1].toString()});
            }
        }
    }
    return texts;
}

static void matchTranslations(benchmark::State &state)
{
    static constexpr int rows = 20000;
    const TranslationFiles files(rows);
    TranslationTable table(english);
    for (int i = 0; i < TranslationFiles::languages; ++i)
        table.importFile(files.path(i), TranslationFiles::code(i), true);
    const auto texts = textsOf(
        QJsonDocument::fromJson(metaDataText(state)).object().value(QLatin1String("MetaData")));
    int found = 0;
    for (auto _ : state) {
        for (const auto &[text, comment] : texts) {
            if (const Text *entry = table.find(text, comment)) {
                benchmark::DoNotOptimize(Text(*entry));
                ++found;
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["texts"] = texts.size();
    state.counters["found"] = found / double(state.iterations());
}
BENCHMARK(matchTranslations)->Arg(8000);

//! What any reader of the file has to do: read it and look at every byte.
static void scanTranslation(benchmark::State &state)
{
    const TranslationFiles files(int(state.range(0)));
    for (auto _ : state) {
        QFile file(files.path(0));
        if (!file.open(QIODevice::ReadOnly))
            state.SkipWithError("cannot open the file");
        const QByteArray content = file.readAll();
        int fields = 0;
        bool isInQuotes = false;
        for (const char c : content) {
            isInQuotes ^= c == '"';
            fields += (c == ',' && !isInQuotes) || c == '\n';
        }
        benchmark::DoNotOptimize(fields);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(scanTranslation)->Arg(20000);

static void importTranslation(benchmark::State &state)
{
    const TranslationFiles files(int(state.range(0)));
    for (auto _ : state) {
        QList<Text> list;
        if (!PluginUtils::importTranslationFile(files.path(0), list, english,
                                                TranslationFiles::code(0), true)) {
            state.SkipWithError("the file has a fault");
        }
        benchmark::DoNotOptimize(list.size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(importTranslation)->Arg(1000)->Arg(20000);

int main(int argc, char **argv)
{
    return runBenchmarks(
        argc, argv,
        {
            {"metadata to records / fromJson, 800 fields", "records/800", "fromJson/800", 1.7},
            {"metadata to records / fromJson, 8000 fields", "records/8000", "fromJson/8000", 2.5},
            {"matching every text / fromJson, 8000 fields", "matchTranslations/8000",
             "fromJson/8000", 0.2},
            {"import, a row of 20000 / a row of 1000", "importTranslation/20000",
             "importTranslation/1000", 1.6},
            {"import / plain scan of the bytes", "importTranslation/20000", "scanTranslation/20000",
             5},
            {"translatableStrings, a field of 8000 / a field of 800", "translatableStrings/8000",
             "translatableStrings/800", 1.6},
        });
}
