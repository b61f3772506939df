#include "guardedtest.h"

#include <NARV/LogHandler>

#include <QDateTime>
#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include <atomic>
#include <stdexcept>
#include <thread>

using NARV::Debug;
using NARV::LogHandler;

Q_DECLARE_METATYPE(QtMsgType)

static QString repeated(const char *text, int count)
{
    return QString::fromLatin1(text).repeated(count);
}

class tst_Log : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void pattern_data();
    void pattern();
    void hostilePattern_data();
    void hostilePattern();
    void runtimeFields();
    void time();
    void text_data();
    void text();
    void levels();
    void missingContext();
    void eachCopyDelivers();
    void recordsStartAfresh();
    void withoutCallback();
    void callbackThatLogs();
    void callbackThatThrows();
    void threads();

private:
    //! What one record of that pattern prints.
    QString formatted(const QString &pattern, QtMsgType type = QtWarningMsg,
                      const char *category = "GENERAL");
    QString takeMessage();
};

QString tst_Log::takeMessage()
{
    const QList<LogEntry> log = takeLog();
    return log.size() == 1 ? log.first().message : QStringLiteral("%1 records").arg(log.size());
}

QString tst_Log::formatted(const QString &pattern, QtMsgType type, const char *category)
{
    NARV::narvSetLogMessagePattern(pattern);
    const LogHandler handler({}, "f\xc3\xbcr.cpp", 7, "run", category);
    switch (type) {
    case QtDebugMsg:
        handler.debug().debug() << "text";
        break;
    case QtInfoMsg:
        handler.info().debug() << "text";
        break;
    case QtWarningMsg:
        handler.warning().debug() << "text";
        break;
    case QtCriticalMsg:
        handler.critical().debug() << "text";
        break;
    case QtFatalMsg:
        Debug(type).debug() << "text";
        break;
    }
    return takeMessage();
}

void tst_Log::pattern_data()
{
    const char *const conditions = "%{IF-NOT-INFO}n%{ENDIF}%{IF-DEBUG}d%{ENDIF}%{IF-INFO}i%{ENDIF}"
                                   "%{IF-WARNING}w%{ENDIF}%{IF-CRITICAL}c%{ENDIF}%{TYPE}";
    const char *const category = "%{IF-CATEGORY}[%{CATEGORY}]%{ENDIF}%{CATEGORY}";
    const char *const twoConditions = "%{IF-INFO}a%{IF-WARNING}b%{ENDIF}c%{ENDIF}d";
    static const struct
    {
        const char *name;
        const char *pattern;
        const char *expected;
        QtMsgType type = QtWarningMsg;
        const char *category = "GENERAL";
    } rows[] = {
        {"nothing", "", ""},
        {"fields", "%{TYPE} %{CATEGORY} %{MESSAGE} %{FILE} %{LINE} %{FUNCTION}",
         "WARNING GENERAL text f\xc3\xbcr.cpp 7 run"},
        {"literals as given", "\xc3\xa9 % } {", "\xc3\xa9 % } {"},
        {"unknown", "a%{APPNAME}b%{}c", "abc"},
        {"other case", "a%{type}%{Message}b", "ab"},
        {"not exact", "a%{TYPE }%{ TYPE}%{TYPES}b", "ab"},
        {"unclosed", "%{TYPE}a%{MESSAGE", "WARNINGa%{MESSAGE"},
        {"unclosed, bare", "a%{", "a%{"},
        {"opened twice", "a%{TYPE%{LINE}b}", "ab}"},
        {"percent before", "%%{LINE}%", "%7%"},
        {"percent apart", "% {LINE}", "% {LINE}"},
        {"conditions, debug", conditions, "ndDEBUG", QtDebugMsg},
        {"conditions, info", conditions, "iINFO", QtInfoMsg},
        {"conditions, warning", conditions, "nwWARNING", QtWarningMsg},
        {"conditions, critical", conditions, "ncCRITICAL", QtCriticalMsg},
        {"conditions, fatal", conditions, "nFATAL", QtFatalMsg},
        {"hidden condition", twoConditions, "cd", QtWarningMsg},
        {"second condition", twoConditions, "acd", QtInfoMsg},
        {"condition without end", "a%{IF-INFO}b%{MESSAGE}%{TIME}", "a"},
        {"category", category, "[GENERAL]GENERAL"},
        {"category default", category, "default", QtWarningMsg, "default"},
        {"category null", category, "", QtWarningMsg, nullptr},
        {"category empty", category, "[]", QtWarningMsg, ""},
        {"time format to the brace", "%{TIME 'a b' }|", "a b |"},
        {"time by prefix", "%{TIMEX 'a'}%{TIMES'b' 'c'}", "ac"},
        {"hidden time keeps its format", "%{IF-INFO}%{TIME 'a'}%{ENDIF}%{TIME 'b'}", "b"},
    };
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QtMsgType>("type");
    QTest::addColumn<QByteArray>("category");
    for (const auto &row : rows)
        QTest::newRow(row.name) << QString::fromUtf8(row.pattern) << QString::fromUtf8(row.expected)
                                << row.type << QByteArray(row.category);
}

void tst_Log::pattern()
{
    QFETCH(QString, pattern);
    QFETCH(QString, expected);
    QFETCH(QtMsgType, type);
    QFETCH(QByteArray, category);
    QCOMPARE(formatted(pattern, type, category.isNull() ? nullptr : category.constData()),
             expected);
}

void tst_Log::hostilePattern_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");

    const QString characters =
        QString(QChar(0)) + QChar(0xd800) + QLatin1Char('%') + QChar(0xdc00) + QChar(0xd800);
    QTest::newRow("NUL and lone surrogates") << characters << characters;
    const QString open = repeated("%{", 2000000);
    QTest::newRow("opened without end") << open << open;
    QTest::newRow("one long placeholder") << open + QLatin1String("}a") << QStringLiteral("a");
    QTest::newRow("unknown placeholders") << repeated("%{X}", 500000) << QString();
    QTest::newRow("placeholders") << repeated("%{LINE}", 100000) << repeated("7", 100000);
    QTest::newRow("times") << repeated("%{TIME 'a'}", 100000) << repeated("a", 100000);
    QTest::newRow("conditions") << repeated("%{IF-INFO}", 500000) << QString();
}

void tst_Log::hostilePattern()
{
    QFETCH(QString, pattern);
    QFETCH(QString, expected);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(formatted(pattern) == expected);
    QVERIFY2(timer.elapsed() < 10000, "takes more than a time in proportion to its length");
}

void tst_Log::runtimeFields()
{
    QCOMPARE(formatted(QStringLiteral("%{PID}")),
             QString::number(QCoreApplication::applicationPid()));
    QCOMPARE(formatted(QStringLiteral("%{THREAD}")),
             QString::number(quintptr(QThread::currentThreadId())));
}

// Twice, as times are kept for a second.
void tst_Log::time()
{
    const QString milliseconds = QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz");
    const auto format = [](QString text) { return QStringLiteral("%{TIME %1}").arg(text); };
    const auto now = [&](int length) {
        return QDateTime::currentDateTime().toString(milliseconds).left(length);
    };
    for (int i = 0; i < 2; ++i) {
        const QString start = now(23);
        const QString iso = formatted(QStringLiteral("%{TIME}"));
        const QString minutes = formatted(format(QStringLiteral("yyyy-MM-ddThh:mm")));
        const QString exact = formatted(format(milliseconds));
        QCOMPARE(iso.size(), 19);
        QVERIFY(start.left(19) <= iso && iso <= now(19));
        QVERIFY(start.left(16) <= minutes && minutes <= now(16));
        QTest::qSleep(3);
        const QString later = formatted(format(milliseconds));
        QVERIFY(start <= exact && exact < later && later <= now(23));
        QTest::qSleep(1000);
    }
}

using Write = void (*)(QDebug &);
Q_DECLARE_METATYPE(Write)

void tst_Log::text_data()
{
    static const struct
    {
        const char *name;
        Write write;
        const char *expected;
    } rows[] = {
        {"items apart", [](QDebug &out) { out << "a" << 1 << "b"; }, "a 1 b"},
        {"quoted", [](QDebug &out) { out << QStringLiteral("a"); }, "\"a\""},
        {"not quoted", [](QDebug &out) { out.noquote() << QStringLiteral("a"); }, "a"},
        {"own trailing blank", [](QDebug &out) { out << "a "; }, "a "},
        {"own trailing blank, nospace", [](QDebug &out) { out.nospace() << "a "; }, "a "},
        {"nothing", [](QDebug &) {}, "0 records"},
        {"only a separator", [](QDebug &out) { out.space(); }, "0 records"},
        {"blank", [](QDebug &out) { out.nospace() << " "; }, " "},
    };
    QTest::addColumn<Write>("write");
    QTest::addColumn<QString>("expected");
    for (const auto &row : rows)
        QTest::newRow(row.name) << row.write << QString::fromLatin1(row.expected);
}

void tst_Log::text()
{
    QFETCH(Write, write);
    QFETCH(QString, expected);
    {
        Debug record(QtDebugMsg);
        write(record.debug());
        QVERIFY(takeLog().isEmpty());
    }
    QCOMPARE(takeMessage(), expected);
}

void tst_Log::levels()
{
    const QString id = QStringLiteral("id");
    const LogHandler handler(id, "file.cpp", 1, "run", "METADATA");
    handler.debug().debug() << "a";
    handler.info().debug() << "a";
    handler.warning().debug() << "a";
    handler.critical().debug() << "a";
    handler.noDebug() << "a";
    QList<LogEntry> expected;
    for (int type : {0, 4, 1, 2})
        expected.append({type, id, QStringLiteral("METADATA"), QStringLiteral("a")});
    QCOMPARE(takeLog(), expected);
}

void tst_Log::missingContext()
{
    NARV::narvSetLogMessagePattern(
        QStringLiteral("%{CATEGORY} %{FILE} %{LINE} %{FUNCTION} %{MESSAGE}"));
    Debug(QtInfoMsg).debug() << "a";
    QCOMPARE(takeMessage(), QStringLiteral(" unknown 0 unknown a"));
    LogHandler().info().debug() << "a";
    QCOMPARE(takeMessage(), QStringLiteral(" unknown 0 unknown a"));
    LogHandler(QStringLiteral("id"), "file.cpp", 1, "run").info().debug() << "a";
    QCOMPARE(takeMessage(), QStringLiteral("default file.cpp 1 run a"));
}

static Debug returned(const QString &source)
{
    return LogHandler(source, nullptr, 0, nullptr, "NARV").info();
}

void tst_Log::eachCopyDelivers()
{
    const QString id = QStringLiteral("id");
    const auto entry = [&](const char *text) {
        return LogEntry{QtInfoMsg, id, QStringLiteral("NARV"), QString::fromLatin1(text)};
    };
    {
        Debug first = returned(id);
        first.debug().nospace() << "a ";
        Debug second(first);
        Debug third(std::move(first));
        second.debug() << "b";
        first.debug() << "c"; // a move leaves it as it was
    }
    QCOMPARE(takeLog(), (QList<LogEntry>{entry("a "), entry("a b"), entry("a c")}));
    returned(id).debug() << "once";
    QCOMPARE(takeLog(), QList<LogEntry>{entry("once")});
}

void tst_Log::recordsStartAfresh()
{
    LogHandler(QStringLiteral("id"), "file.cpp", 1, "run", "NARV")
            .critical()
            .debug()
            .nospace()
            .noquote()
        << Qt::hex << qSetFieldWidth(9) << repeated("a", 5000);
    QCOMPARE(takeLog().size(), 1);
    for (int i = 0; i < 2; ++i) {
        LogHandler().info().debug() << QStringLiteral("a") << 255;
        QCOMPARE(takeLog(), (QList<LogEntry>{{QtInfoMsg, {}, {}, QStringLiteral("\"a\" 255")}}));
        Debug(QtDebugMsg).debug().nospace().noquote() << Qt::hex << qSetFieldWidth(9) << 1;
        QCOMPARE(takeLog().size(), 1);
    }
}

void tst_Log::withoutCallback()
{
    {
        Debug record(QtInfoMsg);
        record.debug() << "a";
        NARV::narvUninstallLogMessageHandlerPrivate();
    }
    Debug(QtInfoMsg).debug() << "b";
    QVERIFY(takeLog().isEmpty());
}

struct Calls
{
    int count = 0;
    bool throws = false;
};

static void callBack(int, const QString &, const QString &, void *userData)
{
    auto *calls = static_cast<Calls *>(userData);
    ++calls->count;
    Debug(QtInfoMsg).debug() << "dropped";
    if (calls->throws)
        throw std::runtime_error("from the callback");
}

void tst_Log::callbackThatLogs()
{
    Calls calls;
    NARV::narvInstallLogMessageHandlerPrivate(callBack, &calls);
    Debug(QtInfoMsg).debug() << "a";
    QCOMPARE(calls.count, 1);
    Debug(QtInfoMsg).debug() << "b";
    NARV::narvUninstallLogMessageHandlerPrivate();
    QCOMPARE(calls.count, 2);
}

void tst_Log::callbackThatThrows()
{
    Calls calls{0, true};
    NARV::narvInstallLogMessageHandlerPrivate(callBack, &calls);
    Debug(QtInfoMsg).debug() << "a";
    NARV::narvSetLogMessagePattern(QStringLiteral("%{MESSAGE}"));
    Debug(QtInfoMsg).debug() << "b";
    NARV::narvUninstallLogMessageHandlerPrivate();
    QCOMPARE(calls.count, 2);
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
    const QString patterns[] = {QStringLiteral("a %{MESSAGE} a"), QStringLiteral("b %{MESSAGE} b")};
    NARV::narvSetLogMessagePattern(patterns[0]);
    std::atomic<bool> stop{false};
    std::thread loggers[3];
    for (std::thread &logger : loggers) {
        logger = std::thread([&] {
            while (!stop)
                LogHandler().info().debug() << "text";
        });
    }
    for (int i = 0; i < 1000 || received < 20000; ++i) {
        NARV::narvInstallLogMessageHandlerPrivate(receive, nullptr);
        NARV::narvSetLogMessagePattern(patterns[i % 2]);
        std::this_thread::yield();
        NARV::narvUninstallLogMessageHandlerPrivate();
    }
    stop = true;
    for (std::thread &logger : loggers)
        logger.join();
    QCOMPARE(mixed.load(), 0);
    takeLog(); // of the moment before the first install
}

QTEST_GUILESS_MAIN(tst_Log)
#include "tst_log.moc"
