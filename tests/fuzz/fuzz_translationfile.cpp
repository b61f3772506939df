// Importing a translation file.

#include "fuzztarget.h"

#include <NARV/INTERNAL/PluginUtils>

#include <QTemporaryFile>

using NARV::INTERNAL::PluginUtils;
using Text = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;
using Texts = QList<Text>;

static const QString english = QStringLiteral("en-US");
static const QString italian = QStringLiteral("it-IT");

static Text text(const char *source, const char *comment, const char *translation)
{
    Text result;
    result.set(english, QString::fromLatin1(source));
    result.set(italian, QString::fromLatin1(translation));
    result.setComment(QString::fromLatin1(comment));
    return result;
}

static QString writtenToFile(const QByteArray &content)
{
    static QTemporaryFile file;
    const bool isWritten =
        file.open() && file.resize(0) && file.write(content) == content.size() && file.flush();
    FUZZ_REQUIRE(isWritten);
    file.close();
    return file.fileName();
}

//! That each entry is the one before, but for its translation, and each new one is the only one.
static void checkMerged(const Texts &before, const Texts &after)
{
    QSet<QPair<QString, QString>> sources;
    for (int i = 0; i < after.size(); ++i) {
        const QPair<QString, QString> source(after[i].get(english, false), after[i].comment());
        FUZZ_REQUIRE(i < before.size() ? source.first == before[i].get(english, false) &&
                                             source.second == before[i].comment()
                                       : !sources.contains(source));
        FUZZ_REQUIRE(i >= before.size() || before[i].get(italian, false).isEmpty() ||
                     after[i] == before[i]);
        sources.insert(source);
    }
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = writtenToFile(fuzzBytes(data, size));
    const Texts known{text("On", "lamp", ""), text("Off", "", "Spento"), text("", "c", ""),
                      text("", "c", "")};
    for (const bool addMissing : {false, true}) {
        Texts list = known;
        const bool ok =
            PluginUtils::importTranslationFile(path, list, english, italian, addMissing);
        FUZZ_REQUIRE(ok || list == known);
        FUZZ_REQUIRE(addMissing || list.size() == known.size());
        checkMerged(known, list);
        const Texts merged = list;
        PluginUtils::importTranslationFile(path, list, english, italian, addMissing);
        FUZZ_REQUIRE(list == merged); // the same again is no news

        list = known;
        if (!PluginUtils::importTranslationFile(path, list, english, english, addMissing))
            FUZZ_REQUIRE(list == known);
    }
    return 0;
}
