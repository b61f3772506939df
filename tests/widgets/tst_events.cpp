#include "guardedtest.h"

#include <NARV/DataRole>
#include <NARV/Event>

#include <QDebug>
#include <QMetaEnum>
#include <QTest>

using namespace NARV;

class tst_Events : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void types();
    void enumerations();
    void debugOutput();
};

void tst_Events::types()
{
    QCOMPARE(int(InitEvent(InitEventData()).type()), 0);
    QCOMPARE(int(DeinitEvent(DeinitEventData()).type()), 1);
    QCOMPARE(int(ResizeEvent(ResizeEventData()).type()), 2);
    QCOMPARE(int(FieldIsChangedEvent(FieldIsChangedEventData()).type()), 3);
    QCOMPARE(int(AlarmStatusIsChangedEvent(AlarmStatusIsChangedEventData()).type()), 4);
    QCOMPARE(int(IconDataRole().type()), 1);
}

static QString keys(const QMetaObject &metaObject)
{
    const QMetaEnum type = metaObject.enumerator(metaObject.indexOfEnumerator("Type"));
    QStringList found;
    for (int i = 0; i < type.keyCount(); ++i)
        found.append(QStringLiteral("%1=%2").arg(QLatin1String(type.key(i))).arg(type.value(i)));
    return QLatin1String(metaObject.className()) + QLatin1Char(' ') + found.join(QLatin1Char(' '));
}

void tst_Events::enumerations()
{
    QCOMPARE(keys(Event::staticMetaObject),
             QStringLiteral("NARV::Event InitEvent=0 DeinitEvent=1 Resize=2 FieldIsChanged=3 "
                            "AlarmStatusIsChanged=4"));
    QCOMPARE(keys(DataRole::staticMetaObject), QStringLiteral("NARV::DataRole Icon=1"));
}

template<class T>
static QString printed(const T &value)
{
    QString text;
    QDebug(&text) << &value << 1;
    return text.trimmed();
}

void tst_Events::debugOutput()
{
    QCOMPARE(printed(InitEvent(InitEventData())), QStringLiteral("NARV::InitEvent() 1"));
    QCOMPARE(printed(DeinitEvent(DeinitEventData())), QStringLiteral("NARV::DeinitEvent() 1"));
    QCOMPARE(printed(ResizeEvent({QSizeF(100, 50), QSizeF(80, 40)})),
             QStringLiteral("NARV::ResizeEvent(size=100, 50,oldSize=80, 40) 1"));
    QCOMPARE(printed(FieldIsChangedEvent({QStringLiteral("a"), 2, QVariant()})),
             QStringLiteral("NARV::FieldIsChangedEvent(fieldId=\"a\",value=QVariant(int, 2),"
                            "oldValue=QVariant(Invalid)) 1"));
    QVERIFY(printed(AlarmStatusIsChangedEvent(AlarmStatusIsChangedEventData()))
                .startsWith(QLatin1String("NARV::AlarmStatusIsChangedEvent(alarmInfo="
                                          "NARV::AlarmInfo(isValid=false,")));
    QCOMPARE(printed(IconDataRole()), QStringLiteral("NARV::IconDataRole() 1"));
}

QTEST_GUILESS_MAIN(tst_Events)
#include "tst_events.moc"
