#include "guardedtest.h"

#include <NARV/LogHandler>

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QThread>

#include <atomic>
#include <stdexcept>
#include <thread>

using NARV::Debug;
using NARV::LogHandler;

static const char conditions[] = "%{IF-NOT-INFO}n%{ENDIF}%{IF-DEBUG}d%{ENDIF}%{IF-INFO}i%{ENDIF}"
                                 "%{IF-WARNING}w%{ENDIF}%{IF-CRITICAL}c%{ENDIF}%{TYPE}";
static const char twoConditions[] = "%{IF-INFO}a%{IF-WARNING}b%{ENDIF}c%{ENDIF}d";
static const char categories[] = "%{IF-CATEGORY}[%{CATEGORY}]%{ENDIF}%{CATEGORY}";
static const struct
{
    const char *name;
    const char *pattern;
    const char *expected;
    Debug (LogHandler::*level)() const = &LogHandler::warning;
    const char *category = "GENERAL";
} patternRows[] = {
    {"fields", "%{TYPE} %{CATEGORY} %{MESSAGE} %{FILE} %{LINE} %{FUNCTION}",
     "WARNING GENERAL text f\xc3\xbcr.cpp 7 run"},
    {"nothing", "", ""},
    {"literals as given", "\xc3\xa9 % } {", "\xc3\xa9 % } {"},
    {"unknown", "a%{APPNAME}b%{}c", "abc"},
    {"not exact", "a%{type}%{TYPE }%{ TYPE}%{TYPES}b", "ab"},
    {"unclosed", "%{TYPE}a%{MESSAGE", "WARNINGa%{MESSAGE"},
    {"unclosed, bare", "a%{", "a%{"},
    {"opened twice", "a%{TYPE%{LINE}b}", "ab}"},
    {"percent", "%%{LINE}% {LINE}", "%7% {LINE}"},
    {"conditions, debug", conditions, "ndDEBUG", &LogHandler::debug},
    {"conditions, info", conditions, "iINFO", &LogHandler::info},
    {"conditions, warning", conditions, "nwWARNING"},
    {"conditions, critical", conditions, "ncCRITICAL", &LogHandler::critical},
    {"hidden condition", twoConditions, "cd"},
    {"second condition", twoConditions, "acd", &LogHandler::info},
    {"condition without end", "a%{IF-INFO}b%{MESSAGE}%{TIME}", "a"},
    {"category", categories, "[GENERAL]GENERAL"},
    {"category default", categories, "default", &LogHandler::info, "default"},
    {"category null", categories, "", &LogHandler::info, nullptr},
    {"time format to the brace", "%{TIME 'a b' }|", "a b |"},
    {"time by prefix", "%{TIMEX 'a'}%{TIMES'b' 'c'}", "ac"},
    {"hidden time keeps its format", "%{IF-INFO}%{TIME 'a'}%{ENDIF}%{TIME 'b'}", "b"},
};

static const struct
{
    const char *name;
    void (*write)(QDebug &out);
    const char *expected;
} textRows[] = {
    {"items apart", [](QDebug &out) { out << "a" << 1 << "b"; }, "a 1 b"},
    {"quoted", [](QDebug &out) { out << u("a"); }, "\"a\""},
    {"not quoted", [](QDebug &out) { out.noquote() << u("a"); }, "a"},
    {"own trailing blank", [](QDebug &out) { out << "a "; }, "a "},
    {"own trailing blank, nospace", [](QDebug &out) { out.nospace() << "a "; }, "a "},
    {"nothing", [](QDebug &) {}, "0 records"},
    {"only a separator", [](QDebug &out) { out.space(); }, "0 records"},
};

class tst_Log : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void pattern_data() { addRows(patternRows); }
    void pattern();
    void hostilePattern_data();
    void hostilePattern();
    void runtimeFields();
    void time();
    void text_data() { addRows(textRows); }
    void text();
    void levelsAndContext();
    void eachCopyDelivers();
    void recordsStartAfresh();
    void callback();
    void threads();

private:
    QString takeMessage();
};

QString tst_Log::takeMessage()
{
    const QList<LogEntry> log = takeLog();
    return log.size() == 1 ? log.first().message : u("%1 records").arg(log.size());
}

void tst_Log::pattern()
{
    const auto &[name, pattern, expected, level, category] = currentRow(patternRows);
    NARV::narvSetLogMessagePattern(QString::fromUtf8(pattern));
    const LogHandler handler({}, "f\xc3\xbcr.cpp", 7, "run", category);
    (handler.*level)().debug() << "text";
    QCOMPARE(takeMessage(), QString::fromUtf8(expected));
}

void tst_Log::hostilePattern_data()
{
    const auto repeated = [](const char *text, int count) {
        return QString::fromLatin1(text).repeated(count);
    };
    const QString open = repeated("%{", 2000000);
    const QString odd = QString(QChar(0)) + QChar(0xd800) + QLatin1Char('%') + QChar(0xdc00);
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");
    QTest::newRow("NUL and lone surrogates") << odd << odd;
    QTest::newRow("opened without end") << open << open;
    QTest::newRow("one long placeholder") << open + QLatin1String("}a") << u("a");
    QTest::newRow("unknown placeholders") << repeated("%{X}a", 500000) << repeated("a", 500000);
    QTest::newRow("placeholders") << repeated("%{LINE}", 100000) << repeated("0", 100000);
    QTest::newRow("times") << repeated("%{TIME 'a'}", 100000) << repeated("a", 100000);
    const QString year = QString::number(QDate::currentDate().year()) + QLatin1Char('-');
    QTest::newRow("one long time")
        << u("%{TIME yyyy-") + repeated("yyyy-", 100000) + QLatin1Char('}')
        << year.repeated(51) + QLatin1Char('y');
}

void tst_Log::hostilePattern()
{
    QFETCH(QString, pattern);
    QFETCH(QString, expected);
    QElapsedTimer timer;
    timer.start();
    NARV::narvSetLogMessagePattern(pattern);
    Debug(QtInfoMsg).debug() << "text";
    QVERIFY(takeMessage() == expected); // no comparison that prints megabytes
    QVERIFY2(timer.elapsed() < 10000, "takes more than in proportion to its length");
}

void tst_Log::runtimeFields()
{
    NARV::narvSetLogMessagePattern(u("%{PID} %{THREAD}"));
    Debug(QtInfoMsg).debug() << "text";
    QCOMPARE(takeMessage(), u("%1 %2")
                                .arg(QCoreApplication::applicationPid())
                                .arg(quintptr(QThread::currentThreadId())));
}

// Through a change of the millisecond and of the second, as time texts are kept.
void tst_Log::time()
{
    NARV::narvSetLogMessagePattern(u("%{TIME}|%{TIME hh:mm}|%{TIME yyyy-MM-ddThh:mm:ss.zzz}"));
    for (int pause : {1, 3, 1000}) {
        QTest::qSleep(pause);
        const QString start = QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
        Debug(QtInfoMsg).debug() << "text";
        const QString end = QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
        const QStringList times = takeMessage().split(QLatin1Char('|'));
        QCOMPARE(times.size(), 3);
        QVERIFY(start <= times[2] && times[2] <= end);
        QCOMPARE(times[0], times[2].left(19));
        QCOMPARE(times[1], times[2].mid(11, 5));
    }
}

void tst_Log::text()
{
    const auto &row = currentRow(textRows);
    {
        Debug record(QtDebugMsg);
        row.write(record.debug());
        QVERIFY(takeLog().isEmpty());
    }
    QCOMPARE(takeMessage(), QString::fromLatin1(row.expected));
}

void tst_Log::levelsAndContext()
{
    NARV::narvSetLogMessagePattern(u("%{CATEGORY} %{FILE} %{LINE} %{FUNCTION} %{TYPE} %{MESSAGE}"));
    const QString id = u("id");
    LogHandler().debug().debug() << "a";
    LogHandler(id, "f.cpp", 1, "run").info().debug() << "a";
    LogHandler(id, "f.cpp", 1, "run", "NARV").warning().debug() << "a";
    LogHandler(id, "f.cpp", 1, "run", "NARV").noDebug() << "a";
    LogHandler().critical().debug() << "a";
    Debug(QtFatalMsg).debug() << "a";
    const LogEntry expected[] = {
        {0, {}, {}, u(" unknown 0 unknown DEBUG a")},
        {4, id, {}, u("default f.cpp 1 run INFO a")},
        {1, id, {}, u("NARV f.cpp 1 run WARNING a")},
        {2, {}, {}, u(" unknown 0 unknown CRITICAL a")},
        {3, {}, {}, u(" unknown 0 unknown FATAL a")},
    };
    QCOMPARE(takeLog(), QList<LogEntry>(std::begin(expected), std::end(expected)));
}

static Debug returned(const QString &source)
{
    return LogHandler(source, nullptr, 0, nullptr, "NARV").info();
}

void tst_Log::eachCopyDelivers()
{
    const QString id = u("id");
    const auto entry = [&](const char *text) {
        return LogEntry{QtInfoMsg, id, u("NARV"), QString::fromLatin1(text)};
    };
    {
        Debug first = returned(id);
        first.debug().nospace() << "a ";
        Debug second(first);
        Debug third(static_cast<Debug &&>(first));
        second.debug() << "b";
        first.debug() << "c"; // moving from it left it as it was
    }
    QCOMPARE(takeLog(), (QList<LogEntry>{entry("a "), entry("a b"), entry("a c")}));
    returned(id).debug() << "once";
    QCOMPARE(takeLog(), QList<LogEntry>{entry("once")});
}

void tst_Log::recordsStartAfresh()
{
    for (int length : {1, 5000}) {
        returned(u("id")).debug().nospace().noquote()
            << Qt::hex << qSetFieldWidth(9) << QString(length, QLatin1Char('a'));
        LogHandler().warning().debug() << u("a") << 255;
        QCOMPARE(takeLog().mid(1), (QList<LogEntry>{{QtWarningMsg, {}, {}, u("\"a\" 255")}}));
    }
}

static void logAndThrow(int, const QString &, const QString &, void *calls)
{
    ++*static_cast<int *>(calls);
    Debug(QtInfoMsg).debug() << "dropped";
    throw std::runtime_error("from the callback");
}

void tst_Log::callback()
{
    int calls = 0;
    NARV::narvInstallLogMessageHandlerPrivate(logAndThrow, &calls);
    for (int i = 1; i < 3; ++i) {
        Debug(QtInfoMsg).debug() << "a";
        QCOMPARE(calls, i);
        NARV::narvSetLogMessagePattern(u("%{MESSAGE}"));
    }
    {
        Debug record(QtInfoMsg);
        record.debug() << "a";
        NARV::narvUninstallLogMessageHandlerPrivate();
    }
    QCOMPARE(calls, 2);
}

// What the threads delivered, and how much of it neither pattern alone can have made.
static std::atomic<int> received{0};
static std::atomic<int> mixed{0};

static void receive(int, const QString &, const QString &message, void *)
{
    ++received;
    if (message != QLatin1String("a text a") && message != QLatin1String("b text b"))
        ++mixed;
}

void tst_Log::threads()
{
    const QString patterns[] = {u("a %{MESSAGE} a"), u("b %{MESSAGE} b")};
    NARV::narvSetLogMessagePattern(patterns[0]);
    NARV::narvUninstallLogMessageHandlerPrivate();
    std::atomic<bool> stop{false};
    std::thread loggers[3];
    for (std::thread &logger : loggers) {
        logger = std::thread([&] {
            while (!stop)
                LogHandler().info().debug() << "text";
        });
    }
    for (int i = 0; i < 300 || received < 5000; ++i) {
        NARV::narvInstallLogMessageHandlerPrivate(receive, nullptr);
        NARV::narvSetLogMessagePattern(patterns[i % 2]);
        std::this_thread::yield();
        NARV::narvUninstallLogMessageHandlerPrivate();
    }
    stop = true;
    for (std::thread &logger : loggers)
        logger.join();
    QCOMPARE(mixed.load(), 0);
}

QTEST_GUILESS_MAIN(tst_Log)
#include "tst_log.moc"
