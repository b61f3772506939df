// A plugin's metadata, as JSON text or, as in a library file, as CBOR.

#include "fuzztarget.h"

#include <NARV/INTERNAL/MetaDataChecker>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>
#include <NARV/LogHandler>

#include <QCborValue>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>
#include <QUuid>

#include <limits>

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
    static const QVariantList values{-1e300,
                                     std::numeric_limits<int>::min(),
                                     0,
                                     0.5,
                                     std::numeric_limits<int>::max(),
                                     1e300,
                                     QStringLiteral("nan")};
    for (const QVariant &value : values) {
        const QVariant inside =
            Utils::fieldValueCheckBeforeSet(field.type(), value, field.id(), widget);
        FUZZ_REQUIRE(!field.minimum().isValid() ||
                     inside.toDouble() >= field.minimum().toDouble() || inside != inside);
        FUZZ_REQUIRE(!field.maximum().isValid() ||
                     inside.toDouble() <= field.maximum().toDouble() || inside != inside);
    }
}

static void checkDefaultValue(const Field &field)
{
    QVariant value = field.defaultValue();
    const QString text = Utils::fieldValueToString(field.type(), value);
    const QVariant again = Utils::fieldValueFromString(field.type(), text);
    FUZZ_REQUIRE(Utils::fieldValueToString(field.type(), again) == text);

    const Library::FieldInfo info(true, true, false, field.type(), QMetaType::UnknownType);
    FUZZ_REQUIRE(info.convertToFieldType(value));
    FUZZ_REQUIRE(value == field.defaultValue());
    if (field.type() != Library::FieldType::Option)
        return;
    const auto &options = field.options();
    FUZZ_REQUIRE(
        std::any_of(options.begin(), options.end(), [&](const QPair<int, QString> &option) {
            return option.first == value.toInt();
        }));
}

static void checkFont(const QFont &font)
{
    FUZZ_REQUIRE(font.family().startsWith(QLatin1String("Roboto"), Qt::CaseInsensitive));
    FUZZ_REQUIRE(font.pointSize() > 0);
}

static void checkField(const Widget &widget, const Field &field)
{
    FUZZ_REQUIRE(field.isValid());
    FUZZ_REQUIRE(matches(field.id(), "[a-zA-Z0-9_]+"));
    const QString typeName = Library::fieldTypeToString(field.type());
    FUZZ_REQUIRE(Library::fieldTypeFromString(typeName) == field.type());
    FUZZ_REQUIRE(field.type() != Library::FieldType::Undefined);
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
    FUZZ_REQUIRE(widget.isValid());
    FUZZ_REQUIRE(matches(widget.id(), "[a-zA-Z0-9_]+"));
    FUZZ_REQUIRE(widget.version().isValid());
    FUZZ_REQUIRE(Library::VersionType(widget.version().version()) == widget.version());
    const QSizeF size = widget.defaultSize();
    FUZZ_REQUIRE(size.isValid() && qIsFinite(size.width()) && qIsFinite(size.height()));
    FUZZ_REQUIRE(!widget.display().isEmpty());
    const auto infos = widget.fieldInfo();
    for (auto it = widget.fields().begin(); it != widget.fields().end(); ++it) {
        FUZZ_REQUIRE(it.key() == it->id());
        FUZZ_REQUIRE(infos.value(it.key()).fieldType() == it->type());
        checkField(widget, *it);
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
    QSet<QString> ids;
    const auto latest = library.widgetsLatestVersion();
    for (auto it = library.widgets().begin(); it != library.widgets().end(); ++it) {
        FUZZ_REQUIRE(it.key() == qMakePair(it->id(), it->version().version()));
        FUZZ_REQUIRE(latest.value(it->id()).version() >= it->version());
        ids.insert(it->id());
        checkWidget(*it);
    }
    FUZZ_REQUIRE(latest.size() == ids.size());
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

static bool isSame(const MetaDataProblem &a, const MetaDataProblem &b)
{
    return a.code == b.code && a.path == b.path && a.message == b.message;
}

static void keep(int, const QString &, const QString &text, void *log)
{
    static_cast<QStringList *>(log)->append(text);
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QJsonObject metaData = parsed(fuzzBytes(data, size));
    QStringList log;
    NARV::narvSetLogMessagePattern(QStringLiteral("%{MESSAGE}"));
    NARV::narvInstallLogMessageHandlerPrivate(keep, &log);

    Library library;
    const int code = Utils::metaInformationFromMetaData(metaData, library);
    const QStringList readerLog = std::exchange(log, {});
    const QVector<MetaDataProblem> first = MetaDataChecker::firstProblem(metaData);
    const QVector<MetaDataProblem> all = MetaDataChecker::allProblems(metaData);
    NARV::narvUninstallLogMessageHandlerPrivate();

    FUZZ_REQUIRE(log.isEmpty());
    FUZZ_REQUIRE(first.size() == (code ? 1 : 0));
    FUZZ_REQUIRE(first.isEmpty() == all.isEmpty());
    if (!code) {
        FUZZ_REQUIRE(readerLog.isEmpty());
        checkLibrary(library);
        return 0;
    }
    FUZZ_REQUIRE(library.widgets().isEmpty());
    FUZZ_REQUIRE(first[0].code == code);
    FUZZ_REQUIRE(isSame(first[0], all[0]));
    FUZZ_REQUIRE(readerLog == expectedLog(first[0]));
    for (const MetaDataProblem &problem : all) {
        FUZZ_REQUIRE(qstrcmp(Utils::errorToString(problem.code), "error code undefined") != 0);
        FUZZ_REQUIRE(problem.path.startsWith(QLatin1String("MetaData")));
    }
    return 0;
}
