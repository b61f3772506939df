// A plugin's metadata, as JSON text or, as in a library file, as CBOR.

#include "fuzztarget.h"

#include <NARV/INTERNAL/MetaDataChecker>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QCborValue>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>
#include <QUuid>

using namespace NARV::INTERNAL;
using Library = WidgetLibraryPluginMetaInformation;
using Widget = Library::WidgetMetaInformation;
using Field = Library::FieldMetaInformation;
using Utils = WidgetLibraryPluginUtils;

static QJsonObject parsed(const QByteArray &bytes)
{
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isNull())
        return document.object();
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(bytes, &error);
    return error.error == QCborError::NoError ? value.toJsonValue().toObject() : QJsonObject();
}

static bool matches(const QString &text, const char *pattern)
{
    const QRegularExpression expression(
        QRegularExpression::anchoredPattern(QLatin1String(pattern)));
    return expression.match(text).hasMatch();
}

static void checkBounds(const Widget &widget, const Field &field)
{
    static const QVariantList values{-1e300, -2147483647,          0, 0.5, 2147483647,
                                     1e300,  QStringLiteral("nan")};
    for (const QVariant &value : values) {
        const QVariant inside =
            Utils::fieldValueCheckBeforeSet(field.type(), value, field.id(), widget);
        const bool isNan = inside != inside;
        FUZZ_REQUIRE(isNan || !field.minimum().isValid() ||
                     inside.toDouble() >= field.minimum().toDouble());
        FUZZ_REQUIRE(isNan || !field.maximum().isValid() ||
                     inside.toDouble() <= field.maximum().toDouble());
    }
}

static void checkDefaultValue(const Field &field)
{
    QVariant value = field.defaultValue();
    const QString text = Utils::fieldValueToString(field.type(), value);
    const QVariant again = Utils::fieldValueFromString(field.type(), text);
    FUZZ_REQUIRE(Utils::fieldValueToString(field.type(), again) == text);

    const Library::FieldInfo info(true, true, false, field.type(), QMetaType::UnknownType);
    FUZZ_REQUIRE(info.convertToFieldType(value) && value == field.defaultValue());
    QVector<int> options;
    for (const QPair<int, QString> &option : field.options())
        options += option.first;
    FUZZ_REQUIRE(options.isEmpty() || options.contains(value.toInt()));
}

static void checkFont(const QFont &font)
{
    FUZZ_REQUIRE(font.family().startsWith(QLatin1String("Roboto"), Qt::CaseInsensitive));
    FUZZ_REQUIRE(font.pointSize() > 0);
}

static void checkField(const Widget &widget, const Field &field)
{
    FUZZ_REQUIRE(field.isValid() && matches(field.id(), "[a-zA-Z0-9_]+"));
    FUZZ_REQUIRE(!Library::fieldTypeToString(field.type()).isEmpty());
    FUZZ_REQUIRE(field.type() != Library::FieldType::Undefined);
    FUZZ_REQUIRE(field.type() != Library::FieldType::Option || !field.options().isEmpty());
    for (const Library::TagType type : field.tagAcceptedTypes())
        FUZZ_REQUIRE(!Library::tagTypeToString(type).isEmpty());
    FUZZ_REQUIRE(matches(field.requirements(), "[a-zA-Z0-9_ =<>+.&|-]*"));
    if (field.isMultiLanguageText())
        checkFont(field.defaultFont());
    else
        checkDefaultValue(field);
    if (field.type() == Library::FieldType::Font)
        checkFont(field.defaultValue().value<QFont>());
    checkBounds(widget, field);
}

static void checkWidget(const Widget &widget)
{
    FUZZ_REQUIRE(widget.isValid() && matches(widget.id(), "[a-zA-Z0-9_]+"));
    FUZZ_REQUIRE(widget.version().isValid());
    const QSizeF size = widget.defaultSize();
    FUZZ_REQUIRE(size.isValid() && qIsFinite(size.width()) && qIsFinite(size.height()));
    FUZZ_REQUIRE(!widget.display().isEmpty());
    const auto infos = widget.fieldInfo();
    for (const Field &field : widget.fields()) {
        FUZZ_REQUIRE(infos.value(field.id()).fieldType() == field.type());
        checkField(widget, field);
    }
}

static void checkTranslatableStrings(const Library &library, const QString &language)
{
    QSet<QPair<QString, QString>> seen;
    for (const Library::TranslationStringType &text : library.translatableStrings(language)) {
        const QPair<QString, QString> key(text.get(language, false), text.comment());
        FUZZ_REQUIRE(!key.first.trimmed().isEmpty());
        FUZZ_REQUIRE(!seen.contains(key));
        seen.insert(key);
    }
}

static void checkLibrary(const Library &library)
{
    FUZZ_REQUIRE(matches(library.id(), "[0-9a-fA-F]{8}-([0-9a-fA-F]{4}-){3}[0-9a-fA-F]{12}"));
    FUZZ_REQUIRE(!QUuid(library.id()).isNull());
    FUZZ_REQUIRE(library.version().isValid());
    const auto latest = library.widgetsLatestVersion();
    for (const Widget &widget : library.widgets()) {
        FUZZ_REQUIRE(latest.value(widget.id()).version() >= widget.version());
        checkWidget(widget);
    }
    checkTranslatableStrings(library, library.defaultLanguage());
    checkTranslatableStrings(library, QStringLiteral("it-IT"));
}

//! What the loader's reader is to log of the fault at which it stops.
static QStringList expectedLog(const MetaDataProblem &problem)
{
    static const QRegularExpression widget(QStringLiteral("^MetaData\\.widgets\\[(\\d+)\\]"));
    QStringList log;
    if (!problem.message.isEmpty())
        log.append(problem.message);
    const QRegularExpressionMatch match = widget.match(problem.path);
    if (match.hasMatch())
        log.append(QStringLiteral("An error occurred reading the widget at index ") +
                   match.captured(1));
    return log;
}

static void checkProblems(int code, const QVector<MetaDataProblem> &first,
                          const QVector<MetaDataProblem> &all)
{
    FUZZ_REQUIRE(first.size() == 1 && first[0].code == code);
    FUZZ_REQUIRE(first[0].code == all[0].code && first[0].path == all[0].path &&
                 first[0].message == all[0].message);
    for (const MetaDataProblem &problem : all) {
        FUZZ_REQUIRE(qstrcmp(Utils::errorToString(problem.code), "error code undefined") != 0);
        FUZZ_REQUIRE(problem.path.startsWith(QLatin1String("MetaData")));
    }
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QJsonObject metaData = parsed(fuzzBytes(data, size));
    FuzzLog log(QStringLiteral("%{MESSAGE}"));
    Library library;
    const int code = Utils::metaInformationFromMetaData(metaData, library);
    const QStringList readerLog = std::exchange(log.texts, {});
    const QVector<MetaDataProblem> first = MetaDataChecker::firstProblem(metaData);
    const QVector<MetaDataProblem> all = MetaDataChecker::allProblems(metaData);

    FUZZ_REQUIRE(log.texts.isEmpty());
    FUZZ_REQUIRE(first.isEmpty() == !code && all.isEmpty() == !code);
    FUZZ_REQUIRE(readerLog == (code ? expectedLog(first[0]) : QStringList()));
    FUZZ_REQUIRE(!code || library.widgets().isEmpty());
    if (code)
        checkProblems(code, first, all);
    else
        checkLibrary(library);
    return 0;
}
