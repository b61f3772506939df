// The guard itself: a test run that must fail in the given functions.

#include "guardedtest.h"

#include <NARV/LogHandler>

#include <QTest>

class Guarded : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void announced()
    {
        expectQtWarning(QStringLiteral("a [b]"));
        expectQtWarning(QRegularExpression(QStringLiteral("^c")));
        qCritical("c, d");
        qWarning("a [b]");
        NARV::LogHandler().info().debug() << "taken";
        QCOMPARE(takeLog().size(), 1);
    }
    void failsOnRecord() { NARV::LogHandler().info().debug() << "not taken"; }
    void failsOnWarning() { qWarning("not announced"); }
    void failsOnSecondWarning()
    {
        expectQtWarning(QStringLiteral("a"));
        qWarning("a");
        qWarning("a");
    }
    void failsOnSilence() { expectQtWarning(QStringLiteral("a")); }
    void passesAfterFailures() {}
};

int main(int argc, char **argv)
{
    Guarded guarded;
    return QTest::qExec(&guarded, argc, argv) == 4 ? 0 : 1;
}

#include "tst_guardedtest.moc"
