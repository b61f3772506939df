#pragma once

#include "logrecord_p.h"

#include <QString>
#include <QStringView>

#include <limits>
#include <vector>

namespace NARV::INTERNAL {

//! A message pattern, split once. It remembers the last time texts it made, so formatting changes
//! it: each thread formats with a copy of its own.
class MessagePattern
{
public:
    explicit MessagePattern(const QString &pattern);

    QString format(const LogRecord &record);

private:
    struct Placeholder;

    struct Token
    {
        const Placeholder *placeholder = nullptr; // null: a literal or a time
        bool isTime = false;
        QString text;       // of a literal; of a time: as last printed
        QString timeFormat; // empty for the ISO form
        qint64 shown = std::numeric_limits<qint64>::min(); // the instant that text is right for
    };

    void addLiteral(QStringView text);
    void addPlaceholder(QStringView text);
    void addTime(QStringView placeholder);
    static void updateTime(Token &token, qint64 now);

    static const Placeholder placeholders[];
    static const Placeholder &endIf;

    std::vector<Token> m_tokens;
};

} // namespace NARV::INTERNAL
