#include "console/consolepanel.h"
#include "console/eventfiltermodel.h"
#include "console/eventspanel.h"
#include "console/logfiltermodel.h"
#include "console/patterncheck.h"
#include "guardedtest.h"

#include <NARV/LogHandler>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolButton>

#include <thread>

using namespace NARV;
using namespace NARV::DEV;

static void say(const char *category, const QString &text, const QString &source = {})
{
    LogHandler(source, __FILE__, __LINE__, __func__, category).warning().debug().noquote() << text;
}

static LogRecord numbered(int number)
{
    const QtMsgType levels[] = {QtDebugMsg, QtInfoMsg, QtWarningMsg, QtCriticalMsg};
    return {number, levels[number % 4], number % 2 ? u("ODD") : QString(), u("source"),
            u("record ") + QString::number(number)};
}

static QStringList texts(const QAbstractItemModel &model)
{
    QStringList all;
    for (int row = 0; row < model.rowCount(); ++row)
        all += model.index(row, model.columnCount() - 1).data().toString();
    return all;
}

static const struct
{
    const char *name;
    const char *pattern;
    const char *problem; // a part of it; empty for none
} patternRows[] = {
    {"default",
     "[%{TIME}]%{IF-NOT-INFO}[%{TYPE}]%{ENDIF}%{IF-CATEGORY}[%{CATEGORY}]%{ENDIF}: %{MESSAGE}", ""},
    {"empty", "", ""},
    {"time format", "%{TIME hh:mm} %", ""},
    {"unknown", "%{MESAGE}", "%{MESAGE}"},
    {"lower case", "%{message}", "%{message}"},
    {"unclosed", "%{MESSAGE} %{TYPE", "not closed"},
    {"no end", "%{IF-INFO}i", "no %{ENDIF}"},
    {"no start", "i%{ENDIF}", "ends no condition"},
    {"nested", "%{IF-INFO}%{IF-DEBUG}%{ENDIF}", "do not nest"},
};

static const struct
{
    const char *name;
    QtMsgType level;
    const char *category; // null: all
    const char *words;
    int count; // of a thousand
} filterRows[] = {
    {"all", QtDebugMsg, nullptr, "", 1000},
    {"level", QtWarningMsg, nullptr, "", 500},
    {"category", QtDebugMsg, "ODD", "", 500},
    {"without category", QtDebugMsg, "", "", 500},
    {"word", QtDebugMsg, nullptr, " 99", 19},
    {"words, any case", QtDebugMsg, nullptr, "RECORD 1 2 0 odd", 1},
    {"two words", QtDebugMsg, nullptr, "98 7", 2},
    {"source", QtDebugMsg, nullptr, "sOuRce", 1000},
    {"together", QtCriticalMsg, "ODD", "99", 12},
};

class tst_Console : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void relayTakesNothingUnasked();
    void relayFromThreads();
    void patterns_data() { addRows(patternRows); }
    void patterns();
    void placeholdersPrint();
    void ring();
    void filters_data() { addRows(filterRows); }
    void filters();
    void pause();
    void doesNotStutter();
    void consolePanel();
    void events();
};

void tst_Console::relayTakesNothingUnasked()
{
    {
        LogRelay relay;
        say("TEST", u("to the host"));
        QCOMPARE(takeLog().size(), 1);
        relay.install();
    }
    say("TEST", u("to nobody")); // the relay is gone, and its callback with it
}

void tst_Console::relayFromThreads()
{
    LogRelay relay;
    relay.install();
    relay.setPattern(u("<%{TYPE}> %{MESSAGE}"));
    QVector<LogRecord> records;
    int batches = 0;
    connect(&relay, &LogRelay::arrived, this, [&](const QVector<LogRecord> &batch) {
        QCOMPARE(QThread::currentThread(), thread());
        records += batch;
        ++batches;
    });
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
        threads.emplace_back([number] {
            for (int i = 0; i < 1000; ++i)
                say("TEST", QString::number(i), QString::number(number));
        });
    for (std::thread &thread : threads)
        thread.join();
    QTRY_COMPARE(records.size(), 4000);
    QVERIFY(batches < 10);
    QMap<QString, int> next;
    for (const LogRecord &record : qAsConst(records)) {
        QCOMPARE(record.category, u("TEST"));
        QCOMPARE(record.type, QtWarningMsg);
        QCOMPARE(record.text, u("<WARNING> ") + QString::number(next[record.source]++));
    }
    QCOMPARE(next.size(), 4);
}

void tst_Console::patterns()
{
    const auto &row = currentRow(patternRows);
    const QString problem = messagePatternProblem(u(row.pattern));
    QCOMPARE(problem.isEmpty(), QByteArray(row.problem).isEmpty());
    QVERIFY2(problem.contains(u(row.problem)), qPrintable(problem));
}

//! The names offered are those that the log knows: a text stands in the place of each field, and
//! each condition hides what follows from one of two records.
void tst_Console::placeholdersPrint()
{
    const auto shown = [&](const QString &pattern) {
        narvSetLogMessagePattern(pattern);
        say("TEST", u("text"));
        LogHandler().info().debug() << 1;
        QString both;
        for (const LogEntry &entry : takeLog())
            both += entry.message + QLatin1Char('|');
        return both;
    };
    for (const QString &placeholder : messagePatternPlaceholders()) {
        if (placeholder.contains(u("IF-")))
            QVERIFY2(shown(u("a") + placeholder + u("b")).contains(u("a|")),
                     qPrintable(placeholder));
        else if (placeholder == u("%{ENDIF}"))
            QCOMPARE(shown(u("%{IF-DEBUG}a") + placeholder + u("b")), u("b|b|"));
        else
            QVERIFY2(!shown(placeholder).startsWith(u("|")), qPrintable(placeholder));
    }
}

void tst_Console::ring()
{
    LogRelay relay;
    LogModel log(relay);
    LogFilterModel filter(log);
    filter.setCategory(u("ODD"));
    const int excess = 10;
    for (int i = 0; i < log.capacity() + excess; ++i) {
        relay.add(numbered(i));
        if (i % 7000 == 0)
            relay.flush();
    }
    relay.flush();
    QCOMPARE(log.rowCount(), log.capacity());
    QCOMPARE(log.record(0).time, excess);
    QCOMPARE(filter.rowCount(), log.capacity() / 2);
    QCOMPARE(texts(filter).constFirst(), u("record 11"));
    QCOMPARE(texts(filter).constLast(), u("record 100009"));
    const QModelIndex shown = filter.index(3, 0);
    QCOMPARE(filter.mapToSource(shown).row(), 7);
    QCOMPARE(filter.mapFromSource(log.index(7, 0)), shown);
    QVERIFY(!filter.mapFromSource(log.index(6, 0)).isValid());
    log.clear();
    QCOMPARE(filter.rowCount(), 0);
    relay.add(numbered(1));
    relay.flush();
    QCOMPARE(texts(filter), QStringList(u("record 1")));
}

void tst_Console::filters()
{
    const auto &row = currentRow(filterRows);
    LogRelay relay;
    LogModel log(relay);
    LogFilterModel before(log);
    LogFilterModel after(log);
    const auto set = [&](LogFilterModel &filter) {
        filter.setLowestLevel(row.level);
        if (row.category)
            filter.setCategory(u(row.category));
        filter.setWords(u(row.words));
    };
    set(before);
    for (int i = 0; i < 1000; ++i)
        relay.add(numbered(i));
    relay.flush();
    set(after);
    QCOMPARE(before.rowCount(), row.count);
    QCOMPARE(texts(after), texts(before));
}

void tst_Console::pause()
{
    LogRelay relay;
    LogModel log(relay);
    LogFilterModel filter(log);
    const auto add = [&](int number) {
        relay.add(numbered(number));
        relay.flush();
    };
    add(1);
    filter.setPaused(true);
    add(2);
    add(3);
    QCOMPARE(filter.waitingRows(), 2);
    filter.setWords(u("record"));
    QCOMPARE(texts(filter), QStringList(u("record 1")));
    filter.setPaused(false);
    QCOMPARE(texts(filter), QStringList({u("record 1"), u("record 2"), u("record 3")}));
    QCOMPARE(filter.waitingRows(), 0);
}

//! Views hear of few changes, and the panel shows a burst in a fraction of the time that it takes
//! to write it to a file.
void tst_Console::doesNotStutter()
{
    LogRelay relay;
    QWidget window;
    ConsolePanel panel(relay, &window);
    LogModel &log = panel.log();
    panel.resize(400, 300);
    window.show();
    auto *table = panel.findChild<QTableView *>();
    QSignalSpy inserted(table->model(), &QAbstractItemModel::rowsInserted);
    qint64 longest = 0;
    for (int burst = 0; burst < 40; ++burst) {
        for (int i = 0; i < 5000; ++i)
            relay.add(numbered(i));
        QElapsedTimer timer;
        timer.start();
        relay.flush();
        QCoreApplication::processEvents();
        longest = qMax(longest, timer.elapsed());
    }
    qInfo("longest answer: %lld ms", longest);
    QCOMPARE(table->model()->rowCount(), log.capacity());
    QVERIFY(inserted.size() <= 40);
    QVERIFY2(longest < 1000, "a burst holds the window up");
}

void tst_Console::consolePanel()
{
    QTemporaryDir dir;
    LogRelay relay;
    QWidget window;
    ConsolePanel panel(relay, &window);
    LogModel &log = panel.log();
    panel.resize(900, 300);
    auto *table = panel.findChild<QTableView *>();
    for (int i = 0; i < 1000; ++i)
        relay.add(numbered(i));
    relay.flush();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QScrollBar *bar = table->verticalScrollBar();
    auto *follow = panel.findChild<QAction *>(u("follow"));
    QTRY_VERIFY(bar->maximum() > 0 && bar->value() == bar->maximum());
    bar->triggerAction(QAbstractSlider::SliderToMinimum);
    QTRY_VERIFY(!follow->isChecked());
    relay.add(numbered(1000));
    relay.flush();
    QCOMPARE(bar->value(), 0);
    follow->trigger();
    relay.add(numbered(1001));
    relay.flush();
    QTRY_COMPARE(bar->value(), bar->maximum());

    auto *categories = panel.findChild<QComboBox *>(u("category"));
    categories->setCurrentText(u("ODD"));
    panel.findChild<QComboBox *>(u("level"))->setCurrentText(u("Critical"));
    QTest::keyClicks(panel.findChild<QLineEdit *>(u("words")), u("99 3"));
    QTRY_COMPARE(texts(*table->model()), QStringList({u("record 399"), u("record 993")}).mid(0, 1));
    table->setFocus();
    table->selectAll();
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(
        QGuiApplication::clipboard()->text().endsWith(u("\tCritical\tODD\tsource\trecord 399")));
    QString problem;
    QVERIFY(panel.saveTo(dir.filePath(u("log.txt")), problem));
    QFile file(dir.filePath(u("log.txt")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().trimmed(), QGuiApplication::clipboard()->text().toUtf8());
    QVERIFY(!panel.saveTo(dir.filePath(u("no/log.txt")), problem));
    QVERIFY(problem.contains(u("no/log.txt")));

    auto *pattern = panel.findChild<QLineEdit *>(u("pattern"));
    auto *fault = panel.findChild<QLabel *>(u("patternProblem"));
    pattern->setText(u("%{IF-INFO}"));
    QVERIFY(!fault->isHidden());
    QCOMPARE(relay.pattern(), u("%{MESSAGE}"));
    pattern->setText(u("%{LINE}"));
    QVERIFY(fault->isHidden());
    QCOMPARE(relay.pattern(), u("%{LINE}"));
    pattern->home(false);
    const QMenu *menu = panel.findChild<QToolButton *>(u("insertPlaceholder"))->menu();
    menu->actions().last()->trigger();
    QCOMPARE(relay.pattern(), u("%{TIME hh:mm:ss.zzz}%{LINE}"));

    panel.findChild<QAction *>(u("save"))->trigger();
    auto *dialog = panel.findChild<QFileDialog *>();
    const QString proposed = QFileInfo(dialog->selectedFiles().value(0)).fileName();
    QVERIFY2(proposed.startsWith(u("console-")) && proposed.endsWith(u(".txt")),
             qPrintable(proposed));
    QVERIFY(dialog->nameFilters().size() > 1);
    dialog->close();
    panel.findChild<QAction *>(u("clear"))->trigger();
    QCOMPARE(log.rowCount(), 0);
}

void tst_Console::events()
{
    EventLog log;
    EventsPanel panel(log);
    const QAbstractItemModel &shown = *panel.findChild<QTableView *>()->model();
    QSignalSpy inserted(&log, &EventLog::rowsInserted);
    int number = 0;
    for (EventLog::Kind kind : EventLog::kinds()) {
        for (const char *widget : {"", "lamp1", "lamp2"})
            log.add(kind, u(widget), EventLog::kindName(kind) + QString::number(number++));
    }
    QCOMPARE(log.rowCount(), 0);
    QTRY_COMPARE(log.rowCount(), 18);
    QCOMPARE(inserted.size(), 1);
    panel.findChild<QComboBox *>(u("kind"))->setCurrentText(u("Alarm"));
    QCOMPARE(texts(shown), QStringList({u("Alarm6"), u("Alarm7"), u("Alarm8")}));
    auto *widgets = panel.findChild<QComboBox *>(u("widget"));
    QCOMPARE(widgets->count(), 3);
    widgets->setCurrentText(u("lamp2"));
    QCOMPARE(texts(shown), QStringList(u("Alarm8")));
    panel.findChild<QComboBox *>(u("kind"))->setCurrentIndex(0);
    QTest::keyClicks(panel.findChild<QLineEdit *>(u("words")), u("WRITE"));
    QTRY_COMPARE(texts(shown), QStringList({u("Field write2"), u("Tag write14")}));
    for (int i = 0; i < log.capacity() + 5; ++i)
        log.add(EventLog::Kind::Life, {}, QString::number(i));
    log.flush();
    QCOMPARE(log.rowCount(), log.capacity());
    QCOMPARE(log.record(0).text, u("5"));
}

QTEST_MAIN(tst_Console)
#include "tst_console.moc"
