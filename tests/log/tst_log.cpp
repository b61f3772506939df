#include "guardedtest.h"

#include <NARV/LogHandler>

#include <QTest>

using NARV::LogHandler;

class tst_Log : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void deliversRecord();
};

void tst_Log::deliversRecord()
{
    const QString id = QStringLiteral("id");
    LogHandler(id, "file.cpp", 1, "run", "GENERAL").warning().debug().noquote() << id << "b";
    const LogEntry expected{QtWarningMsg, id, QStringLiteral("GENERAL"), QStringLiteral("id b")};
    QCOMPARE(takeLog(), QList<LogEntry>{expected});
}

QTEST_GUILESS_MAIN(tst_Log)
#include "tst_log.moc"
