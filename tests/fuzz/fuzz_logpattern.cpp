// A message pattern and a record formatted with it. The first byte chooses level, category and
// UTF-16; the pattern ends at the first line feed.

#include "fuzztarget.h"

using Level = NARV::Debug (NARV::LogHandler::*)() const;

//! The record as it is delivered; null if it is not.
static QString formatted(const QString &pattern, Level level, const char *category,
                         const QString &text)
{
    const FuzzLog log(pattern);
    const NARV::LogHandler handler({}, "file.cpp", 42, nullptr, category);
    (handler.*level)().debug().noquote().nospace() << text;
    FUZZ_REQUIRE(log.texts.size() == (text.isEmpty() ? 0 : 1));
    return log.texts.value(0);
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using NARV::LogHandler;
    static constexpr Level levels[] = {&LogHandler::debug, &LogHandler::warning,
                                       &LogHandler::critical, &LogHandler::info};
    static constexpr const char *categories[] = {nullptr, "default", "GENERAL", "Kühlung"};
    if (size == 0)
        return 0;
    const QString input = fuzzText(fuzzBytes(data + 1, size - 1), data[0] & 0x80);
    const int end = input.indexOf(QLatin1Char('\n'));
    QString pattern = input.left(end);
    const QString text = end < 0 ? QStringLiteral("text") : input.mid(end + 1);
    const auto format = [&](const QString &of) {
        return formatted(of, levels[data[0] & 3], categories[(data[0] >> 2) & 3], text);
    };
    format(pattern);
    if (text.isEmpty())
        return 0;

    // Without the times, which pass, the text is that of its parts.
    pattern.replace(QLatin1String("%{TIME"), QLatin1String("%{time"));
    const QString whole = format(pattern);
    FUZZ_REQUIRE(pattern.contains(QLatin1String("%{")) || whole == pattern);
    const int cut = pattern.lastIndexOf(QLatin1String("%{ENDIF}"));
    const QString start = pattern.left(cut);
    if (cut > 0 && start.lastIndexOf(QLatin1String("%{")) <= start.lastIndexOf(QLatin1Char('}')))
        FUZZ_REQUIRE(whole == format(start) + format(pattern.mid(cut)));
    FUZZ_REQUIRE(format(QStringLiteral("a%{MESSAGE}") + pattern) ==
                 QLatin1Char('a') + text + whole);
    return 0;
}
