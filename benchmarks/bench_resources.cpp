// Writing the editor's documents, beside Qt's writer that has nothing to think about, and finding
// that nothing is to be written, beside the files that have to be looked at.

#include "metadatagenerator.h"
#include "pluginsfolder.h"
#include "ratioreporter.h"

#include "loader/resourcedocuments_p.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QDateTime>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <functional>

using namespace NARV::INTERNAL;
using Utils = WidgetLibraryPluginUtils;

static constexpr int fieldsPerWidget = 40;
static const QString english = QStringLiteral("en-US");

static WidgetLibraryPluginMetaInformation libraryOf(int fields)
{
    WidgetLibraryPluginMetaInformation info;
    const QByteArray json = generateMetaData("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11",
                                             fields / fieldsPerWidget, fieldsPerWidget);
    if (Utils::metaInformationFromMetaData(QJsonDocument::fromJson(json).object(), info))
        qFatal("the metadata has a fault");
    return info;
}

using Write = std::function<int(QXmlStreamWriter &)>;

static bool writeDirectly(QFileDevice &file, const Write &write)
{
    QXmlStreamWriter writer(&file);
    writer.setAutoFormatting(true);
    return write(writer) == 0 && !writer.hasError() && file.flush();
}

static void writeFile(const QString &path, const Write &write,
                      bool (*writeTo)(QFileDevice &, const Write &))
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !writeTo(file, write))
        qFatal("cannot write %s", qPrintable(path));
}

static QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

//! The paths of the three documents.
static QStringList pathsIn(const QTemporaryDir &folder)
{
    return {folder.filePath(QStringLiteral("properties")),
            folder.filePath(QStringLiteral("defaults")),
            folder.filePath(QStringLiteral("gallery"))};
}

static void writeDocuments(const WidgetLibraryPluginMetaInformation &info, const QStringList &paths)
{
    const Write writes[] = {
        [&](QXmlStreamWriter &writer) {
            writer.writeStartElement(QStringLiteral("defs"));
            const int code = Utils::studioPropertiesFromMetaInformation(info, writer, english);
            writer.writeEndElement();
            return code;
        },
        [&](QXmlStreamWriter &writer) {
            return Utils::studioDefaultsFromMetaInformation(
                info, writer, english, QStringLiteral("page%1"), QStringLiteral("project%1"));
        },
        [&](QXmlStreamWriter &writer) {
            return Utils::studioGalleryFromMetaInformation(info, writer, english,
                                                           info.pageWidgetsGalleryGroups().first(),
                                                           Utils::GalleryType::Page);
        }};
    for (int i = 0; i < paths.size(); ++i)
        writeFile(paths[i], writes[i], writeXmlDocument);
}

static void documents(benchmark::State &state)
{
    const auto info = libraryOf(int(state.range(0)));
    const QTemporaryDir folder;
    for (auto _ : state)
        writeDocuments(info, pathsIn(folder));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(documents)->Arg(8000)->Arg(80000);

namespace {

//! One call of the writer.
struct Step
{
    enum Kind
    {
        Start,
        Attribute,
        Characters,
        End
    } kind;
    QString name;
    QString value;
};

} // namespace

//! The calls that write a document again, byte by byte.
static QVector<Step> stepsOf(const QByteArray &document)
{
    // No reader takes an attribute that is there twice.
    QXmlStreamReader reader(QByteArray(document).replace("attrib=\"tooltip\"", "twice=\"\""));
    QVector<Step> steps;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            steps.append({Step::Start, reader.name().toString(), {}});
            for (const QXmlStreamAttribute &attribute : reader.attributes()) {
                const bool isTwice = attribute.name() == QLatin1String("twice");
                steps.append({Step::Attribute,
                              isTwice ? QStringLiteral("attrib") : attribute.name().toString(),
                              isTwice ? QStringLiteral("tooltip") : attribute.value().toString()});
            }
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                steps.append({Step::Characters, {}, reader.text().toString()});
            break;
        case QXmlStreamReader::EndElement:
            if (reader.name() == QLatin1String("text") && steps.last().kind == Step::Attribute)
                steps.append({Step::Characters, {}, {}}); // which the reader does not tell of
            steps.append({Step::End, {}, {}});
            break;
        default:
            break;
        }
    }
    return steps;
}

static int writeSteps(const QVector<Step> &steps, QXmlStreamWriter &writer)
{
    for (const Step &step : steps) {
        switch (step.kind) {
        case Step::Start:
            writer.writeStartElement(step.name);
            break;
        case Step::Attribute:
            writer.writeAttribute(step.name, step.value);
            break;
        case Step::Characters:
            writer.writeCharacters(step.value);
            break;
        case Step::End:
            writer.writeEndElement();
            break;
        }
    }
    return 0;
}

static void flatArrays(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QTemporaryDir copies;
    const QStringList paths = pathsIn(folder);
    const QStringList copyPaths = pathsIn(copies);
    writeDocuments(libraryOf(int(state.range(0))), paths);
    QVector<QVector<Step>> steps;
    for (const QString &path : paths)
        steps.append(stepsOf(readFile(path)));
    for (auto _ : state) {
        for (int i = 0; i < paths.size(); ++i)
            writeFile(
                copyPaths[i],
                [&](QXmlStreamWriter &writer) { return writeSteps(steps[i], writer); },
                writeDirectly);
    }
    for (int i = 0; i < paths.size(); ++i) {
        if (readFile(paths[i]) != readFile(copyPaths[i]))
            state.SkipWithError("the documents differ");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(flatArrays)->Arg(8000);

static const PluginsFolder &plugins()
{
    static const PluginsFolder folder;
    return folder;
}

static void nothingToDo(benchmark::State &state)
{
    const QTemporaryDir out;
    PluginLoader loader;
    bool ok = loader.loadFromDir(plugins().path()) && loader.init() &&
              loader.generateStudioExtraResources(out.path(), english);
    for (auto _ : state)
        ok &= loader.generateStudioExtraResources(out.path(), english);
    if (!ok)
        state.SkipWithError("the resources were not generated");
}
BENCHMARK(nothingToDo);

//! Reads and writes the same index, and asks for the times that it tells of.
static void filesLookedAt(benchmark::State &state)
{
    const QTemporaryDir out;
    const QString path = out.filePath(QStringLiteral("index.json"));
    {
        PluginLoader loader;
        loader.loadFromDir(plugins().path());
        if (!loader.init() || !loader.generateStudioExtraResources(out.path(), english))
            state.SkipWithError("the resources were not generated");
    }
    for (auto _ : state) {
        const QJsonDocument index = QJsonDocument::fromJson(readFile(path));
        for (const QString &library : plugins().libraries())
            benchmark::DoNotOptimize(QFileInfo(library).lastModified());
        const QByteArray content = index.toJson();
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() ||
            !file.commit())
            state.SkipWithError("the index was not written");
    }
}
BENCHMARK(filesLookedAt);

int main(int argc, char **argv)
{
    return runBenchmarks(
        argc, argv,
        {
            {"three documents of 8000 fields / the same from flat arrays", "documents/8000",
             "flatArrays/8000", 1.3},
            {"three documents, a field of 80000 / a field of 8000", "documents/80000",
             "documents/8000", 1.2},
            {"a call with nothing to do / reading and writing the index, 50 times of files",
             "nothingToDo", "filesLookedAt", 3},
        });
}
