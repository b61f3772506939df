#include "messagepattern_p.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QThread>

#include <algorithm>
#include <cstring>

namespace NARV::INTERNAL {

// The toolkit copies the rest of a format for each of its letters: megabytes would take minutes.
static constexpr qsizetype longestTimeFormat = 256;

static void appendUtf8(const char *text, const char *fallback, QString &out)
{
    const QLatin1String chars(text ? text : fallback);
    const bool isAscii =
        std::all_of(chars.begin(), chars.end(), [](char c) { return uchar(c) < 0x80; });
    if (isAscii)
        out += chars;
    else
        out += QString::fromUtf8(text);
}

static QLatin1String typeName(QtMsgType type)
{
    static const char *const names[] = {"DEBUG", "WARNING", "CRITICAL", "FATAL", "INFO"};
    return QLatin1String(uint(type) < std::size(names) ? names[type] : nullptr);
}

static bool hasCategory(const LogRecord &record)
{
    return record.context.category && std::strcmp(record.context.category, "default") != 0;
}

//! A field, which appends its text, or a condition on the tokens that follow.
struct MessagePattern::Placeholder
{
    const char *text;
    void (*append)(const LogRecord &r, QString &out) = nullptr;
    bool (*isMet)(const LogRecord &r) = nullptr;
};

const MessagePattern::Placeholder MessagePattern::placeholders[] = {
    {"%{TYPE}", [](const LogRecord &r, QString &out) { out += typeName(r.type); }},
    {"%{CATEGORY}",
     [](const LogRecord &r, QString &out) { appendUtf8(r.context.category, "", out); }},
    {"%{MESSAGE}", [](const LogRecord &r, QString &out) { out += r.text; }},
    {"%{FILE}",
     [](const LogRecord &r, QString &out) { appendUtf8(r.context.file, "unknown", out); }},
    {"%{LINE}", [](const LogRecord &r, QString &out) { out += QString::number(r.context.line); }},
    {"%{FUNCTION}",
     [](const LogRecord &r, QString &out) { appendUtf8(r.context.function, "unknown", out); }},
    {"%{PID}", [](const LogRecord &,
                  QString &out) { out += QString::number(QCoreApplication::applicationPid()); }},
    {"%{THREAD}",
     [](const LogRecord &, QString &out) {
         out += QString::number(quintptr(QThread::currentThreadId()));
     }},
    {"%{IF-NOT-INFO}", nullptr, [](const LogRecord &r) { return r.type != QtInfoMsg; }},
    {"%{IF-CATEGORY}", nullptr, hasCategory},
    {"%{IF-DEBUG}", nullptr, [](const LogRecord &r) { return r.type == QtDebugMsg; }},
    {"%{IF-INFO}", nullptr, [](const LogRecord &r) { return r.type == QtInfoMsg; }},
    {"%{IF-WARNING}", nullptr, [](const LogRecord &r) { return r.type == QtWarningMsg; }},
    {"%{IF-CRITICAL}", nullptr, [](const LogRecord &r) { return r.type == QtCriticalMsg; }},
    {"%{ENDIF}", nullptr, [](const LogRecord &) { return true; }},
};

const MessagePattern::Placeholder &MessagePattern::endIf =
    placeholders[std::size(placeholders) - 1];

MessagePattern::MessagePattern(const QString &pattern)
{
    const QStringView text(pattern);
    qsizetype from = 0;
    for (;;) {
        const qsizetype open = text.indexOf(QLatin1String("%{"), from);
        const qsizetype close = open < 0 ? -1 : text.indexOf(QLatin1Char('}'), open);
        if (close < 0)
            break;
        addLiteral(text.mid(from, open - from));
        addPlaceholder(text.mid(open, close + 1 - open));
        from = close + 1;
    }
    addLiteral(text.mid(from)); // an unclosed placeholder is text like any other
}

void MessagePattern::addLiteral(QStringView text)
{
    if (text.isEmpty())
        return;
    Token token;
    token.text = text.toString();
    m_tokens.push_back(token);
}

void MessagePattern::addPlaceholder(QStringView text)
{
    if (text.startsWith(QLatin1String("%{TIME")))
        return addTime(text);
    const auto known =
        std::find_if(std::begin(placeholders), std::end(placeholders),
                     [&](const auto &entry) { return text == QLatin1String(entry.text); });
    if (known == std::end(placeholders))
        return; // prints nothing
    Token token;
    token.placeholder = known;
    m_tokens.push_back(token);
}

void MessagePattern::addTime(QStringView placeholder)
{
    Token token;
    token.isTime = true;
    const qsizetype blank = placeholder.indexOf(QLatin1Char(' '));
    if (blank >= 0) {
        const QStringView format = placeholder.mid(blank + 1).chopped(1);
        token.timeFormat = format.mid(0, longestTimeFormat).toString();
    }
    m_tokens.push_back(token);
}

// Making a time text costs more than all the rest of a record, so it is kept for as long as the
// clock shows the same. It is made anew from the clock each time that changes: no summer time and
// no set clock can make it wrong for longer.
void MessagePattern::updateTime(Token &token, qint64 now)
{
    const bool showsMilliseconds = token.timeFormat.contains(QLatin1Char('z'));
    const qint64 instant = showsMilliseconds ? now : now / 1000;
    if (token.shown == instant)
        return;
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(now);
    token.text =
        token.timeFormat.isEmpty() ? time.toString(Qt::ISODate) : time.toString(token.timeFormat);
    token.shown = instant;
}

QString MessagePattern::format(const LogRecord &record)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    QString out;
    out.reserve(record.text.size() + 100);
    bool skip = false;
    for (Token &token : m_tokens) {
        const Placeholder *placeholder = token.placeholder;
        if (skip && placeholder != &endIf)
            continue;
        if (token.isTime)
            updateTime(token, now);
        if (!placeholder)
            out += token.text;
        else if (placeholder->append)
            placeholder->append(record, out);
        else
            skip = !placeholder->isMet(record);
    }
    return out;
}

} // namespace NARV::INTERNAL
