// Importing a translation file, compared with the same done in the plainest way.

#include "fuzztarget.h"

#include <NARV/INTERNAL/PluginUtils>

#include <QTemporaryFile>
#include <QTextCodec>

#include <algorithm>

using NARV::INTERNAL::PluginUtils;
using Text = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;
using Texts = QList<Text>;

static const QString english = QStringLiteral("en-US");
static const QString italian = QStringLiteral("it-IT");

static QString decoded(const QByteArray &content)
{
    QTextCodec *utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec *codec = QTextCodec::codecForUtfText(content, utf8);
    return fuzzText(codec == utf8 ? content : codec->toUnicode(content).toUtf8(), false);
}

static QStringList fieldsOf(const QString &line)
{
    QStringList fields{QString()};
    bool isInQuotes = false;
    QChar previous;
    for (const QChar c : line) {
        if (c == QLatin1Char(',') && !isInQuotes) {
            fields.append(QString());
        } else if (c == QLatin1Char('"')) {
            isInQuotes = !isInQuotes;
            if (previous == c)
                fields.last() += c;
        } else {
            fields.last() += c;
        }
        previous = c;
    }
    return fields;
}

//! The fields of the lines behind the first one.
static QVector<QStringList> rowsOf(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    const QString last = lines.takeLast();
    for (QString &line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    if (!last.isEmpty())
        lines.append(last);
    QVector<QStringList> rows;
    for (const QString &line : lines.mid(1))
        rows.append(fieldsOf(line));
    return rows;
}

static bool importRow(const QStringList &row, Texts &list, const QString &language, bool addMissing)
{
    if (row.size() != 3)
        return false;
    const auto known = std::find_if(list.begin(), list.end(), [&](const Text &text) {
        return text.get(english, false) == row[0] && text.comment() == row[1];
    });
    if (known != list.end()) {
        const QString old = known->get(language, false);
        known->set(language, row[2]);
        return old.isEmpty() || old == row[2];
    }
    if (!addMissing)
        return true;
    Text text; // falls back on English
    text.set(language, row[2]);
    text.set(english, row[0]);
    text.setComment(row[1]);
    list.append(text);
    return true;
}

static bool importPlainly(const QVector<QStringList> &rows, Texts &list, const QString &language,
                          bool addMissing)
{
    Texts texts = list;
    for (const QStringList &row : rows) {
        if (!importRow(row, texts, language, addMissing))
            return false;
    }
    list = texts;
    return true;
}

static Text text(const char *source, const char *comment, const char *translation)
{
    Text result;
    result.set(english, QString::fromLatin1(source));
    if (translation)
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

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray content = fuzzBytes(data, size);
    const QString path = writtenToFile(content);
    const QVector<QStringList> rows = rowsOf(decoded(content));
    const Texts known{text("On", "lamp", nullptr), text("Off", "", "Spento"), text("", "c", ""),
                      text("", "c", nullptr)};
    for (const QString &language : {italian, english}) {
        for (const bool addMissing : {false, true}) {
            Texts list = known;
            Texts plain = known;
            for (int time = 0; time < 2; ++time) {
                const bool ok =
                    PluginUtils::importTranslationFile(path, list, english, language, addMissing);
                FUZZ_REQUIRE(ok == importPlainly(rows, plain, language, addMissing));
                FUZZ_REQUIRE(list == plain);
            }
        }
    }
    return 0;
}
