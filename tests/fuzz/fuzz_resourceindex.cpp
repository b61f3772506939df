// Reading the index of the editor's resources, and writing what was read.

#include "fuzztarget.h"
#include "resourceindexaccess.h"

#include <QRegularExpression>
#include <QTemporaryDir>

namespace NARV::INTERNAL {

static bool operator==(const PluginLoader::ExtraResourceData &a,
                       const PluginLoader::ExtraResourceData &b)
{
    return a.modification == b.modification && a.languageId == b.languageId &&
           a.libraryVersion == b.libraryVersion;
}

} // namespace NARV::INTERNAL

static void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    FUZZ_REQUIRE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

//! That an id is safe as the name of a folder, and the rest is what an index may hold.
static void checkEntries(const ResourceIndex &index)
{
    static const QRegularExpression id(
        QStringLiteral("\\A(\\{)?[0-9a-fA-F]{8}(-[0-9a-fA-F]{4}){3}-[0-9a-fA-F]{12}(?(1)\\})\\z"));
    static const QRegularExpression version(QStringLiteral("\\A\\d{1,9}(\\.\\d{1,9}){2}\\z"));
    for (auto it = index.cbegin(); it != index.cend(); ++it) {
        FUZZ_REQUIRE(id.match(it.key()).hasMatch());
        FUZZ_REQUIRE(it->modification.isValid());
        FUZZ_REQUIRE(version.match(it->libraryVersion).hasMatch());
    }
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("index.json"));
    write(path, fuzzBytes(data, size));

    FuzzLog log(QStringLiteral("%{CATEGORY} %{MESSAGE}"));
    const ResourceIndex before{{QStringLiteral("before"), {}}};
    ResourceIndex index = before;
    const bool ok = readResourceIndex(path, index);
    FUZZ_REQUIRE(log.texts.size() == (ok ? 0 : 1));
    if (!ok) {
        FUZZ_REQUIRE(log.texts[0].startsWith(QLatin1String("RESOURCES_GENERATION ")));
        FUZZ_REQUIRE(index == before);
        return 0;
    }
    checkEntries(index);
    ResourceIndex again;
    FUZZ_REQUIRE(writeResourceIndex(path, index) && readResourceIndex(path, again));
    FUZZ_REQUIRE(again == index);
    return 0;
}
