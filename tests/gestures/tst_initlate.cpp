#include "guardedtest.h"

#include <NARV/INTERNAL/Init>

#include <QGestureRecognizer>
#include <QIcon>

//! A host that registers a recogniser of its own too early.
class tst_InitLate : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void takenNumbersAreReported();
};

class HostRecognizer : public QGestureRecognizer
{
public:
    Result recognize(QGesture *, QObject *, QEvent *) override { return Ignore; }
};

void tst_InitLate::takenNumbersAreReported()
{
    QGestureRecognizer::registerRecognizer(new HostRecognizer);
    NARV::INTERNAL::narvInit(QIcon());
    const QList<LogEntry> expected{
        {QtWarningMsg, QString(), u("GENERAL"),
         u("Gesture recognisers were registered before narvInit: the library's gestures do not get "
           "their fixed types, 257 to 263")}};
    QCOMPARE(takeLog(), expected);
}

QTEST_MAIN(tst_InitLate)
#include "tst_initlate.moc"
