// A message pattern and a record formatted with it, compared with the pattern read in the plainest
// way. The first byte chooses level, category and UTF-16; the pattern ends at the first line feed.

#include "fuzztarget.h"

#include <NARV/LogHandler>

#include <QCoreApplication>
#include <QStringList>
#include <QThread>

namespace {

struct Record
{
    int type;
    const char *category;
    QString text;
};

constexpr int line = 42;
constexpr const char *categories[] = {nullptr, "default", "GENERAL", "Kühlung"};

//! Placeholders are separate pieces, an unclosed one is text.
QStringList piecesOf(const QString &pattern)
{
    QStringList pieces;
    QString piece;
    const auto finish = [&] {
        if (!piece.isEmpty())
            pieces.append(std::exchange(piece, {}));
    };
    bool isPlaceholder = false;
    for (int i = 0; i < pattern.size(); ++i) {
        if (!isPlaceholder && pattern.midRef(i, 2) == QLatin1String("%{")) {
            finish();
            isPlaceholder = true;
        }
        piece += pattern[i];
        if (isPlaceholder && pattern[i] == QLatin1Char('}')) {
            finish();
            isPlaceholder = false;
        }
    }
    finish();
    return pieces;
}

QString fieldText(const QString &placeholder, const Record &record)
{
    static const char *const types[] = {"DEBUG", "WARNING", "CRITICAL", "FATAL", "INFO"};
    const QMap<QString, QString> fields{
        {QStringLiteral("%{MESSAGE}"), record.text},
        {QStringLiteral("%{CATEGORY}"), QString::fromUtf8(record.category)},
        {QStringLiteral("%{TYPE}"), QLatin1String(types[record.type])},
        {QStringLiteral("%{FILE}"), QStringLiteral("file.cpp")},
        {QStringLiteral("%{LINE}"), QString::number(line)},
        {QStringLiteral("%{FUNCTION}"), QStringLiteral("unknown")},
        {QStringLiteral("%{PID}"), QString::number(QCoreApplication::applicationPid())},
        {QStringLiteral("%{THREAD}"), QString::number(quintptr(QThread::currentThreadId()))},
    };
    return fields.value(placeholder);
}

bool hides(const QString &placeholder, const Record &record)
{
    const bool hasCategory = record.category && qstrcmp(record.category, "default") != 0;
    const QMap<QString, bool> conditions{
        {QStringLiteral("%{IF-NOT-INFO}"), record.type != QtInfoMsg},
        {QStringLiteral("%{IF-CATEGORY}"), hasCategory},
        {QStringLiteral("%{IF-DEBUG}"), record.type == QtDebugMsg},
        {QStringLiteral("%{IF-INFO}"), record.type == QtInfoMsg},
        {QStringLiteral("%{IF-WARNING}"), record.type == QtWarningMsg},
        {QStringLiteral("%{IF-CRITICAL}"), record.type == QtCriticalMsg},
    };
    return !conditions.value(placeholder, true);
}

//! The texts before, between and behind the times.
QStringList expected(const QString &pattern, const Record &record)
{
    QStringList texts{QString()};
    bool isHidden = false;
    for (const QString &piece : piecesOf(pattern)) {
        if (piece == QLatin1String("%{ENDIF}"))
            isHidden = false;
        else if (isHidden)
            continue;
        else if (!piece.startsWith(QLatin1String("%{")) || !piece.endsWith(QLatin1Char('}')))
            texts.last() += piece;
        else if (piece.startsWith(QLatin1String("%{TIME")))
            texts.append(QString());
        else if (hides(piece, record))
            isHidden = true;
        else
            texts.last() += fieldText(piece, record);
    }
    return texts;
}

void checkText(const QString &text, const QStringList &parts)
{
    if (parts.size() == 1) {
        FUZZ_REQUIRE(text == parts.first());
        return;
    }
    FUZZ_REQUIRE(text.startsWith(parts.first()));
    FUZZ_REQUIRE(text.endsWith(parts.last()));
    int position = 0;
    for (const QString &part : parts) {
        position = text.indexOf(part, position);
        FUZZ_REQUIRE(position >= 0);
        position += part.size();
    }
}

void keep(int, const QString &, const QString &text, void *delivered)
{
    static_cast<QStringList *>(delivered)->append(text);
}

void write(const Record &record)
{
    const NARV::LogHandler handler({}, "file.cpp", line, nullptr, record.category);
    NARV::Debug debug(record.type == QtDebugMsg     ? handler.debug()
                      : record.type == QtWarningMsg ? handler.warning()
                      : record.type == QtInfoMsg    ? handler.info()
                                                    : handler.critical());
    debug.debug().noquote().nospace() << record.text;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static constexpr int types[] = {QtDebugMsg, QtWarningMsg, QtCriticalMsg, QtInfoMsg};
    if (size == 0)
        return 0;
    const QString input = fuzzText(fuzzBytes(data + 1, size - 1), data[0] & 0x80);
    const int end = input.indexOf(QLatin1Char('\n'));
    const QString pattern = input.left(end);
    const QString text = end < 0 ? QStringLiteral("text") : input.mid(end + 1);
    const Record record{types[data[0] & 3], categories[(data[0] >> 2) & 3], text};

    QStringList delivered;
    NARV::narvInstallLogMessageHandlerPrivate(keep, &delivered);
    NARV::narvSetLogMessagePattern(pattern);
    write(record);
    NARV::narvUninstallLogMessageHandlerPrivate();
    FUZZ_REQUIRE(delivered.size() == (text.isEmpty() ? 0 : 1));
    if (!delivered.isEmpty())
        checkText(delivered.first(), expected(pattern, record));
    return 0;
}
