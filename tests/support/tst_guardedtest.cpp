// The guard itself: a test run that must fail in the given functions.

#include "guardedtest.h"

#include <NARV/LogHandler>

class Guarded : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void takesRecords()
    {
        NARV::LogHandler().info().debug() << "taken";
        QCOMPARE(takeLog().size(), 1);
    }
    void failsOnRecord() { NARV::LogHandler().info().debug() << "not taken"; }
    void failsOnWarning() { qWarning("not wanted"); }
    void passesAfterFailures() {}
};

int main(int argc, char **argv)
{
    Guarded guarded;
    return QTest::qExec(&guarded, argc, argv) == 2 ? 0 : 1;
}

#include "tst_guardedtest.moc"
