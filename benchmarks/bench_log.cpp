// What a log record costs on its way to the host, beside Qt's own logging and spdlog. All print
// time, type, category and text, and hand the line to a function that only looks at it.

#include "ratioreporter.h"

#include <NARV/LogHandler>

#include <QLoggingCategory>

#include <benchmark/benchmark.h>
#include <spdlog/logger.h>
#include <spdlog/sinks/base_sink.h>

#include <mutex>

Q_LOGGING_CATEGORY(category, "GENERAL")

static void receive(int, const QString &, const QString &message, void *)
{
    benchmark::DoNotOptimize(message.constData());
}

static void receiveQt(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    receive(type, QString(), qFormatLogMessage(type, context, message), nullptr);
}

static void libraryRecord(benchmark::State &state)
{
    const QString source = QStringLiteral("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11");
    while (state.KeepRunning()) {
        NARV::LogHandler(source, __FILE__, __LINE__, __func__, "GENERAL").warning().debug()
            << "plugin loaded";
    }
}
BENCHMARK(libraryRecord);
BENCHMARK(libraryRecord)->UseRealTime()->ThreadRange(1, 2);

static void qtRecord(benchmark::State &state)
{
    while (state.KeepRunning())
        qCWarning(category) << "plugin loaded";
}
BENCHMARK(qtRecord);

//! A sink that formats and calls back, as the library does.
class CallbackSink : public spdlog::sinks::base_sink<std::mutex>
{
protected:
    void sink_it_(const spdlog::details::log_msg &message) override
    {
        spdlog::memory_buf_t line;
        formatter_->format(message, line);
        benchmark::DoNotOptimize(line.data());
    }
    void flush_() override {}
};

static void spdlogRecord(benchmark::State &state)
{
    spdlog::logger logger("GENERAL", std::make_shared<CallbackSink>());
    logger.set_pattern("[%Y-%m-%dT%H:%M:%S][%l][%n]: %v");
    while (state.KeepRunning())
        logger.warn("{}", "plugin loaded");
}
BENCHMARK(spdlogRecord);

int main(int argc, char **argv)
{
    NARV::narvInstallLogMessageHandlerPrivate(receive, nullptr);
    qInstallMessageHandler(receiveQt);
    qSetMessagePattern(QStringLiteral("[%{time yyyy-MM-ddTHH:mm:ss}][%{type}]"
                                      "%{if-category}[%{category}]%{endif}: %{message}"));
    return runBenchmarks(
        argc, argv,
        {
            {"record / qCWarning", "libraryRecord", "qtRecord", 0.1},
            {"record / spdlog", "libraryRecord", "spdlogRecord", 4},
            {"two threads / one", "libraryRecord/threads:2", "libraryRecord/threads:1", 1},
        });
}
