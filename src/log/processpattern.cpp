#include "messagepattern_p.h"
#include "processpattern_p.h"
#include "threadowned_p.h"

#include <NARV/LogHandler>

#include <QGlobalStatic>

#include <atomic>
#include <mutex>
#include <optional>

namespace NARV {

using INTERNAL::MessagePattern;

namespace {

struct ProcessPattern
{
    std::mutex mutex;
    MessagePattern pattern{QStringLiteral(
        "[%{TIME}]%{IF-NOT-INFO}[%{TYPE}]%{ENDIF}%{IF-CATEGORY}[%{CATEGORY}]%{ENDIF}: %{MESSAGE}")};
    std::atomic<quint64> generation{1}; // counts the patterns; changed with the mutex held
};

Q_GLOBAL_STATIC(ProcessPattern, processPattern)

//! A thread's copy of the pattern: it formats without the lock, which it needs only when the
//! pattern was replaced since its last record.
class ThreadPattern
{
public:
    MessagePattern &current(ProcessPattern &process)
    {
        if (m_generation != process.generation.load(std::memory_order_acquire))
            fetch(process);
        return *m_pattern;
    }

private:
    void fetch(ProcessPattern &process)
    {
        const std::lock_guard lock(process.mutex);
        m_pattern = MessagePattern(process.pattern);
        m_generation = process.generation;
    }

    std::optional<MessagePattern> m_pattern;
    quint64 m_generation = 0;
};

} // namespace

QString INTERNAL::formatted(const LogRecord &record)
{
    ProcessPattern *process = processPattern();
    if (!process)
        return record.text;
    if (auto *own = threadOwned<ThreadPattern>())
        return own->current(*process).format(record);
    const std::lock_guard lock(process->mutex);
    return process->pattern.format(record);
}

void narvSetLogMessagePattern(const QString &pattern)
{
    MessagePattern parsed(pattern);
    ProcessPattern *process = processPattern();
    if (!process)
        return;
    const std::lock_guard lock(process->mutex);
    std::swap(process->pattern, parsed);
    ++process->generation;
}

} // namespace NARV
